#pragma once

#include "analysis/number_table.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace sonavo {

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
