#include "analysis/bigram_rows.h"

#include <algorithm>
#include <bit>
#include <numeric>

namespace sonavo {

void BigramRows::build(std::span<const std::uint64_t> bigramsOfSongs)
{
    const std::size_t blocks = (bigramsOfSongs.size() + BLOCK_SONGS - 1) / BLOCK_SONGS;
    m_rows.assign(blocks * BigramOrder::BIGRAMS, {});
    std::array<std::size_t, BigramOrder::BIGRAMS> counts{};
    for (std::size_t song = 0; song < bigramsOfSongs.size(); ++song) {
        for (std::uint64_t left = bigramsOfSongs[song]; left != 0; left &= left - 1) {
            const auto bigram = static_cast<std::size_t>(std::countr_zero(left));
            m_rows[song / BLOCK_SONGS * BigramOrder::BIGRAMS + bigram][song / 64 % PART_WORDS] |=
                std::uint64_t{1} << song % 64;
            ++counts[bigram];
        }
    }
    std::iota(m_rarestFirst.begin(), m_rarestFirst.end(), std::uint8_t{0});
    std::sort(m_rarestFirst.begin(), m_rarestFirst.end(),
              [&](std::uint8_t a, std::uint8_t b) { return counts[a] < counts[b]; });
}

BigramOrder BigramRows::orderFor(std::uint64_t bigrams) const
{
    BigramOrder order;
    const auto isInText = [bigrams](std::uint8_t bigram) { return (bigrams >> bigram & 1) != 0; };
    const auto others =
        std::copy_if(m_rarestFirst.begin(), m_rarestFirst.end(), order.bigrams.begin(), isInText);
    order.count = static_cast<std::size_t>(others - order.bigrams.begin());
    std::remove_copy_if(m_rarestFirst.rbegin(), m_rarestFirst.rend(), others, isInText);
    return order;
}

void BigramRows::addContaining(Block &found, const Block &songs, const BigramOrder &order,
                               std::size_t block) const
{
    fastestKernels().addContaining(found.data(), songs.data(), order,
                                   m_rows[block * BigramOrder::BIGRAMS].data());
}

} // namespace sonavo
