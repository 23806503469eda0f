#pragma once

#include "actions/duplicates_folder.h"
#include "actions/failure.h"
#include "model/duplicate_group.h"

#include <QList>

namespace sonavo {

/// What became of the duplicates of a result. Files that were passed over are in neither count.
struct CleanUpOutcome
{
    qint64 moved = 0;
    /// Bytes, the sum of the sizes that the moved songs had when they were read.
    qint64 savedBytes = 0;
    qint64 failed = 0;
};

// Both actions go through all duplicates of all groups in order, and both see to it that a copy of every song
// stays: a duplicate that is the same file as the original of any group is passed over, and where a group's
// original is not on the disk any more, its duplicates stay where they are and count as failed.

/// Sends every duplicate to the Trash. Files that are gone already are passed over.
[[nodiscard]] CleanUpOutcome trashDuplicates(const QList<DuplicateGroup> &groups);

/// Moves every duplicate into a folder. Files that are gone already count as failed.
[[nodiscard]] CleanUpOutcome moveDuplicates(const QList<DuplicateGroup> &groups, DuplicatesFolder &folder);

/// Sends one song's file to the Trash, unless it is also the file of another member of a group that holds the
/// song: that one would be gone with it.
[[nodiscard]] std::optional<Failure> trashSong(const Song &song, const QList<DuplicateGroup> &groups);

} // namespace sonavo
