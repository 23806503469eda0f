#pragma once

#include <QByteArray>

namespace sonavo {

// Steps of moving a file that cannot lose one. Paths are in the file system's encoding. Each gives an error
// number as in errno, 0 for success, and after an error everything is as it was.

/// Renames a file unless the new name is taken: then EEXIST. EXDEV when the new name is on another file
/// system.
[[nodiscard]] int renameWithoutReplacing(const QByteArray &from, const QByteArray &to);

/// Moves a symbolic link, which leads to the same file afterwards, unless the new name is taken: then EEXIST.
[[nodiscard]] int moveLinkWithoutReplacing(const QByteArray &from, const QByteArray &to);

/// Makes what was renamed or created in a folder safe against a loss of power, on file systems that can.
[[nodiscard]] int flushFolder(const QByteArray &folder);

} // namespace sonavo
