#pragma once

#include "model/song.h"

#include <QString>

#include <cmath>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>

namespace sonavo {

/// Largest difference in playing time, in seconds, between two copies of one recording (inclusive).
inline constexpr double MATCH_DURATION_DIFF = 5.0;
/// Least similarity of the joined artist and title where neither titles nor file names contain one another.
inline constexpr double MATCH_TITLE_SIMILARITY = 0.9;
/// Least similarity of the artists.
inline constexpr double MATCH_ARTIST_SIMILARITY = 0.7;
/// Least length, in characters, of a title word that two copies can have in common.
inline constexpr std::size_t MATCH_WORD_LENGTH = 3;

/// Edit distance after Levenshtein (1966), with unit cost for insertion, deletion and substitution, counted
/// in user-perceived characters (grapheme clusters), which are equal when they are canonically equivalent.
[[nodiscard]] std::size_t levenshteinDistance(const QString &a, const QString &b);

/// The same distance for normalised texts, whose characters are bytes.
[[nodiscard]] std::size_t levenshteinDistance(std::string_view a, std::string_view b);

/// 1 - distance / length of the longer text, between 0.0 and 1.0, for two normalised texts of which at least
/// one is not empty.
[[nodiscard]] double calculateSimilarity(std::string_view a, std::string_view b);

/// Whether two playing times, in seconds, are those of copies of one recording.
[[nodiscard]] inline bool areDurationsClose(double a, double b)
{
    return std::abs(a - b) <= MATCH_DURATION_DIFF;
}

/// Whether one of two texts contains the other, literally; an empty text is contained in nothing.
[[nodiscard]] bool oneContainsTheOther(const QString &a, const QString &b);

/// Whether two songs are the same recording. All four conditions must hold:
/// 1. their durations differ by at most MATCH_DURATION_DIFF;
/// 2. one lower-cased title or file name contains the other, or artist and title together are similar
///    (MATCH_TITLE_SIMILARITY), or both lack artist and title;
/// 3. the artists are similar (MATCH_ARTIST_SIMILARITY) or both empty;
/// 4. the titles share a word of at least MATCH_WORD_LENGTH characters.
/// Symmetric and pure, but not transitive; any thread may call it.
[[nodiscard]] bool songsMatch(const Song &seed, const Song &candidate);

/// The words of a normalised text, each once.
using WordSet = std::set<std::string, std::less<>>;
[[nodiscard]] WordSet artistWordsOf(const Song &song);

/// Whether a duplicate's artist may stand beside the original's: they share a word, or one of the two songs
/// names no artist at all.
/// @param originalArtistWords artistWordsOf(original), computed once for all of its duplicates
[[nodiscard]] bool artistsCompatible(const Song &duplicate, const WordSet &originalArtistWords,
                                     const Song &original);

} // namespace sonavo
