#include "actions/file_snapshot.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <dirent.h>

namespace sonavo {
namespace {

qint64 nanoseconds(const timespec &time)
{
    constexpr qint64 NANOSECONDS_PER_SECOND = 1'000'000'000;
    return time.tv_sec * NANOSECONDS_PER_SECOND + time.tv_nsec;
}

FileSnapshot toSnapshot(const struct stat &status)
{
    return {status.st_dev,
            status.st_ino,
            status.st_mode,
            status.st_size,
            nanoseconds(status.st_mtim),
            nanoseconds(status.st_ctim),
            status.st_nlink};
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
    struct stat status = {};
    if (::lstat(path.constData(), &status) != 0)
        return errno;
    return toSnapshot(status);
}

std::variant<FileSnapshot, int> takeSnapshot(int descriptor)
{
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0)
        return errno;
    return toSnapshot(status);
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
