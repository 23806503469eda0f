#pragma once

#include <QHash>
#include <QUuid>
#include <QtGlobal>

namespace sonavo {

/// What a song's file was when it was read, to tell later whether it is still that file. Through a symbolic
/// link, it describes the file that the link leads to.
struct FileNote
{
    /// As in stat().
    quint64 device = 0;
    quint64 inode = 0;
    /// Bytes.
    qint64 size = 0;
    /// Time of the last modification, in nanoseconds since the epoch.
    qint64 modified = 0;

    friend bool operator==(const FileNote &, const FileNote &) = default;
};

/// Notes by the ids of their songs.
using FileNotes = QHash<QUuid, FileNote>;

} // namespace sonavo
