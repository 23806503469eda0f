#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>

namespace sonavo {

// Paths are in the file system's encoding; errors are numbers as in errno, 0 for success. Any thread may call
// these.

/// The user's folder for data of programs, $XDG_DATA_HOME or $HOME/.local/share; empty when there is no home.
/// Relative paths do not count, as freedesktop.org's rules for base directories demand.
[[nodiscard]] QString userDataFolder();

/// Makes a folder and all missing ones above it, so that they survive a loss of power. It may exist.
[[nodiscard]] int makeFolders(const QByteArray &path, mode_t mode = 0777);

/// Makes new, renamed and removed names in a folder survive a loss of power, where its file system supports
/// that and the user may read the folder.
[[nodiscard]] int flushFolder(const QByteArray &path);

/// What a symbolic link says, which can be relative to its folder; empty for anything else.
[[nodiscard]] QByteArray linkTarget(const QByteArray &link);

/// The folder that holds a file or a folder: "a" for "a/b" and "a/b/", "." for "a".
[[nodiscard]] QByteArray parentFolderOf(const QByteArray &path);

} // namespace sonavo
