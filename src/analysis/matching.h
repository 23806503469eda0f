#pragma once

#include "analysis/prepared_songs.h"

#include <cstddef>

namespace sonavo {

// The rule that says which songs are the same recording. Nothing else in the program decides it.

/// Largest difference in playing time, in seconds, between two copies of one recording (inclusive).
inline constexpr double MATCH_DURATION_DIFF = 5.0;
/// Least similarity of the joined artist and title where neither titles nor file names contain one another.
inline constexpr double MATCH_TITLE_SIMILARITY = 0.9;
/// Least similarity of the artists.
inline constexpr double MATCH_ARTIST_SIMILARITY = 0.7;
/// Least length, in characters, of a title word that two copies can have in common.
inline constexpr std::size_t MATCH_WORD_LENGTH = 3;

/// Whether two songs are the same recording. All four conditions must hold:
/// 1. their durations differ by at most MATCH_DURATION_DIFF;
/// 2. one lower-cased title or file name contains the other, or artist and title together are similar
///    (MATCH_TITLE_SIMILARITY), or both lack artist and title; an empty text is contained in nothing;
/// 3. the artists are similar (MATCH_ARTIST_SIMILARITY) or both empty;
/// 4. the titles share a word of at least MATCH_WORD_LENGTH characters.
/// Titles and artists are compared normalised (see normalizeString()) except where they are only lower-cased;
/// for similarity see calculateSimilarity().
///
/// Symmetric and pure, but not transitive; any thread may call it. Before changing a condition, see
/// CandidateIndex, which relies on all of them.
[[nodiscard]] bool songsMatch(const PreparedSongs &songs, const PreparedSong &seed,
                              const PreparedSong &candidate);

/// The third condition of songsMatch() alone.
[[nodiscard]] bool artistsMatch(const PreparedSongs &songs, const PreparedSong &a, const PreparedSong &b);

/// The second condition alone.
[[nodiscard]] bool textsMatch(const PreparedSongs &songs, const PreparedSong &a, const PreparedSong &b);

/// Whether two songs can be in one group of the first step: their artists share a word of any length, or one
/// of the songs has no artist at all.
[[nodiscard]] bool artistsCompatible(const PreparedSongs &songs, const PreparedSong &duplicate,
                                     const PreparedSong &original);

} // namespace sonavo
