#pragma once

#include "model/duplicate_group.h"
#include "model/song.h"

#include <QList>
#include <QSet>
#include <QUuid>

#include <functional>
#include <optional>
#include <stop_token>

namespace sonavo {

/// Called with how far the work has come, between 0.0 and 1.0; never goes back.
using FurtherProgressSink = std::function<void(double)>;

/// Songs that match more others than this count as matching this many. Part of what the result is, not a
/// limit of the search: any centre makes a right star, whose members match it and their original, and all of
/// them are found. It decides only which of several songs that match so many others comes first, and it is
/// what lets most songs of a library of similar titles go uncounted.
inline constexpr int MOST_MATCHES_COUNTED = 100;

/// Groups songs that are the same recording by comparing every song with every other (see
/// songsMatchFurther()). Finds what the four passes of analyzeDuplicates() miss, since they compare only
/// songs of one title, name, or second, and only letters of the Latin alphabet.
///
/// Clusters are stars (J. Aslam, E. Pelekhov, D. Rus, "The star clustering algorithm for static and dynamic
/// information organization", 2004): the song that matches most others is a centre, and every song that is
/// left and matches it joins it; then the same with the next song that is left. Equal numbers of matches, and
/// those of MOST_MATCHES_COUNTED and above, go by the order of the songs. The original of a group is the
/// largest file, among equally large ones the centre, then the first. A song of the star that does not match
/// the original itself is left for later stars.
///
/// Pure; works on all cores and blocks its thread, which can be any, until it is done or stopped. The same
/// songs in the same order always give the same groups.
/// @param songs distinct ids, finite durations; of several songs with one path only the first is compared
/// @param reportProgress called in the caller's thread
/// @return the groups, each with at least one duplicate, in the order of their first songs; a song is in at
/// most one of them. Nothing if it was stopped.
[[nodiscard]] std::optional<QList<DuplicateGroup>>
findFurther(const QList<Song> &songs, const std::stop_token &stop, const FurtherProgressSink &reportProgress);

/// The duplicates that only looking further has found: songs that the four passes neither call a duplicate
/// nor put into one group with their original.
/// @param further groups of findFurther()
/// @param careful groups of analyzeDuplicates() of the same songs
/// @return the ids of these songs
[[nodiscard]] QSet<QUuid> foundOnlyFurther(const QList<DuplicateGroup> &further,
                                           const QList<DuplicateGroup> &careful);

} // namespace sonavo
