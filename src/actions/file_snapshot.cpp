#include "actions/file_snapshot.h"

#include "actions/descriptor.h"
#include "actions/folders.h"

#include <QHash>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <linux/magic.h>

namespace sonavo {
namespace {

qint64 nanoseconds(const statx_timestamp &time)
{
    constexpr qint64 NANOSECONDS_PER_SECOND = 1'000'000'000;
    return time.tv_sec * NANOSECONDS_PER_SECOND + time.tv_nsec;
}

/// Network file systems count as well: whether their numbers are the server's depends on how they are
/// mounted.
bool keepsInodes(const struct statfs &status)
{
    constexpr std::array<quint32, 12> MADE_UP{MSDOS_SUPER_MAGIC,       EXFAT_SUPER_MAGIC,
                                              FUSE_SUPER_MAGIC,        CIFS_SUPER_MAGIC,
                                              SMB2_SUPER_MAGIC,        SMB_SUPER_MAGIC,
                                              NCP_SUPER_MAGIC,         V9FS_MAGIC,
                                              HPFS_SUPER_MAGIC,        0x786F4256 /* VirtualBox */,
                                              0xBACBACBC /* VMware */, 0x7C7C6673 /* Parallels */};
    return std::ranges::find(MADE_UP, static_cast<quint32>(status.f_type)) == MADE_UP.end();
}

/// Whether the device that a path or, if that is empty, a descriptor is on keeps inode numbers. Asks at most
/// once in a while: over a network this takes as long as the snapshot itself.
bool hasLastingInodes(dev_t device, int folder, const char *path)
{
    using Clock = std::chrono::steady_clock;
    struct Answer
    {
        bool isYes;
        Clock::time_point time;
    };
    // A device can be unmounted, and its number be given to another one.
    constexpr std::chrono::seconds LIFETIME(1);
    thread_local QHash<dev_t, Answer> answers;
    const auto known = answers.constFind(device);
    if (known != answers.constEnd() && Clock::now() - known->time < LIFETIME)
        return known->isYes;

    const bool isOpen = *path == '\0';
    const int file = isOpen ? folder : ::openat(folder, path, O_PATH | O_NOFOLLOW | O_CLOEXEC);
    struct statfs status = {};
    const bool isKnown = file >= 0 && ::fstatfs(file, &status) == 0;
    if (!isOpen && file >= 0)
        ::close(file);
    if (!isKnown)
        return true; // the stricter rule
    return answers.insert(device, {keepsInodes(status), Clock::now()})->isYes;
}

/// Asks the file system itself: stat() may be answered from a cache that is older than what others have
/// written.
std::variant<FileSnapshot, int> statNow(int folder, const char *path, int flags)
{
    struct statx status = {};
    if (::statx(folder, path, flags | AT_STATX_FORCE_SYNC, STATX_BASIC_STATS, &status) != 0)
        return errno;
    const dev_t device = makedev(status.stx_dev_major, status.stx_dev_minor);
    return FileSnapshot{device,
                        status.stx_ino,
                        status.stx_mode,
                        static_cast<qint64>(status.stx_size),
                        nanoseconds(status.stx_mtime),
                        nanoseconds(status.stx_ctime),
                        status.stx_nlink,
                        hasLastingInodes(device, folder, path)};
}

/// @return 0 when the file has content that can be read, or none; otherwise an error number
int tryReading(int descriptor, qint64 size)
{
    char byte = 0;
    const ssize_t count = size > 0 ? ::pread(descriptor, &byte, 1, 0) : 1;
    if (count < 0)
        return errno;
    return count == 1 ? 0 : EIO;
}

FileState compare(const std::variant<FileSnapshot, int> &snapshot, const KnownFile &file)
{
    const FileSnapshot &before = file.snapshot;
    if (const auto *error = std::get_if<int>(&snapshot))
        return meansGone(*error) && isNothingAt(file.path) ? FileState::Gone : FileState::Unknown;
    const auto &now = std::get<FileSnapshot>(snapshot);
    const bool wasRemoved = hasLostItsNames(now) && before.hardLinks > 0;
    return isSameFile(now, before) && !wasRemoved ? FileState::Same : FileState::Unknown;
}

} // namespace

bool isSameFile(const FileSnapshot &a, const FileSnapshot &b)
{
    const bool haveInodes = a.hasLastingInode && b.hasLastingInode;
    return (!haveInodes || (a.device == b.device && a.inode == b.inode)) &&
           (a.mode & S_IFMT) == (b.mode & S_IFMT) && a.size == b.size && a.modified == b.modified;
}

bool isSameFileAfterRemount(const FileSnapshot &now, FileSnapshot before)
{
    before.device = now.device;
    return isSameFile(now, before);
}

bool isUntouched(const FileSnapshot &a, const FileSnapshot &b)
{
    // What has no lasting inode may not keep the time of the last change and the number of links either.
    const bool haveInodes = a.hasLastingInode && b.hasLastingInode;
    return isSameFile(a, b) &&
           (!haveInodes || (a.mode == b.mode && a.changed == b.changed && a.hardLinks == b.hardLinks));
}

bool hasLostItsNames(const FileSnapshot &snapshot)
{
    return snapshot.hasLastingInode && snapshot.hardLinks == 0;
}

FileNote noteOf(const FileSnapshot &snapshot)
{
    return {snapshot.device, snapshot.inode, snapshot.size, snapshot.modified};
}

bool isAsNoted(const FileSnapshot &snapshot, const FileNote &note)
{
    const bool isSameInode = snapshot.device == note.device && snapshot.inode == note.inode;
    return S_ISREG(snapshot.mode) && (isSameInode || !snapshot.hasLastingInode) &&
           snapshot.size == note.size && snapshot.modified == note.modified;
}

std::variant<FileSnapshot, int> takeSnapshot(const QByteArray &path)
{
    return statNow(AT_FDCWD, path.constData(), AT_SYMLINK_NOFOLLOW);
}

std::variant<FileSnapshot, int> takeSnapshot(int descriptor)
{
    return statNow(descriptor, "", AT_EMPTY_PATH);
}

std::variant<FileSnapshot, int> openAndTakeSnapshot(const QByteArray &path)
{
    std::variant<FileSnapshot, int> snapshot = takeSnapshot(path);
    const auto *listed = std::get_if<FileSnapshot>(&snapshot);
    if (!listed || !S_ISREG(listed->mode))
        return snapshot;
    const Descriptor file(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    if (file.error() != 0)
        return file.error();
    snapshot = takeSnapshot(file.get());
    if (const auto *opened = std::get_if<FileSnapshot>(&snapshot)) {
        if (const int error = tryReading(file.get(), opened->size))
            snapshot = error;
    }
    return snapshot;
}

std::variant<FileSnapshot, int> lookAt(const QByteArray &path)
{
    auto snapshot = openAndTakeSnapshot(path);
    const auto *error = std::get_if<int>(&snapshot);
    return error && (*error == EACCES || *error == EPERM) ? takeSnapshot(path) : snapshot;
}

bool meansGone(int error)
{
    return error == ENOENT || error == ENOTDIR;
}

bool isTaken(const QByteArray &path)
{
    return std::holds_alternative<FileSnapshot>(takeSnapshot(path));
}

bool isNothingAt(const QByteArray &path)
{
    const auto snapshot = takeSnapshot(path);
    const auto *error = std::get_if<int>(&snapshot);
    return error && meansGone(*error) &&
           std::holds_alternative<FileSnapshot>(takeSnapshot(parentFolderOf(path) + "/."));
}

FileState stateOf(const KnownFile &file)
{
    return compare(openAndTakeSnapshot(file.path), file);
}

FileState stateOfName(const KnownFile &file)
{
    return compare(lookAt(file.path), file);
}

bool isUntouched(const KnownFile &file)
{
    const auto snapshot = lookAt(file.path);
    const auto *now = std::get_if<FileSnapshot>(&snapshot);
    return now && isUntouched(*now, file.snapshot);
}

} // namespace sonavo
