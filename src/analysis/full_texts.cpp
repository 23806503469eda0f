#include "analysis/full_texts.h"

#include "analysis/matching.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>

namespace sonavo {
namespace {

constexpr std::size_t BITS_A_WORD = 64;

std::vector<std::uint64_t> bigramsOfAll(std::span<const PreparedSong> bucket,
                                        std::uint64_t PreparedSong::*bigrams)
{
    std::vector<std::uint64_t> all;
    all.reserve(bucket.size());
    for (const PreparedSong &song : bucket)
        all.push_back(song.*bigrams);
    return all;
}

} // namespace

void FullTexts::build(std::span<const PreparedSong> bucket)
{
    m_texts.build(
        bucket.size(), MATCH_TITLE_SIMILARITY,
        [&](BucketPosition song) {
            return TextGroups::Key{bucket[song].fullLength, bucket[song].fullPairs};
        },
        [&](BucketPosition song) { return m_songs.fullTextOf(bucket[song]); });
    m_titles.build(bigramsOfAll(bucket, &PreparedSong::titleBigrams));
    m_names.build(bigramsOfAll(bucket, &PreparedSong::nameBigrams));
    m_left.assign((bucket.size() + BigramRows::BLOCK_SONGS - 1) / BigramRows::BLOCK_SONGS, {});
    for (std::size_t i = 0; i < bucket.size(); ++i)
        m_left[i / BigramRows::BLOCK_SONGS][i / BITS_A_WORD % PART_WORDS] |= std::uint64_t{1}
                                                                             << i % BITS_A_WORD;
}

void FullTexts::remove(BucketPosition position)
{
    m_left[position / BigramRows::BLOCK_SONGS][position / BITS_A_WORD % PART_WORDS] &=
        ~(std::uint64_t{1} << position % BITS_A_WORD);
    m_texts.remove(position);
}

void FullTexts::findMatching(std::span<const SongSearch> searches) const
{
    findSimilar(searches);
    std::vector<ContainingSearch> containing;
    std::size_t firstBlock = m_left.size();
    std::size_t endBlock = 0;
    for (const SongSearch &search : searches) {
        containing.push_back({&search, m_titles.orderFor(search.song->titleBigrams),
                              m_names.orderFor(search.song->nameBigrams)});
        firstBlock = std::min<std::size_t>(firstBlock, search.begin / BigramRows::BLOCK_SONGS);
        endBlock = std::max<std::size_t>(endBlock, (search.end + BigramRows::BLOCK_SONGS - 1) /
                                                       BigramRows::BLOCK_SONGS);
    }
    for (std::size_t block = firstBlock; block < endBlock; ++block) {
        for (const ContainingSearch &search : containing)
            findContaining(block, search);
    }
}

void FullTexts::findSimilar(std::span<const SongSearch> searches) const
{
    std::vector<std::string> texts;
    for (const SongSearch &search : searches)
        texts.push_back(m_songs.fullTextOf(*search.song));
    std::vector<TextGroup::Search> inGroup;
    for (const TextGroup &group : m_texts.groups()) {
        inGroup.clear();
        for (std::size_t i = 0; i < searches.size(); ++i) {
            if (const auto search = group.searchFor(searches[i], texts[i], searches[i].song->fullPairs))
                inGroup.push_back(*search);
        }
        group.findNear(inGroup);
    }
}

void FullTexts::findContaining(std::size_t block, const ContainingSearch &search) const
{
    const std::size_t begin = block * BigramRows::BLOCK_SONGS;
    const SongSearch &asked = *search.search;
    const BigramRows::Block &left = m_left[block];
    if (begin >= asked.end || begin + BigramRows::BLOCK_SONGS <= asked.begin || left == BigramRows::Block{})
        return;
    BigramRows::Block found{};
    m_titles.addContaining(found, left, search.title, block);
    m_names.addContaining(found, left, search.name, block);
    for (std::size_t i = 0; i < found.size(); ++i) {
        for (std::uint64_t word = found[i]; word != 0; word &= word - 1) {
            const std::size_t song =
                begin + i * BITS_A_WORD + static_cast<std::size_t>(std::countr_zero(word));
            if (song >= asked.begin && song < asked.end)
                asked.found->push_back(static_cast<BucketPosition>(song));
        }
    }
}

} // namespace sonavo
