#pragma once

#include "actions/file_snapshot.h"

#include <QStringList>

#include <stop_token>

namespace sonavo {

struct CopyResult
{
    /// As in errno; 0 when the copy is complete.
    int error = 0;
    /// Names of the extended attributes and access lists that the target could not store.
    QStringList lostAttributes = {};
};

/// Copies a file's content, permissions (never set-user-ID, set-group-ID and sticky), times, access list and
/// the extended attributes of the user (user.*), and flushes the copy to the disk. Holes stay holes. Its
/// owner can read the copy, whether or not he could read the source. Any thread may call it.
/// @param source open for reading, at its start
/// @param before the source, when it was opened; EBUSY when it changes meanwhile
/// @param target open for writing, empty
/// @param stop looked at before every megabyte and at the end; the result is ECANCELED
[[nodiscard]] CopyResult copyFile(int source, const FileSnapshot &before, int target,
                                  const std::stop_token &stop);

} // namespace sonavo
