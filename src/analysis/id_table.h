#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace sonavo {

/// Gives equal items the same id: 0, 1, 2 and so on, in the order in which they first appear. The caller
/// keeps the items; the table stores only their hashes (open addressing with linear probing).
class IdTable
{
public:
    /// @param hash of the item; its low bits are used
    /// @param isItem tells whether the item that was given an id before equals this one
    /// @return the item's id, equal to size() before the call when the item is new
    template <typename IsItem>
    std::uint32_t idOf(std::size_t hash, IsItem isItem)
    {
        if ((m_size + 1) * 2 > m_slots.size())
            grow();
        const auto tag = static_cast<std::uint32_t>(hash);
        std::size_t slot = tag & (m_slots.size() - 1);
        while (m_slots[slot].id != NONE) {
            if (m_slots[slot].tag == tag && isItem(m_slots[slot].id))
                return m_slots[slot].id;
            slot = (slot + 1) & (m_slots.size() - 1);
        }
        m_slots[slot] = {tag, static_cast<std::uint32_t>(m_size)};
        return static_cast<std::uint32_t>(m_size++);
    }

    /// Hints to the processor that an item of this hash will be asked for soon: large tables are in no cache,
    /// and so the wait for memory passes meanwhile.
    void prefetch(std::size_t hash) const
    {
        if (!m_slots.empty())
            __builtin_prefetch(&m_slots[static_cast<std::uint32_t>(hash) & (m_slots.size() - 1)]);
    }

    [[nodiscard]] std::size_t size() const { return m_size; }

    /// Allocates memory for that many items; does nothing unless the table is empty.
    void reserve(std::size_t count)
    {
        if (m_size == 0)
            m_slots.assign(std::bit_ceil(std::max<std::size_t>(count, 1) * 2), {});
    }

private:
    static constexpr std::uint32_t NONE = UINT32_MAX;
    struct Slot
    {
        std::uint32_t tag = 0;
        std::uint32_t id = NONE;
    };

    void grow()
    {
        constexpr std::size_t FIRST_SIZE = 64;
        std::vector<Slot> larger(m_slots.empty() ? FIRST_SIZE : m_slots.size() * 2);
        for (const Slot &old : m_slots) {
            if (old.id == NONE)
                continue;
            std::size_t slot = old.tag & (larger.size() - 1);
            while (larger[slot].id != NONE)
                slot = (slot + 1) & (larger.size() - 1);
            larger[slot] = old;
        }
        m_slots.swap(larger);
    }

    std::vector<Slot> m_slots;
    std::size_t m_size = 0;
};

/// Replaces the hash of each item of a list by an id: equal for equal items, 0, 1, 2 and so on in the order
/// in which they first appear.
/// @param hashes fewer than 2^32
/// @param isSame compares two items of equal hashes, by their places in the list
/// @return how many ids there are
template <typename IsSame>
std::size_t replaceByIds(std::span<std::uint32_t> hashes, IsSame isSame)
{
    // How many items before it is asked for, an entry of the table is fetched from memory.
    constexpr std::size_t ITEMS_AHEAD = 8;
    IdTable ids;
    ids.reserve(hashes.size());
    std::vector<std::uint32_t> firsts;
    firsts.reserve(hashes.size());
    for (std::uint32_t i = 0; i < hashes.size(); ++i) {
        if (i + ITEMS_AHEAD < hashes.size())
            ids.prefetch(hashes[i + ITEMS_AHEAD]);
        hashes[i] = ids.idOf(hashes[i], [&](std::uint32_t id) { return isSame(firsts[id], i); });
        if (hashes[i] == firsts.size())
            firsts.push_back(i);
    }
    return firsts.size();
}

} // namespace sonavo
