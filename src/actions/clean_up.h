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

// Both clean-ups go through the duplicates of all groups in order and make sure that a copy of every song
// remains:
//
// - A duplicate that is the same file as the original of any group is skipped.
// - A duplicate whose original cannot be read, or has changed since its group was started, stays where it is
//   and counts as failed.
// - The originals are checked again after every file and once more at the end. One file can be visible
//   through two file systems, as two files: a duplicate whose original vanished with it is put back and
//   counts as failed.
//
// They take as long as the disks do. Any thread may call them.

/// Sends every duplicate to the Trash. Files that are gone already are passed over.
[[nodiscard]] CleanUpOutcome trashDuplicates(const QList<DuplicateGroup> &groups);

/// Moves every duplicate into a folder. Files that are gone already have failed.
[[nodiscard]] CleanUpOutcome moveDuplicates(const QList<DuplicateGroup> &groups, DuplicatesFolder &folder);

/// Sends one song's file to the Trash, unless another member of its group would be gone with it. If that
/// turns out only afterwards, the file is put back.
[[nodiscard]] std::optional<Failure> trashSong(const Song &song, const QList<DuplicateGroup> &groups);

} // namespace sonavo
