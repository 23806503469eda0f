#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace sonavo {

/// Puts pairs of characters into 2^BITS groups. Multiplicative hashing (D. E. Knuth, "The Art of Computer
/// Programming", volume 3, section 6.4).
template <int BITS = 6>
[[nodiscard]] constexpr std::uint32_t groupOfPair(char32_t first, char32_t second)
{
    return (first << 16 ^ second) * 2654435769U >> (32 - BITS);
}

/// One bit for each group of which a text has pairs of neighbouring characters. An edit changes at most four
/// bits.
[[nodiscard]] constexpr std::uint64_t pairBitsOf(std::u32string_view text)
{
    std::uint64_t bits = 0;
    for (std::size_t i = 1; i < text.size(); ++i)
        bits |= std::uint64_t{1} << groupOfPair(text[i - 1], text[i]);
    return bits;
}

/// How often something is in a text, by group. A plain value.
template <std::size_t GROUPS>
class GroupCounts
{
public:
    /// The sum of the differences of all counts.
    friend std::size_t difference(const GroupCounts &a, const GroupCounts &b)
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
        if (m_counts[group] < UINT8_MAX)
            ++m_counts[group];
    }

private:
    std::array<std::uint8_t, GROUPS> m_counts{};
};

/// Characters. An insertion or deletion changes the difference by at most one, a substitution by at most two.
class CharacterCounts : public GroupCounts<32>
{
public:
    static constexpr std::size_t MOST_PER_EDIT = 2;

    CharacterCounts() = default;
    explicit CharacterCounts(std::u32string_view text)
    {
        for (const char32_t character : text)
            add(character % 32);
    }
};

/// Pairs of neighbouring characters. An insertion or deletion changes the difference by at most three, a
/// substitution by at most four.
template <int BITS>
class BasicPairCounts : public GroupCounts<std::size_t{1} << BITS>
{
public:
    static constexpr std::size_t MOST_PER_EDIT = 4;

    BasicPairCounts() = default;
    explicit BasicPairCounts(std::u32string_view text)
    {
        for (std::size_t i = 1; i < text.size(); ++i)
            this->add(groupOfPair<BITS>(text[i - 1], text[i]));
    }
};
using PairCounts = BasicPairCounts<6>;
/// For long texts, which have some of nearly all groups of the others.
using FinePairCounts = BasicPairCounts<8>;

/// A quick test before levenshteinDistance(): false only for texts whose distance is above `limit`.
/// @tparam Counts CharacterCounts or PairCounts
template <typename Counts>
[[nodiscard]] bool mayBeWithin(std::size_t limit, std::size_t lengthA, std::size_t lengthB,
                               const Counts &countsA, const Counts &countsB)
{
    // At least so many of the edits are insertions or deletions, which change the counts by one less.
    const std::size_t surplus = lengthA > lengthB ? lengthA - lengthB : lengthB - lengthA;
    return surplus <= limit && difference(countsA, countsB) <= Counts::MOST_PER_EDIT * limit - surplus;
}

} // namespace sonavo
