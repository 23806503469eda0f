#pragma once

#include "generators/random_source.h"

#include <QString>

#include <cstddef>
#include <vector>

namespace sonavo {

/// Ranks drawn after Zipf's law: the rank r comes up in proportion to 1 / (r + offset). A few ranks are very
/// common and the tail is long.
class ZipfRanks
{
public:
    /// @param count at least 1
    ZipfRanks(std::size_t count, double offset);

    [[nodiscard]] std::size_t draw(RandomSource &random) const;

private:
    std::vector<double> m_sums;
};

/// The words of made-up titles, albums and artists: common English ones first, then thousands of rare ones
/// put together from syllables. The same in every run.
class Vocabulary
{
public:
    Vocabulary();

    /// A word as it stands in a title.
    [[nodiscard]] const QString &titleWord(RandomSource &random) const;
    /// A rare word, which also serves as a family name.
    [[nodiscard]] const QString &rareWord(RandomSource &random) const;
    [[nodiscard]] const QString &firstName(RandomSource &random) const;

private:
    std::vector<QString> m_titleWords;
    std::vector<QString> m_firstNames;
    std::size_t m_commonCount;
    ZipfRanks m_titleRanks;
    ZipfRanks m_rareRanks;
    ZipfRanks m_nameRanks;
};

} // namespace sonavo
