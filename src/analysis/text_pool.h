#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace sonavo {

/// Gives equal items the same number: 0, 1, 2 and so on, in the order in which they first come. Items are
/// kept by the caller; the table knows their hashes only (open addressing with linear probing).
class NumberTable
{
public:
    /// @param hash of the item; its low bits are used
    /// @param isItem tells whether the item that was given a number before is the same as this one
    /// @return the item's number, equal to size() before the call when the item is new
    template <typename IsItem>
    std::uint32_t numberOf(std::size_t hash, IsItem isItem)
    {
        if ((m_size + 1) * 2 > m_slots.size())
            grow();
        const auto tag = static_cast<std::uint32_t>(hash);
        std::size_t slot = tag & (m_slots.size() - 1);
        while (m_slots[slot].number != NONE) {
            if (m_slots[slot].tag == tag && isItem(m_slots[slot].number))
                return m_slots[slot].number;
            slot = (slot + 1) & (m_slots.size() - 1);
        }
        m_slots[slot] = {tag, static_cast<std::uint32_t>(m_size)};
        return static_cast<std::uint32_t>(m_size++);
    }

    [[nodiscard]] std::size_t size() const { return m_size; }

    /// Makes room for that many items before there are any.
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
        std::uint32_t number = NONE;
    };

    void grow()
    {
        constexpr std::size_t FIRST_SIZE = 64;
        std::vector<Slot> larger(m_slots.empty() ? FIRST_SIZE : m_slots.size() * 2);
        for (const Slot &old : m_slots) {
            if (old.number == NONE)
                continue;
            std::size_t slot = old.tag & (larger.size() - 1);
            while (larger[slot].number != NONE)
                slot = (slot + 1) & (larger.size() - 1);
            larger[slot] = old;
        }
        m_slots.swap(larger);
    }

    std::vector<Slot> m_slots;
    std::size_t m_size = 0;
};

/// Texts, each kept once under a number.
class TextPool
{
public:
    /// The number of a text, which is kept when it is new.
    std::uint32_t add(std::string_view text)
    {
        const std::size_t known = m_numbers.size();
        const std::uint32_t number = m_numbers.numberOf(
            std::hash<std::string_view>{}(text), [&](std::uint32_t other) { return (*this)[other] == text; });
        if (number == known) {
            m_characters.append(text);
            m_ends.push_back(m_characters.size());
        }
        return number;
    }

    /// Makes room for that many texts before there are any.
    void reserve(std::size_t count)
    {
        m_numbers.reserve(count);
        m_ends.reserve(count);
    }

    /// Valid until the next add().
    [[nodiscard]] std::string_view operator[](std::uint32_t number) const
    {
        const std::size_t start = number == 0 ? 0 : m_ends[number - 1];
        return std::string_view(m_characters).substr(start, m_ends[number] - start);
    }

    [[nodiscard]] std::size_t size() const { return m_ends.size(); }

private:
    NumberTable m_numbers;
    std::string m_characters;
    std::vector<std::size_t> m_ends;
};

} // namespace sonavo
