#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace sonavo {

// Of k + 1 grams (substrings of one length) of a text that do not overlap, k edits leave at least one as it
// is: the pigeonhole principle, after S. Wu and U. Manber, "Fast text searching allowing errors" (1992). So
// texts within k edits of a text are among those that have one of them.

/// The edit distance within which every similar text lies.
/// @param length characters of the text
/// @param least the similarity that is asked for; see calculateSimilarity()
[[nodiscard]] std::size_t largestDistanceToSimilar(std::size_t length, double least);

/// Chooses grams of a text that do not overlap and whose counts have the least sum.
class DisjointGrams
{
public:
    /// @param counts of the gram at each place
    /// @param gramLength characters
    /// @param needed how many to choose; the text has room for them
    /// @return the sum
    std::size_t choose(std::span<const std::size_t> counts, std::size_t gramLength, std::size_t needed);

    /// The places that were chosen.
    [[nodiscard]] const std::vector<std::size_t> &places() const { return m_places; }

private:
    std::vector<std::size_t> m_sums;
    std::vector<std::size_t> m_places;
};

} // namespace sonavo
