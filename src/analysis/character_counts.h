#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace sonavo {

/// How often things are in a text, in groups of several things each. A plain value.
template <std::size_t GROUPS>
class GroupedCounts
{
public:
    /// The sum of the differences of all counts.
    friend std::size_t difference(const GroupedCounts &a, const GroupedCounts &b)
    {
        // Compilers make a few instructions of this loop.
        int sum = 0;
        for (std::size_t i = 0; i < GROUPS; ++i)
            sum += std::abs(int{a.m_counts[i]} - int{b.m_counts[i]});
        return static_cast<std::size_t>(sum);
    }

protected:
    void add(std::size_t group)
    {
        std::uint8_t &count = m_counts[group % GROUPS];
        if (count < UINT8_MAX)
            ++count;
    }

private:
    std::array<std::uint8_t, GROUPS> m_counts{};
};

/// How often characters are in a text. An insertion or deletion changes the difference by at most one, a
/// substitution by at most two.
class CharacterCounts : public GroupedCounts<32>
{
public:
    CharacterCounts() = default;
    explicit CharacterCounts(std::u32string_view text)
    {
        for (const char32_t character : text)
            add(character);
    }
};

/// How often pairs of neighbouring characters are in a text. An insertion or deletion changes the difference
/// by at most three, a substitution by at most four. Tells more texts apart than CharacterCounts.
class PairCounts : public GroupedCounts<64>
{
public:
    PairCounts() = default;
    explicit PairCounts(std::u32string_view text)
    {
        // Multiplicative hashing (D. E. Knuth, "The Art of Computer Programming", volume 3, section 6.4).
        constexpr std::uint32_t MULTIPLIER = 2654435769U;
        constexpr int SIX_BITS = 32 - 6;
        for (std::size_t i = 1; i < text.size(); ++i)
            add((text[i - 1] << 16 ^ text[i]) * MULTIPLIER >> SIX_BITS);
    }
};

/// A quick test before levenshteinDistance(): false only for texts whose distance is above `limit`.
[[nodiscard]] inline bool mayBeWithin(std::size_t limit, std::size_t lengthA, std::size_t lengthB,
                                      const CharacterCounts &countsA, const CharacterCounts &countsB)
{
    // At least so many of the edits are insertions or deletions.
    const std::size_t surplus = lengthA > lengthB ? lengthA - lengthB : lengthB - lengthA;
    return surplus <= limit && difference(countsA, countsB) <= 2 * limit - surplus;
}

/// The same by pairs of characters.
[[nodiscard]] inline bool mayBeWithin(std::size_t limit, std::size_t lengthA, std::size_t lengthB,
                                      const PairCounts &countsA, const PairCounts &countsB)
{
    const std::size_t surplus = lengthA > lengthB ? lengthA - lengthB : lengthB - lengthA;
    return surplus <= limit && difference(countsA, countsB) <= 4 * limit - surplus;
}

} // namespace sonavo
