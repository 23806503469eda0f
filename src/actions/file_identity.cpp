#include "actions/file_identity.h"

#include <QFile>
#include <QHash>

#include <sys/stat.h>
#include <sys/vfs.h>
#include <system_error>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <linux/magic.h>
#include <tuple>

namespace sonavo {
namespace {

std::optional<FileSnapshot> snapshotOf(const QByteArray &path)
{
    const auto snapshot = takeSnapshot(path);
    const auto *found = std::get_if<FileSnapshot>(&snapshot);
    return found ? std::optional(*found) : std::nullopt;
}

/// The path of the file that a symbolic link leads to; nothing when it leads nowhere.
std::optional<QByteArray> targetOf(const QByteArray &link)
{
    std::error_code error;
    const auto target = std::filesystem::canonical(link.constData(), error);
    return error ? std::nullopt : std::optional(QByteArray(target.c_str()));
}

std::optional<FileEntry> entryAt(const QByteArray &path)
{
    const qsizetype nameStart = path.lastIndexOf('/') + 1;
    // The slash or the dot at its end makes a link to a folder lead to it.
    const auto folder = snapshotOf(nameStart > 0 ? path.first(nameStart) : QByteArray("."));
    return folder ? std::optional(FileEntry{folder->device, folder->inode, path.sliced(nameStart)})
                  : std::nullopt;
}

/// What all views of a file have in common: its size and its times, which some of them round a little.
std::tuple<qint64, qint64, qint64> traitsOf(const FileSnapshot &file)
{
    constexpr qint64 NANOSECONDS_PER_MICROSECOND = 1000;
    return {file.size, file.modified / NANOSECONDS_PER_MICROSECOND,
            file.changed / NANOSECONDS_PER_MICROSECOND};
}

} // namespace

size_t qHash(const FileEntry &entry, size_t seed)
{
    return qHashMulti(seed, quint64(entry.device), quint64(entry.folder), entry.name);
}

std::optional<FileEntry> entryOf(const QString &path)
{
    const QByteArray encoded = QFile::encodeName(path);
    const auto file = snapshotOf(encoded);
    return entryAt(file && S_ISLNK(file->mode) ? targetOf(encoded).value_or(encoded) : encoded);
}

std::optional<FileIdentity> identityOf(const QString &path)
{
    std::optional<QByteArray> resolved = QFile::encodeName(path);
    auto file = snapshotOf(*resolved);
    if (file && S_ISLNK(file->mode)) {
        resolved = targetOf(*resolved);
        file = resolved ? snapshotOf(*resolved) : std::nullopt;
    }
    const auto entry = file && S_ISREG(file->mode) ? entryAt(*resolved) : std::nullopt;
    return entry ? std::optional(FileIdentity{*entry, {*resolved, *file}}) : std::nullopt;
}

bool isGone(const QString &path)
{
    struct stat status
    {};
    if (::stat(QFile::encodeName(path).constData(), &status) == 0)
        return !S_ISREG(status.st_mode);
    return errno == ENOENT || errno == ENOTDIR;
}

bool areOneFile(const FileIdentity &a, const FileIdentity &b)
{
    FileSet files;
    files.insert(a);
    return files.contains(b);
}

bool isOnDisk(const QByteArray &path)
{
    constexpr std::array<decltype(statfs::f_type), 10> DISKS{
        EXT4_SUPER_MAGIC,  XFS_SUPER_MAGIC,   BTRFS_SUPER_MAGIC, F2FS_SUPER_MAGIC, TMPFS_MAGIC,
        MSDOS_SUPER_MAGIC, EXFAT_SUPER_MAGIC, ISOFS_SUPER_MAGIC, UDF_SUPER_MAGIC,  0x7366746E /* NTFS */};
    struct statfs status = {};
    return ::statfs(path.constData(), &status) == 0 && std::ranges::find(DISKS, status.f_type) != DISKS.end();
}

bool mayBeOneFile(const KnownFile &a, const KnownFile &b)
{
    return a.snapshot.device != b.snapshot.device && traitsOf(a.snapshot) == traitsOf(b.snapshot) &&
           !(isOnDisk(a.path) && isOnDisk(b.path));
}

void FileSet::insert(const FileIdentity &identity)
{
    const FileSnapshot &file = identity.file.snapshot;
    m_entries.insert(identity.entry);
    if (file.hardLinks == 1)
        m_nodes.insert({file.device, file.inode});
    m_files.emplace(traitsOf(file), identity.file);
}

bool FileSet::contains(const FileIdentity &identity) const
{
    const FileSnapshot &file = identity.file.snapshot;
    return m_entries.contains(identity.entry) ||
           (file.hardLinks == 1 && m_nodes.contains({file.device, file.inode}));
}

bool FileSet::mayContain(const KnownFile &file) const
{
    const auto [first, last] = m_files.equal_range(traitsOf(file.snapshot));
    return std::any_of(first, last, [&file](const auto &entry) { return mayBeOneFile(file, entry.second); });
}

} // namespace sonavo
