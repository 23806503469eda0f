#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace sonavo {

/// How often characters stand in a text, in groups of several characters each. A plain value.
class CharacterCounts
{
public:
    CharacterCounts() = default;
    explicit CharacterCounts(std::u32string_view text)
    {
        for (const char32_t character : text) {
            std::uint8_t &count = m_counts[character % m_counts.size()];
            if (count < UINT8_MAX)
                ++count;
        }
    }

    /// The sum of the differences of all counts. An insertion or deletion changes it by at most one, a
    /// substitution by at most two.
    friend std::size_t difference(const CharacterCounts &a, const CharacterCounts &b)
    {
        // Compilers make one instruction of this loop.
        int sum = 0;
        for (std::size_t i = 0; i < a.m_counts.size(); ++i)
            sum += std::abs(int{a.m_counts[i]} - int{b.m_counts[i]});
        return static_cast<std::size_t>(sum);
    }

private:
    std::array<std::uint8_t, 16> m_counts{};
};

/// A quick test before levenshteinDistance(): false only for texts whose distance is above `limit`.
[[nodiscard]] inline bool mayBeWithin(std::size_t limit, std::size_t lengthA, std::size_t lengthB,
                                      const CharacterCounts &countsA, const CharacterCounts &countsB)
{
    // At least so many of the edits are insertions or deletions.
    const std::size_t surplus = lengthA > lengthB ? lengthA - lengthB : lengthB - lengthA;
    return surplus <= limit && difference(countsA, countsB) <= 2 * limit - surplus;
}

} // namespace sonavo
