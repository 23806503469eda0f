#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
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

    /// Adds the next block of songs.
    /// @param end songs from the end of the last block to before this one, at most MOST_SONGS_IN_BLOCK
    /// @param forEachKey calls its second argument with the hash of each key of the song at a position
    template <typename ForEachKey>
    void addBlock(Position end, ForEachKey forEachKey)
    {
        m_keys.clear();
        for (Position song = m_end; song < end; ++song) {
            forEachKey(song, [&](Hash hash) {
                m_keys.push_back({spread(hash), static_cast<std::uint16_t>(song - m_end)});
                ++m_counts[spread(hash) >> (64 - COUNT_BITS)];
            });
        }
        const auto listBits = static_cast<int>(std::bit_width(m_keys.size() / KEYS_PER_LIST));
        const Block block{m_end, m_starts.size(), 64 - std::max(listBits, 1)};
        m_end = end;
        m_blocks.push_back(block);

        // Count, lay out, fill: one array holds all lists.
        m_starts.resize(m_starts.size() + (std::size_t{1} << (64 - block.shift)) + 1);
        for (const Key &key : m_keys)
            ++m_starts[listOf(block, key.spread)];
        auto start = static_cast<std::uint32_t>(m_entries.size());
        for (std::size_t list = block.firstList; list < m_starts.size(); ++list) {
            start += m_starts[list];
            m_starts[list] = start;
        }
        m_entries.resize(start);
        for (std::size_t i = m_keys.size(); i-- > 0;)
            m_entries[--m_starts[listOf(block, m_keys[i].spread)]] = {m_keys[i].song,
                                                                      tagOf(m_keys[i].spread)};
    }

    /// About how many songs have a key; it can be more of them, never fewer.
    [[nodiscard]] std::size_t countOf(Hash hash) const { return m_counts[spread(hash) >> (64 - COUNT_BITS)]; }

    /// Hints to the processor that the songs of a key will be asked for: call the first for all keys, then
    /// the second for all. Reading the index is mostly waiting for memory, and this waits for all keys at
    /// once.
    void prefetchList(Hash hash, Position first, Position last) const
    {
        forEachList(hash, first, last, [this](const Block &, std::size_t list) {
            __builtin_prefetch(&m_starts[list]);
            return true;
        });
    }
    void prefetchSongs(Hash hash, Position first, Position last) const
    {
        forEachList(hash, first, last, [this](const Block &, std::size_t list) {
            __builtin_prefetch(m_entries.data() + m_starts[list]);
            return true;
        });
    }

    /// Calls `visit` with the songs of a key from position `first` to before `last`, ascending, until it
    /// returns false. A song can come twice.
    template <typename Visit>
    void forEachSongWith(Hash hash, Position first, Position last, Visit visit) const
    {
        forEachList(hash, first, last, [&](const Block &block, std::size_t list) {
            for (std::uint32_t i = m_starts[list]; i < m_starts[list + 1]; ++i) {
                const Position song = block.begin + m_entries[i].song;
                if (m_entries[i].tag == tagOf(spread(hash)) && song >= first && song < last && !visit(song))
                    return false;
            }
            return true;
        });
    }

private:
    static constexpr int COUNT_BITS = 16;
    static constexpr std::size_t KEYS_PER_LIST = 4;

    struct Block
    {
        Position begin = 0;
        /// The block's part of m_starts.
        std::size_t firstList = 0;
        int shift = 0;
    };
    struct Key
    {
        Hash spread = 0;
        std::uint16_t song = 0;
    };
    struct Entry
    {
        /// Position in the block.
        std::uint16_t song = 0;
        /// Tells keys of one list apart.
        std::uint16_t tag = 0;
    };

    /// Fibonacci hashing (D. E. Knuth, "The Art of Computer Programming", volume 3, section 6.4): the high
    /// bits are good.
    [[nodiscard]] static constexpr Hash spread(Hash hash) { return hash * 11400714819323198485ULL; }
    [[nodiscard]] static std::size_t listOf(const Block &block, Hash spread)
    {
        return block.firstList + static_cast<std::size_t>(spread >> block.shift);
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
    /// Where each list begins in m_entries, and for each block where its last one ends.
    std::vector<std::uint32_t> m_starts;
    std::vector<Entry> m_entries;
    std::array<std::uint32_t, std::size_t{1} << COUNT_BITS> m_counts{};
    /// Kept for its memory.
    std::vector<Key> m_keys;
};

} // namespace sonavo
