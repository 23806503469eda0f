#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>

#include <sys/types.h>

#include <optional>

namespace sonavo {

/// What distinguishes a song's file from all other files. Two paths can lead to one file: through a
/// linked folder, a symbolic link, a mount of a folder in two places, or a disk that ignores case.
struct FileIdentity
{
    /// An object on a disk: a file or a folder.
    struct Node
    {
        dev_t device = 0;
        ino_t inode = 0;
        friend bool operator==(const Node &, const Node &) = default;
    };
    /// The folder that holds the file, and its name there; of a symbolic link, those of its target.
    Node folder;
    QByteArray name;
    Node file;
    /// Whether the file has no other hard links.
    bool hasOneName = false;
};

/// Looks at the file at a path, following links.
/// @return nothing when no regular file can be reached there
[[nodiscard]] std::optional<FileIdentity> identityOf(const QString &path);

/// Whether there is certainly no regular file at a path. False when the disk reports any other error.
[[nodiscard]] bool isGone(const QString &path);

/// Whether two paths lead to the same file, so that removing one removes the other. Two hard links count as
/// two files: removing either leaves the song.
[[nodiscard]] bool areOneFile(const FileIdentity &a, const FileIdentity &b);

/// Files by their identities.
class FileSet
{
public:
    void insert(const FileIdentity &identity);
    /// Whether areOneFile() holds for the identity and one in the set.
    [[nodiscard]] bool contains(const FileIdentity &identity) const;

private:
    using Entry = std::pair<FileIdentity::Node, QByteArray>;
    QSet<Entry> m_entries;
    QSet<FileIdentity::Node> m_files;
};

[[nodiscard]] size_t qHash(const FileIdentity::Node &node, size_t seed = 0);

} // namespace sonavo
