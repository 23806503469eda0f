#pragma once

#include "actions/failure.h"
#include "actions/file_snapshot.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <stop_token>

namespace sonavo {

// Moves files so that none can be lost. An error from a system call does not mean that nothing happened: a
// network file system reports one for a call that it has carried out if its first reply was lost. So both
// names are checked to find out what has happened:
//
//   the old name is gone, the new one is the file   -> Moved
//   the old name still is the file                  -> NotMoved; a new name that we made is removed again
//   neither is certain                              -> Uncertain; nothing is removed
//
// Paths are in the file system's encoding. Any thread may call these. They take as long as the disk does.

class MoveJournal;

/// What a move can be given besides its two paths.
struct MoveOptions
{
    /// Abandons a copy to another disk before it gets its name: NotMoved with ECANCELED.
    /// Every other step is carried out to its end.
    std::stop_token stop;
    /// Where the steps under way are recorded; nothing is recorded without one. Must outlive the move.
    MoveJournal *journal = nullptr;
    /// What a symbolic link is to say under its new name; empty for what leads to the same file.
    QByteArray linkTarget = {};
};

struct MoveResult
{
    enum class State
    {
        Moved,
        /// The file is where it was, untouched.
        NotMoved,
        /// The file is at the old path, at the new one, or at both; see `leftAt`.
        Uncertain,
    };
    State state = State::Moved;
    /// As in errno; 0 if moved.
    int error = 0;
    /// Names of the extended attributes and access lists that the target's file system could not store.
    QStringList lostAttributes = {};
    /// If uncertain, a third path where a file can be: the old one was written to and removed in the same
    /// moment, and was taken again when what is there now was to get its name back. Empty otherwise.
    QByteArray leftAt = {};
    /// What a symbolic link said that was replaced by another one.
    QByteArray linkTarget = {};
    /// The file before it was copied; nothing if it was renamed. Its copy can have other times: not every
    /// disk can store every time.
    std::optional<FileSnapshot> copiedFrom = {};
};

/// Renames a file or a symbolic link itself, unless the new name is taken: then NotMoved with EEXIST.
/// NotMoved with EXDEV when the new name is on another file system. Where a file system can neither refuse to
/// replace nor give a file a second name, an empty file takes the new name first.
[[nodiscard]] MoveResult renameWithoutReplacing(const QByteArray &from, const QByteArray &to,
                                                const MoveOptions &options = {});

/// Moves a file, if need be to another disk: then it is copied with copyFile(), the copy is given the new
/// name, and the source is removed if nobody has changed it meanwhile. A symbolic link leads to the same file
/// afterwards. NotMoved with EEXIST when the new name is taken.
[[nodiscard]] MoveResult moveWithoutReplacing(const QByteArray &from, const QByteArray &to,
                                              const MoveOptions &options = {});

/// The message about a file that was not moved, or not certainly.
[[nodiscard]] Failure toFailure(const MoveResult &result, const QByteArray &from, const QByteArray &to);

/// Where a file was and where it is now.
struct MovedFile
{
    /// Absolute, or relative where the caller's was.
    QByteArray originalPath;
    QByteArray path;
    /// Taken after the move; nothing where that failed.
    std::optional<FileSnapshot> snapshot;
    /// See MoveResult.
    QStringList lostAttributes = {};
    /// The path of the list in its folder that has a line for it, if any; see MovedFilesList.
    QByteArray list = {};
    /// See MoveResult.
    QByteArray linkTarget = {};
    /// The topmost folder of the volume that it was on, by which it is known whether that is mounted when the
    /// file goes back; see volumeTopOf(). Empty where it has stayed on its volume.
    QByteArray originalTop = {};
    /// See MoveResult.
    std::optional<FileSnapshot> copiedFrom = {};
};

/// @param result of the move
[[nodiscard]] MovedFile describeMove(const QByteArray &from, const QByteArray &to,
                                     const MoveResult &result = {});

} // namespace sonavo
