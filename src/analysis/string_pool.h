#pragma once

#include "analysis/id_table.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace sonavo {

/// Interned strings: each is kept once, under an id.
template <typename Character>
class BasicStringPool
{
public:
    using View = std::basic_string_view<Character>;

    [[nodiscard]] static std::size_t hashOf(View string) { return std::hash<View>{}(string); }

    /// The id of a string, which is kept if it is new. Ids count up from 0.
    std::uint32_t add(View string) { return add(string, hashOf(string)); }
    /// The same for those who have its hashOf().
    std::uint32_t add(View string, std::size_t hash)
    {
        const std::size_t known = m_ids.size();
        const std::uint32_t id =
            m_ids.idOf(hash, [&](std::uint32_t other) { return (*this)[other] == string; });
        if (id == known) {
            m_characters.append(string);
            m_ends.push_back(m_characters.size());
        }
        return id;
    }

    /// Hints to the processor that a string of this hash will be added soon.
    void prefetch(std::size_t hash) const { m_ids.prefetch(hash); }

    /// Allocates for that many strings; does nothing once there are any.
    void reserve(std::size_t count)
    {
        m_ids.reserve(count);
        m_ends.reserve(count);
    }

    /// Valid until the next add().
    [[nodiscard]] View operator[](std::uint32_t id) const
    {
        const std::size_t start = id == 0 ? 0 : m_ends[id - 1];
        return View(m_characters).substr(start, m_ends[id] - start);
    }

    [[nodiscard]] std::size_t size() const { return m_ends.size(); }

    /// Releases what only add() needs, which may not be called any more.
    void finish() { m_ids = {}; }

private:
    IdTable m_ids;
    std::basic_string<Character> m_characters;
    std::vector<std::size_t> m_ends;
};

using StringPool = BasicStringPool<char>;

} // namespace sonavo
