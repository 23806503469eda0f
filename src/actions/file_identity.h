#pragma once

#include "actions/file_snapshot.h"

#include <QByteArray>
#include <QSet>
#include <QString>

#include <sys/types.h>

#include <map>
#include <optional>
#include <tuple>
#include <utility>

namespace sonavo {

// Two paths can lead to one file: through a linked folder, a symbolic link, a mount of a folder in two
// places, or a disk that ignores case. Then removing one removes the other. Two hard links count as two
// files: removing either leaves the song.
//
// All functions follow symbolic links. Any thread may call them. They take as long as the disk does.

/// A name in a folder, by whichever path the folder is reached.
struct FileEntry
{
    dev_t device = 0;
    /// Of the folder.
    ino_t folder = 0;
    QByteArray name;

    friend bool operator==(const FileEntry &, const FileEntry &) = default;
};

[[nodiscard]] size_t qHash(const FileEntry &entry, size_t seed = 0);

/// The entry that a path leads to; a file need not be there any more.
/// @return nothing when the folder cannot be reached
[[nodiscard]] std::optional<FileEntry> entryOf(const QString &path);

/// What distinguishes a song's file from all other files.
struct FileIdentity
{
    FileEntry entry;
    KnownFile file;
};

/// Looks at the file at a path.
/// @return nothing when no regular file can be reached there
[[nodiscard]] std::optional<FileIdentity> identityOf(const QString &path);

/// Whether there is certainly no regular file at a path. False when the disk reports any other error.
[[nodiscard]] bool isGone(const QString &path);

/// Whether two paths lead to the same file.
[[nodiscard]] bool areOneFile(const FileIdentity &a, const FileIdentity &b);

/// Whether a path is on a disk. Other file systems show the files of a disk or of a network.
[[nodiscard]] bool isOnDisk(const QByteArray &path);

/// Whether two files with different identities can be one file, which an overlay, a network or the like shows
/// a second time: they have the same size and times. Nobody can choose the time of the last change, but two
/// files that are written within one tick of the clock have the same.
[[nodiscard]] bool mayBeOneFile(const KnownFile &a, const KnownFile &b);

/// Files by their identities.
class FileSet
{
public:
    void insert(const FileIdentity &identity);
    /// Whether areOneFile() holds for the identity and one in the set.
    [[nodiscard]] bool contains(const FileIdentity &identity) const;
    /// Whether mayBeOneFile() holds for the file and one in the set.
    [[nodiscard]] bool mayContain(const KnownFile &file) const;

private:
    using Node = std::pair<dev_t, ino_t>;
    QSet<FileEntry> m_entries;
    /// Of the files that have no other hard links.
    QSet<Node> m_nodes;
    /// By what mayBeOneFile() compares.
    std::multimap<std::tuple<qint64, qint64, qint64>, KnownFile> m_files;
};

} // namespace sonavo
