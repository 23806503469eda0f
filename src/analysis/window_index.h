#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <vector>

namespace sonavo {

/// For each key, the songs that have it. Songs are asked for in a window of positions, so the index is cut
/// into blocks of neighbours: a window needs few of them, which stay in the processor's caches while the
/// window moves on.
///
/// Keys are hashes, of which some bits are compared: what is found can hold songs without the key, and it
/// holds every song that has it.
class WindowIndex
{
public:
    using Position = std::uint32_t;
    using Hash = std::uint64_t;

    static constexpr std::size_t MOST_SONGS_IN_BLOCK = 1 << 15;

    /// @param blockEnds where each block ends: at most MOST_SONGS_IN_BLOCK positions behind the last one
    explicit WindowIndex(const std::vector<Position> &blockEnds)
    {
        for (const Position end : blockEnds) {
            m_blocks.push_back({m_end, 0, {}, {}});
            m_end = end;
        }
    }

    [[nodiscard]] std::size_t blockCount() const { return m_blocks.size(); }

    /// Fills one block, once. Threads may fill different blocks at the same time.
    /// @param forEachKey calls its second argument with the hash of each key of the song at a position
    template <typename ForEachKey>
    void fill(std::size_t number, ForEachKey forEachKey)
    {
        Block &block = m_blocks[number];
        const Position end = number + 1 < m_blocks.size() ? m_blocks[number + 1].begin : m_end;
        // The upper bits are of the key, the lowest are the song's position in the block.
        std::vector<std::uint64_t> keys;
        for (Position song = block.begin; song < end; ++song)
            forEachKey(
                song, [&](Hash hash) { keys.push_back((spread(hash) & ~SONG_MASK) | (song - block.begin)); });
        const auto listBits = static_cast<int>(std::bit_width(keys.size() / KEYS_PER_LIST));
        block.shift = 64 - std::max(listBits, 1);

        // Count, lay out, fill: one array holds all lists.
        block.starts.resize((std::size_t{1} << (64 - block.shift)) + 1);
        for (const std::uint64_t key : keys)
            ++block.starts[listOf(block, key)];
        std::partial_sum(block.starts.begin(), block.starts.end(), block.starts.begin());
        block.entries.resize(keys.size());
        for (std::size_t i = keys.size(); i-- > 0;)
            block.entries[--block.starts[listOf(block, keys[i])]] = {
                static_cast<std::uint16_t>(keys[i] & SONG_MASK), tagOf(keys[i])};
    }

    /// Counts a key for countOf().
    void count(Hash hash) { ++m_counts[spread(hash) >> (64 - COUNT_BITS)]; }

    /// About how often a key was counted.
    [[nodiscard]] std::size_t countOf(Hash hash) const { return m_counts[spread(hash) >> (64 - COUNT_BITS)]; }

    /// Hints to the processor that the songs of a key will be asked for: call the first for all keys, then
    /// the second for all. Reading the index is mostly waiting for memory, and this waits for all keys at
    /// once.
    void prefetchList(Hash hash, Position first, Position last) const
    {
        forEachList(hash, first, last, [](const Block &block, std::size_t list) {
            __builtin_prefetch(&block.starts[list]);
            return true;
        });
    }
    void prefetchSongs(Hash hash, Position first, Position last) const
    {
        forEachList(hash, first, last, [](const Block &block, std::size_t list) {
            __builtin_prefetch(block.entries.data() + block.starts[list]);
            return true;
        });
    }

    /// No fewer songs than forEachSongWith() visits.
    [[nodiscard]] std::size_t mostSongsWith(Hash hash, Position first, Position last) const
    {
        std::size_t most = 0;
        forEachList(hash, first, last, [&](const Block &block, std::size_t list) {
            most += block.starts[list + 1] - block.starts[list];
            return true;
        });
        return most;
    }

    /// Calls `visit` with the songs of a key from position `first` to before `last`, ascending, until it
    /// returns false. A song can come twice.
    template <typename Visit>
    void forEachSongWith(Hash hash, Position first, Position last, Visit visit) const
    {
        forEachList(hash, first, last, [&](const Block &block, std::size_t list) {
            const std::uint16_t tag = tagOf(spread(hash));
            for (std::uint32_t i = block.starts[list]; i < block.starts[list + 1]; ++i) {
                const Entry entry = block.entries[i];
                const Position song = block.begin + entry.song;
                if (entry.tag == tag && song >= first && song < last && !visit(song))
                    return false;
            }
            return true;
        });
    }

private:
    static constexpr int COUNT_BITS = 16;
    static constexpr std::size_t KEYS_PER_LIST = 4;
    static constexpr std::uint64_t SONG_MASK = 2 * MOST_SONGS_IN_BLOCK - 1;

    struct Entry
    {
        /// Position in the block.
        std::uint16_t song = 0;
        /// Tells keys of one list apart.
        std::uint16_t tag = 0;
    };
    struct Block
    {
        Position begin = 0;
        int shift = 0;
        /// Where each list begins in `entries`, and where the last one ends.
        std::vector<std::uint32_t> starts;
        std::vector<Entry> entries;
    };

    /// Fibonacci hashing (D. E. Knuth, "The Art of Computer Programming", volume 3, section 6.4): the high
    /// bits are good.
    [[nodiscard]] static constexpr Hash spread(Hash hash) { return hash * 11400714819323198485ULL; }
    [[nodiscard]] static std::size_t listOf(const Block &block, Hash spread)
    {
        return static_cast<std::size_t>(spread >> block.shift);
    }
    [[nodiscard]] static std::uint16_t tagOf(Hash spread) { return static_cast<std::uint16_t>(spread >> 24); }

    /// Calls `visit` with each block of the window and the list of a key in it, until it returns false.
    template <typename Visit>
    void forEachList(Hash hash, Position first, Position last, Visit visit) const
    {
        auto block = std::upper_bound(m_blocks.begin(), m_blocks.end(), first,
                                      [](Position position, const Block &b) { return position < b.begin; });
        for (--block; block != m_blocks.end() && block->begin < last; ++block) {
            if (!visit(*block, listOf(*block, spread(hash))))
                return;
        }
    }

    std::vector<Block> m_blocks;
    Position m_end = 0;
    std::array<std::uint32_t, std::size_t{1} << COUNT_BITS> m_counts{};
};

} // namespace sonavo
