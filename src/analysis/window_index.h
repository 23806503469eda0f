#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace sonavo {

/// For each key, the songs that have it, sorted, so that those in a window of positions are found at once.
/// Keys are hashes, and different keys can share a list: what is found can hold songs without the key, and it
/// holds every song that has it.
class WindowIndex
{
public:
    using Position = std::uint32_t;

    /// @param songs how many there are
    /// @param lists about how many different keys there are
    /// @param forEachKey calls its second argument with the hash of each key of the song at a position; is
    ///     asked twice for each song
    template <typename ForEachKey>
    void build(std::size_t songs, std::size_t lists, ForEachKey forEachKey)
    {
        const std::size_t listCount = std::bit_ceil(std::max<std::size_t>(lists, 2));
        m_shift = 64 - std::countr_zero(listCount);
        m_starts.assign(listCount + 1, 0);

        // Count, lay out, fill: one array holds all lists.
        for (Position song = 0; song < songs; ++song)
            forEachKey(song, [this](std::uint64_t hash) { ++m_starts[listOf(hash)]; });
        std::size_t end = 0;
        for (std::size_t &start : m_starts) {
            end += start;
            start = end;
        }
        m_entries.resize(end);
        for (auto song = static_cast<Position>(songs); song-- > 0;)
            forEachKey(song, [&](std::uint64_t hash) { m_entries[--m_starts[listOf(hash)]] = song; });
    }

    /// How many entries the list of a key has.
    [[nodiscard]] std::size_t countOf(std::uint64_t hash) const
    {
        const std::size_t list = listOf(hash);
        return m_starts[list + 1] - m_starts[list];
    }

    /// The songs of a key from position `first` to before `last`, ascending. A song can be there twice.
    [[nodiscard]] std::span<const Position> songsWith(std::uint64_t hash, Position first, Position last) const
    {
        const std::size_t list = listOf(hash);
        const std::span all = std::span(m_entries).subspan(m_starts[list], countOf(hash));
        const auto begin = std::lower_bound(all.begin(), all.end(), first);
        return {begin, std::lower_bound(begin, all.end(), last)};
    }

private:
    [[nodiscard]] std::size_t listOf(std::uint64_t hash) const
    {
        // Fibonacci hashing (D. E. Knuth, "The Art of Computer Programming", volume 3, section 6.4).
        constexpr std::uint64_t MULTIPLIER = 11400714819323198485ULL;
        return static_cast<std::size_t>(hash * MULTIPLIER >> m_shift);
    }

    int m_shift = 0;
    std::vector<std::size_t> m_starts;
    std::vector<Position> m_entries;
};

} // namespace sonavo
