#pragma once

#include "actions/failure.h"
#include "actions/file_snapshot.h"

#include <QByteArray>
#include <QString>

#include <optional>

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

struct MoveResult
{
    enum class State
    {
        Moved,
        /// The file is where it was, untouched.
        NotMoved,
        /// The file is at the old path, at the new one, or at both.
        Uncertain,
    };
    State state = State::Moved;
    /// As in errno; 0 if moved.
    int error = 0;
};

/// Renames a file or a symbolic link itself, unless the new name is taken: then NotMoved with EEXIST.
/// NotMoved with EXDEV when the new name is on another file system.
[[nodiscard]] MoveResult renameWithoutReplacing(const QByteArray &from, const QByteArray &to);

/// Moves a file, if need be to another disk: then it is copied, the copy is flushed and given the new name,
/// and the source is removed if nobody has changed it meanwhile. The copy gets the permissions (but
/// never set-user-ID, set-group-ID or sticky) and the times of the source. A symbolic link leads to the same
/// file afterwards. NotMoved with EEXIST when the new name is taken.
[[nodiscard]] MoveResult moveWithoutReplacing(const QByteArray &from, const QByteArray &to);

/// The message about a file that was not moved, or not certainly.
[[nodiscard]] Failure toFailure(const MoveResult &result, const QByteArray &from, const QByteArray &to);

/// Where a file was and where it is now.
struct MovedFile
{
    /// Absolute, or relative where the caller's was.
    QString originalPath;
    QString path;
    /// Taken after the move; nothing where that failed.
    std::optional<FileSnapshot> snapshot;
};

[[nodiscard]] MovedFile describeMove(const QByteArray &from, const QByteArray &to);

/// Move a file back to where it was, with renameWithoutReplacing() or moveWithoutReplacing(). They fail when
/// its old name is taken or when what is at `file.path` is not the file that was moved there.
[[nodiscard]] std::optional<Failure> renameBack(const MovedFile &file);
[[nodiscard]] std::optional<Failure> moveBack(const MovedFile &file);

} // namespace sonavo
