#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace sonavo {

/// The edit distance of two normalised texts (see levenshteinDistance()) where it is at most `limit`,
/// otherwise some larger number.
///
/// Computes 64 cells of a column of the distance table at once: G. Myers, "A fast bit-vector algorithm for
/// approximate string matching based on dynamic programming" (1999), in the form for edit distance and for
/// texts above 64 characters of H. Hyyrö, "A bit-vector algorithm for computing Levenshtein and Damerau edit
/// distances" (2003).
/// @param a, b normalised: other characters are a programming error
[[nodiscard]] std::size_t boundedDistance(std::string_view a, std::string_view b, std::size_t limit);

/// Which characters a normalised text holds and which of them at least twice, one bit each; blanks do not
/// count. An edit changes at most two bits, so two texts at distance d differ in at most 2 d of them.
[[nodiscard]] std::uint64_t characterBag(std::string_view normalized);

/// In how many bits two bags differ.
[[nodiscard]] constexpr std::size_t bagDifference(std::uint64_t a, std::uint64_t b)
{
    // Counts in parallel ("Hacker's Delight", H. S. Warren, 2002): the processor's own instruction is not
    // there on every machine that the program is built for, and a call to the library costs more.
    std::uint64_t bits = a ^ b;
    bits -= bits >> 1 & 0x5555555555555555;
    bits = (bits & 0x3333333333333333) + (bits >> 2 & 0x3333333333333333);
    bits = (bits + (bits >> 4)) & 0x0F0F0F0F0F0F0F0F;
    return static_cast<std::size_t>(bits * 0x0101010101010101 >> 56);
}

/// Whether the distance of two normalised texts may be within a limit, judged by their lengths and bags
/// alone.
[[nodiscard]] constexpr bool mayBeWithin(std::size_t limit, std::size_t lengthA, std::size_t lengthB,
                                         std::uint64_t bagA, std::uint64_t bagB)
{
    const std::size_t difference = lengthA > lengthB ? lengthA - lengthB : lengthB - lengthA;
    return difference <= limit && bagDifference(bagA, bagB) <= 2 * limit;
}

/// The largest distance at which texts, the longer of which has `length` characters, still have a similarity
/// (see calculateSimilarity()) of at least `threshold`.
/// @param length at least 1
/// @param threshold between 0.0 and 1.0
[[nodiscard]] std::size_t largestDistance(std::size_t length, double threshold);

} // namespace sonavo
