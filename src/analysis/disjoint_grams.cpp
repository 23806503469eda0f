#include "analysis/disjoint_grams.h"

#include "analysis/distance.h"

#include <algorithm>
#include <limits>

namespace sonavo {

std::size_t largestDistanceToSimilar(std::size_t length, double least)
{
    // The longer of the two texts decides, which is the other one here.
    std::size_t longest = length;
    while (longest + 1 - length <= largestDistance(longest + 1, least))
        ++longest;
    return largestDistance(longest, least);
}

std::size_t DisjointGrams::choose(std::span<const std::size_t> counts, std::size_t gramLength,
                                  std::size_t needed)
{
    constexpr std::size_t IMPOSSIBLE = std::numeric_limits<std::size_t>::max() / 2;
    // Row k, column i: the least sum of k grams among the first i places.
    const std::size_t columns = counts.size() + 1;
    m_sums.assign((needed + 1) * columns, IMPOSSIBLE);
    std::fill_n(m_sums.begin(), columns, std::size_t{0});
    for (std::size_t row = 1; row <= needed; ++row) {
        const std::size_t *above = &m_sums[(row - 1) * columns];
        std::size_t *sums = &m_sums[row * columns];
        for (std::size_t column = 1; column < columns; ++column) {
            const std::size_t before = column > gramLength ? column - gramLength : 0;
            sums[column] = std::min(sums[column - 1], above[before] + counts[column - 1]);
        }
    }
    m_places.clear();
    std::size_t column = counts.size();
    for (std::size_t row = needed; row > 0; --row) {
        while (m_sums[row * columns + column] == m_sums[row * columns + column - 1])
            --column;
        m_places.push_back(column - 1);
        column = column > gramLength ? column - gramLength : 0;
    }
    return m_sums.back();
}

} // namespace sonavo
