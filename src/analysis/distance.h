#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace sonavo {

// All texts here are normalised. In those of bytes (see normalizeString()) a byte is a character, and bytes
// that are no letter, digit or blank are a programming error; the others (see normalizeAllScripts()) hold
// code points. Everything is pure; any thread may call it.

/// The characters of normalised texts of bytes: letters, digits and the blank.
inline constexpr std::size_t ALPHABET = 37;

/// The number of such a character, below ALPHABET; the blank's is the last.
[[nodiscard]] constexpr std::size_t symbolOf(char character)
{
    if (character >= 'a')
        return static_cast<std::size_t>(character - 'a');
    return character == ' ' ? ALPHABET - 1 : static_cast<std::size_t>(character - '0') + 26;
}

/// Edit distance after Levenshtein (1966): insertions, deletions and substitutions cost 1 each.
///
/// Computes 64 cells of a column of the distance table at once: G. Myers, "A fast bit-vector algorithm for
/// approximate string matching based on dynamic programming" (1999), in the form for edit distance and for
/// texts above 64 characters of H. Hyyrö, "A bit-vector algorithm for computing Levenshtein and Damerau edit
/// distances" (2003).
/// @param limit the search is given up where the distance turns out to be larger
/// @return the distance if it is at most `limit`, otherwise some number above `limit`
[[nodiscard]] std::size_t levenshteinDistance(std::string_view a, std::string_view b,
                                              std::size_t limit = SIZE_MAX);
[[nodiscard]] std::size_t levenshteinDistance(std::u32string_view a, std::u32string_view b,
                                              std::size_t limit = SIZE_MAX);

/// 1 - distance / length of the longer text, for two texts of which at least one is not empty.
/// @param least the similarity that matters to the caller, between 0.0 and 1.0
/// @return the similarity if it is at least `least`, otherwise some number below `least`
[[nodiscard]] double calculateSimilarity(std::string_view a, std::string_view b, double least = 0.0);
[[nodiscard]] double calculateSimilarity(std::u32string_view a, std::u32string_view b, double least = 0.0);

/// Texts at a larger distance than this are not similar.
/// @param length characters of the longer text
/// @param least the similarity that is asked for
[[nodiscard]] constexpr std::size_t largestDistance(std::size_t length, double least)
{
    // The surplus outweighs the rounding here and in calculateSimilarity(), which decides at the threshold.
    constexpr double SURPLUS = 1e-6;
    return static_cast<std::size_t>((1.0 - least) * static_cast<double>(length) + SURPLUS);
}

/// One bit for each letter and digit that a text contains, and another for each letter, 0 and 1 that it
/// contains at least twice; other characters share these bits. An edit changes at most two bits, so texts at
/// distance d differ in at most 2 d.
[[nodiscard]] std::uint64_t characterBag(std::string_view text);
[[nodiscard]] std::uint64_t characterBag(std::u32string_view text);

/// One bit for each pair of neighbouring characters that a text contains; different pairs can share a bit. An
/// edit takes at most two pairs from a text and adds at most two, so the pairs of texts at distance d differ
/// in at most 4 d bits. Tells more texts apart than characterBag() where there are few characters, as in
/// numbers.
[[nodiscard]] std::uint64_t characterPairs(std::string_view text);

/// In how many bits two bags differ.
[[nodiscard]] constexpr std::size_t bagDifference(std::uint64_t a, std::uint64_t b)
{
    // Parallel count ("Hacker's Delight", H. S. Warren, 2002): not every machine that the program is built
    // for has an instruction for it, and a library call costs more.
    std::uint64_t bits = a ^ b;
    bits -= bits >> 1 & 0x5555555555555555;
    bits = (bits & 0x3333333333333333) + (bits >> 2 & 0x3333333333333333);
    bits = (bits + (bits >> 4)) & 0x0F0F0F0F0F0F0F0F;
    return static_cast<std::size_t>(bits * 0x0101010101010101 >> 56);
}

/// A quick test before levenshteinDistance(): false only for texts whose distance is above `limit`.
[[nodiscard]] constexpr bool mayBeWithin(std::size_t limit, std::size_t lengthA, std::size_t lengthB,
                                         std::uint64_t bagA, std::uint64_t bagB)
{
    const std::size_t difference = lengthA > lengthB ? lengthA - lengthB : lengthB - lengthA;
    return difference <= limit && bagDifference(bagA, bagB) <= 2 * limit;
}

/// The same by characterPairs().
[[nodiscard]] constexpr bool mayBeWithin(std::size_t limit, std::uint64_t pairsA, std::uint64_t pairsB)
{
    return bagDifference(pairsA, pairsB) <= 4 * limit;
}

/// Appends the places in `all` whose pairs may be those of a text within `limit` of one with these pairs.
/// @param first the number of the first place
void appendNear(std::vector<std::uint32_t> &places, std::uint32_t first, std::span<const std::uint64_t> all,
                std::uint64_t pairs, std::size_t limit);

} // namespace sonavo
