#pragma once

#include "actions/duplicates_folder.h"
#include "actions/failure.h"
#include "model/duplicate_group.h"

#include <QList>
#include <QString>

#include <optional>

namespace sonavo {

struct FileFailure
{
    QString path;
    /// In words for the user; where the file could not be put back, it says where it is now.
    QString reason;
};

/// What became of the duplicates of a result. Files that were passed over are neither moved nor failed.
struct CleanUpOutcome
{
    qint64 moved = 0;
    /// Bytes, the sum of the sizes that the moved songs had when they were read.
    qint64 savedBytes = 0;
    QList<FileFailure> failures;
};

// Both clean-ups go through all duplicates of all groups in order, and see to it that a copy of every song
// stays:
//
// - a duplicate that is the same file as the original of any group is passed over;
// - a duplicate whose original cannot be read, or was changed since the group was begun, stays and has
// failed;
// - after every file, and once more at the end, the originals are read again. One file can be seen through
// two
//   file systems, as two files; where an original has vanished with a duplicate, that is put back and has
//   failed.
//
// They take as long as the disks do. Any thread may call them.

/// Sends every duplicate to the Trash. Files that are gone already are passed over.
[[nodiscard]] CleanUpOutcome trashDuplicates(const QList<DuplicateGroup> &groups);

/// Moves every duplicate into a folder. Files that are gone already have failed.
[[nodiscard]] CleanUpOutcome moveDuplicates(const QList<DuplicateGroup> &groups, DuplicatesFolder &folder);

/// Sends one song's file to the Trash, unless another member of a group that holds the song would be gone
/// with it, which is put back when it shows only afterwards.
[[nodiscard]] std::optional<Failure> trashSong(const Song &song, const QList<DuplicateGroup> &groups);

} // namespace sonavo
