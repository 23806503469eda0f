#pragma once

#include "analysis/text_kernels.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace sonavo {

/// The songs of a bucket by the bigrams of a text, such as the title: finds those whose text contains another
/// or is contained in it, hundreds at a time. See bigramsOf().
///
/// For each bigram there is a row of bits, one for each song. Rows are taken in an order in which few are
/// needed until no song is left: the rarest bigrams of the text first, and the most frequent ones that it
/// lacks.
class BigramRows
{
public:
    /// Songs are looked at in blocks of so many; a set of them has a bit for each.
    static constexpr std::size_t BLOCK_SONGS = PART_TEXTS;
    using Block = std::array<std::uint64_t, PART_WORDS>;

    /// Replaces what the index holds.
    /// @param bigramsOfSongs by position in the bucket
    void build(std::span<const std::uint64_t> bigramsOfSongs);

    /// The order in which the rows of a text are looked at.
    [[nodiscard]] BigramOrder orderFor(std::uint64_t bigrams) const;

    /// Adds songs whose texts contain another or are contained in it to those that are found. Others may be
    /// among them. Any thread may ask.
    /// @param songs of the block that are asked for
    /// @param order that of the other text
    void addContaining(Block &found, const Block &songs, const BigramOrder &order, std::size_t block) const;

private:
    /// By block and bigram: the songs that have it.
    std::vector<Block> m_rows;
    /// All, those first that the fewest songs have.
    std::array<std::uint8_t, BigramOrder::BIGRAMS> m_rarestFirst{};
};

} // namespace sonavo
