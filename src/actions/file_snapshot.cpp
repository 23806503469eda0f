#include "actions/file_snapshot.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cerrno>
#include <dirent.h>

namespace sonavo {
namespace {

qint64 nanoseconds(const statx_timestamp &time)
{
    constexpr qint64 NANOSECONDS_PER_SECOND = 1'000'000'000;
    return time.tv_sec * NANOSECONDS_PER_SECOND + time.tv_nsec;
}

/// Asks the file system itself: stat() may be answered from a cache that is older than what others have
/// written.
std::variant<FileSnapshot, int> statNow(int folder, const char *path, int flags)
{
    struct statx status = {};
    if (::statx(folder, path, flags | AT_STATX_FORCE_SYNC, STATX_BASIC_STATS, &status) != 0)
        return errno;
    return FileSnapshot{makedev(status.stx_dev_major, status.stx_dev_minor),
                        status.stx_ino,
                        status.stx_mode,
                        static_cast<qint64>(status.stx_size),
                        nanoseconds(status.stx_mtime),
                        nanoseconds(status.stx_ctime),
                        status.stx_nlink};
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

} // namespace

bool isSameFile(const FileSnapshot &a, const FileSnapshot &b)
{
    return a.device == b.device && a.inode == b.inode && (a.mode & S_IFMT) == (b.mode & S_IFMT) &&
           a.size == b.size && a.modified == b.modified;
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
    const int descriptor = ::open(path.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return errno;
    snapshot = takeSnapshot(descriptor);
    if (const auto *opened = std::get_if<FileSnapshot>(&snapshot)) {
        if (const int error = tryReading(descriptor, opened->size))
            snapshot = error;
    }
    ::close(descriptor);
    return snapshot;
}

bool meansGone(int error)
{
    return error == ENOENT || error == ENOTDIR;
}

FileState stateOf(const KnownFile &file)
{
    const auto snapshot = openAndTakeSnapshot(file.path);
    if (const auto *error = std::get_if<int>(&snapshot))
        return meansGone(*error) ? FileState::Gone : FileState::Unknown;
    const auto &now = std::get<FileSnapshot>(snapshot);
    const bool hasLostItsNames = now.hardLinks == 0 && file.snapshot.hardLinks > 0;
    return isSameFile(now, file.snapshot) && !hasLostItsNames ? FileState::Same : FileState::Unknown;
}

bool isUntouched(const KnownFile &file)
{
    const auto snapshot = openAndTakeSnapshot(file.path);
    const auto *now = std::get_if<FileSnapshot>(&snapshot);
    return now && *now == file.snapshot;
}

bool isListed(const QByteArray &path)
{
    const qsizetype nameStart = path.lastIndexOf('/') + 1;
    const QByteArray name = path.sliced(nameStart);
    DIR *folder = ::opendir(nameStart > 0 ? path.first(nameStart).constData() : ".");
    if (!folder)
        return false;
    const dirent *entry = nullptr;
    do
        entry = ::readdir(folder);
    while (entry && name != entry->d_name);
    ::closedir(folder);
    return entry != nullptr;
}

} // namespace sonavo
