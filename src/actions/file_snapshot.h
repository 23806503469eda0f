#pragma once

#include "model/file_note.h"

#include <QByteArray>

#include <sys/types.h>

#include <optional>
#include <variant>

namespace sonavo {

/// Nanoseconds. File systems round times, FAT down to two seconds.
inline constexpr qint64 COARSEST_TIME = 2'000'000'000;

/// What a file system reports about a file, to recognise it later. For a symbolic link, it describes the
/// link, not its target.
struct FileSnapshot
{
    dev_t device = 0;
    ino_t inode = 0;
    /// Type and permissions, as in stat().
    mode_t mode = 0;
    qint64 size = 0;
    /// Nanoseconds since the epoch.
    qint64 modified = 0;
    /// The same; also changes with the names, the owner and the permissions.
    qint64 changed = 0;
    quint64 hardLinks = 0;
    /// Whether its file system keeps the inode number of a file for as long as the file exists. Others, such
    /// as FAT, make one up when they first see a file, and forget it when they need the memory.
    bool hasLastingInode = true;
};

/// Whether two snapshots show one file with the same content, whatever its names are. Without lasting inodes,
/// its type, its size and the time of its last modification decide.
[[nodiscard]] bool isSameFile(const FileSnapshot &a, const FileSnapshot &b);

/// The same for snapshots between which the disk may have been mounted anew, so that it has another number.
[[nodiscard]] bool isSameFileAfterRemount(const FileSnapshot &now, FileSnapshot before);

/// Whether nothing at all was done to a file between two snapshots, not even to its names or permissions, as
/// far as its file system can tell.
[[nodiscard]] bool isUntouched(const FileSnapshot &a, const FileSnapshot &b);

/// Whether a file that is still open has no name any more.
[[nodiscard]] bool hasLostItsNames(const FileSnapshot &snapshot);

[[nodiscard]] FileNote noteOf(const FileSnapshot &snapshot);

/// Whether a file is the one that was noted, with the same content. The rule of isSameFile().
[[nodiscard]] bool isAsNoted(const FileSnapshot &snapshot, const FileNote &note);

// Paths are in the file system's encoding; errors are numbers as in errno. Any thread may call these. They
// take as long as the disk does.

/// A snapshot of what is at a path.
[[nodiscard]] std::variant<FileSnapshot, int> takeSnapshot(const QByteArray &path);

/// A snapshot of a file that was opened.
[[nodiscard]] std::variant<FileSnapshot, int> takeSnapshot(int descriptor);

/// A snapshot of a file that can be opened and read. A network file system may answer stat() out of a cache
/// after somebody else has removed the file; opening asks the server.
[[nodiscard]] std::variant<FileSnapshot, int> openAndTakeSnapshot(const QByteArray &path);

/// openAndTakeSnapshot(), or takeSnapshot() of a file that the user may not read: renaming needs no reading.
[[nodiscard]] std::variant<FileSnapshot, int> lookAt(const QByteArray &path);

/// Whether an error says that a path leads nowhere. All others, such as EIO, say nothing about that.
[[nodiscard]] bool meansGone(int error);

/// Whether a name is taken, by whatever it is.
[[nodiscard]] bool isTaken(const QByteArray &path);

/// Whether a folder is there and something is not in it. When the folder is missing too, its disk may have
/// been taken away, with all that is on it.
[[nodiscard]] bool isNothingAt(const QByteArray &path);

/// A file at a path, as it was at some time.
struct KnownFile
{
    QByteArray path;
    FileSnapshot snapshot;
};

enum class FileState
{
    /// It can be read at its path, and its content has not been written to.
    Same,
    /// isNothingAt() its path.
    Gone,
    /// Another file is at its path, it was changed, or the file system does not tell.
    Unknown,
};

/// Looks for a file where it was, with openAndTakeSnapshot().
[[nodiscard]] FileState stateOf(const KnownFile &file);

/// The same with lookAt().
[[nodiscard]] FileState stateOfName(const KnownFile &file);

/// Whether a file is where it was and nothing was done to it, with lookAt().
[[nodiscard]] bool isUntouched(const KnownFile &file);

} // namespace sonavo
