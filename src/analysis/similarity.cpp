#include "analysis/similarity.h"

#include "analysis/comparable_song.h"
#include "analysis/normalization.h"

#include <QStringList>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <numeric>
#include <vector>

namespace sonavo {
namespace {

QStringList graphemeClustersOf(const QString &text)
{
    QStringList clusters;
    QTextBoundaryFinder boundaries(QTextBoundaryFinder::Grapheme, text);
    qsizetype start = 0;
    for (qsizetype end = boundaries.toNextBoundary(); end != -1; end = boundaries.toNextBoundary()) {
        clusters.append(text.sliced(start, end - start).normalized(QString::NormalizationForm_D));
        start = end;
    }
    return clusters;
}

/// Row by row through the table of distances between prefixes; only one row is kept.
template <typename Sequence>
std::size_t editDistance(const Sequence &a, const Sequence &b)
{
    std::vector<std::size_t> row(static_cast<std::size_t>(b.size()) + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const auto &characterOfA : a) {
        std::size_t diagonal = row.front()++;
        auto cell = row.begin();
        for (const auto &characterOfB : b) {
            const std::size_t left = *cell++;
            const std::size_t above = *cell;
            *cell = characterOfA == characterOfB ? diagonal : 1 + std::min({left, above, diagonal});
            diagonal = above;
        }
    }
    return row.back();
}

} // namespace

std::size_t levenshteinDistance(const QString &a, const QString &b)
{
    return editDistance(graphemeClustersOf(a), graphemeClustersOf(b));
}

std::size_t levenshteinDistance(std::string_view a, std::string_view b)
{
    return editDistance(a, b);
}

double calculateSimilarity(std::string_view a, std::string_view b)
{
    const std::size_t longer = std::max(a.size(), b.size());
    Q_ASSERT(longer > 0);
    return 1.0 - static_cast<double>(levenshteinDistance(a, b)) / static_cast<double>(longer);
}

bool oneContainsTheOther(const QString &a, const QString &b)
{
    return !a.isEmpty() && !b.isEmpty() && (a.size() >= b.size() ? a.contains(b) : b.contains(a));
}

bool songsMatch(const Song &seed, const Song &candidate)
{
    return songsMatch(ComparableSong(seed), ComparableSong(candidate));
}

WordSet artistWordsOf(const Song &song)
{
    const std::string artist = normalizeString(song.artist);
    const std::vector<std::string_view> words = wordsOf(artist);
    return {words.begin(), words.end()};
}

bool artistsCompatible(const Song &duplicate, const WordSet &originalArtistWords, const Song &original)
{
    if (original.artist.isEmpty() || duplicate.artist.isEmpty())
        return true;
    const WordSet words = artistWordsOf(duplicate);
    return std::any_of(words.begin(), words.end(),
                       [&](const std::string &word) { return originalArtistWords.contains(word); });
}

} // namespace sonavo
