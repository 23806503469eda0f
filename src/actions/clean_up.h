#pragma once

#include "actions/duplicates_folder.h"
#include "actions/failure.h"
#include "actions/file_move.h"
#include "actions/trash.h"
#include "model/duplicate_group.h"
#include "model/file_note.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <stop_token>
#include <variant>

namespace sonavo {

/// A song whose file was moved, and how to find it again.
struct DisposedSong
{
    Song song;
    std::variant<TrashedFile, MovedFile> file;
};

/// A song whose file was not moved, or not put back.
struct SongFailure
{
    Song song;
    /// In words for the user; where the file could not be put back, it says where it is now.
    QString reason;
};

/// What a clean-up or an undo can be given.
struct CleanUpOptions
{
    /// Ends it after the file at hand; a copy to another disk is abandoned at once.
    std::stop_token stop = {};
    /// May be null.
    MoveJournal *journal = nullptr;
    /// What the files were when they were read. A file without a note only has to be readable.
    FileNotes notes = {};
    /// Called after every file with the number of those that are done, if given.
    std::function<void(qint64 done)> reportProgress = {};
};

/// What became of the duplicates of a result. Those that were passed over or not reached appear in no list.
struct CleanUpOutcome
{
    QList<DisposedSong> moved = {};
    /// Bytes, the sum of the sizes that the moved songs had when they were read.
    qint64 savedBytes = 0;
    QList<SongFailure> failures = {};
    /// Duplicates that were not reached because the clean-up was stopped, in order.
    QList<Song> notReached = {};
    /// Names of the attributes that the new disk could not store, each once, and how many of the moved songs
    /// lost some.
    QStringList lostAttributes = {};
    qint64 songsWithLostAttributes = 0;
};

// Both clean-ups go through the duplicates of all groups in order and make sure that a copy of every song
// remains:
//
// - A duplicate that is the same file as the original of any group, or as one that was moved, is passed over.
// - A duplicate that is not the file that was read any more, or whose original cannot be read or has changed
//   since it was read, stays where it is and counts as failed.
// - One file can be visible through two file systems, as two files. A duplicate that may be the original of
//   any group stays as well. Not every such file can be recognised, so the originals are checked again after
//   every file and once more at the end: a duplicate whose original vanished with it is put back and counts
//   as failed.
//
// They take as long as the disks do. Any thread may call them.

/// Sends every duplicate to the Trash. Files that are gone already are passed over.
[[nodiscard]] CleanUpOutcome trashDuplicates(const QList<DuplicateGroup> &groups,
                                             const CleanUpOptions &options = {});

/// Moves every duplicate into a folder. Files that are gone already have failed.
[[nodiscard]] CleanUpOutcome moveDuplicates(const QList<DuplicateGroup> &groups, DuplicatesFolder &folder,
                                            const CleanUpOptions &options = {});

/// Sends one song's file to the Trash, unless it is not the file that was read any more or another member of
/// its group would be gone with it. If that turns out only afterwards, the file is put back. The other
/// members may have changed or be missing: which song goes is the user's own choice.
[[nodiscard]] std::variant<DisposedSong, Failure>
trashSong(const Song &song, const QList<DuplicateGroup> &groups, const CleanUpOptions &options = {});

/// What became of files that were to be put back. Those that were not reached appear in no list.
struct UndoOutcome
{
    /// The songs whose files are where they were, and what these are now.
    QList<Song> restored = {};
    FileNotes notes = {};
    /// They stay where they were moved to; a later try can succeed.
    QList<SongFailure> failures = {};
    /// Their files exist nowhere any more.
    QList<SongFailure> gone = {};
};

/// Puts files back where they were, the last first, and removes duplicates folders that are empty then.
/// Nothing is overwritten; see restore() and DuplicatesFolder::moveBack().
[[nodiscard]] UndoOutcome putBack(const QList<DisposedSong> &songs, const CleanUpOptions &options = {});

} // namespace sonavo
