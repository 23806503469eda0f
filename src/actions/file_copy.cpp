#include "actions/file_copy.h"

#include <QByteArray>
#include <QByteArrayView>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <linux/limits.h>
#include <vector>

namespace sonavo {
namespace {

constexpr const char *ACCESS_LIST = "system.posix_acl_access";
constexpr qint64 BLOCK = 4096;

/// @return an error number, 0 for success
int writeAll(int target, QByteArrayView data, qint64 offset)
{
    while (!data.isEmpty()) {
        const ssize_t written = ::pwrite(target, data.data(), static_cast<std::size_t>(data.size()), offset);
        if (written < 0)
            return errno;
        data = data.sliced(written);
        offset += written;
    }
    return 0;
}

bool isZero(QByteArrayView data)
{
    return data.front() == 0 &&
           std::memcmp(data.data(), data.data() + 1, static_cast<std::size_t>(data.size()) - 1) == 0;
}

/// Writes everything but the blocks of zeros.
/// @return an error number, 0 for success
int writeSparsely(int target, QByteArrayView data, qint64 offset)
{
    for (qsizetype start = 0; start < data.size(); start += BLOCK) {
        const QByteArrayView block = data.sliced(start, std::min<qsizetype>(BLOCK, data.size() - start));
        if (isZero(block))
            continue;
        if (const int error = writeAll(target, block, offset + start))
            return error;
    }
    return 0;
}

/// @param isSparse whether the file has holes. They are found by reading: file systems have been known to
/// report data that was written a moment ago as a hole.
/// @param length of the file; EBUSY when it turns out to be longer
/// @return an error number, 0 for success
int copyContent(int source, int target, bool isSparse, qint64 length, const std::stop_token &stop)
{
    constexpr std::size_t CHUNK = 1024 * 1024;
    std::vector<char> chunk(CHUNK);
    qint64 offset = 0;
    while (!stop.stop_requested()) {
        const ssize_t size = ::read(source, chunk.data(), CHUNK);
        if (size < 0)
            return errno;
        if (size == 0)
            return isSparse && ::ftruncate(target, offset) != 0 ? errno : 0;
        const QByteArrayView data(chunk.data(), size);
        const int error = isSparse ? writeSparsely(target, data, offset) : writeAll(target, data, offset);
        if (error != 0)
            return error;
        offset += size;
        if (offset > length)
            return EBUSY; // what somebody writes as fast would have no end
    }
    return ECANCELED;
}

/// @return an error number, 0 for success
int copyAttribute(int source, int target, const char *name)
{
    std::vector<char> value(XATTR_SIZE_MAX);
    const ssize_t size = ::fgetxattr(source, name, value.data(), value.size());
    if (size < 0)
        return errno;
    return ::fsetxattr(target, name, value.data(), static_cast<std::size_t>(size), 0) == 0 ? 0 : errno;
}

/// @return the names of those that could not be stored
QStringList copyExtendedAttributes(int source, int target)
{
    QByteArray names(XATTR_LIST_MAX, '\0');
    names.resize(std::max<ssize_t>(::flistxattr(source, names.data(), XATTR_LIST_MAX), 0));
    QStringList lost;
    bool hasAccessList = false;
    for (const QByteArray &name : names.split('\0')) {
        hasAccessList = hasAccessList || name == ACCESS_LIST;
        if ((name.startsWith("user.") || name == ACCESS_LIST) && copyAttribute(source, target, name) != 0)
            lost.append(QString::fromUtf8(name));
    }
    // A new file gets one from its folder, where that has one for its files.
    if (!hasAccessList)
        static_cast<void>(::fremovexattr(target, ACCESS_LIST));
    return lost;
}

} // namespace

CopyResult copyFile(int source, const FileSnapshot &before, int target, const std::stop_token &stop)
{
    struct stat status = {};
    if (::fstat(source, &status) != 0)
        return {errno};
    constexpr qint64 STAT_BLOCK = 512;
    const bool isSparse = status.st_blocks * STAT_BLOCK < status.st_size;
    if (const int error = copyContent(source, target, isSparse, before.size, stop))
        return {error};

    CopyResult result{0, copyExtendedAttributes(source, target)};
    // Not all file systems have permissions. These come after the access list, which they are a part of.
    constexpr mode_t PERMISSIONS = 0777;
    const timespec times[] = {status.st_atim, status.st_mtim};
    [[maybe_unused]] const int ignored =
        ::fchmod(target, (status.st_mode & PERMISSIONS) | S_IRUSR) | ::futimens(target, times);
    if (::fsync(target) != 0)
        return {errno};

    const auto after = takeSnapshot(source);
    const auto copied = takeSnapshot(target);
    const auto *now = std::get_if<FileSnapshot>(&after);
    const auto *copy = std::get_if<FileSnapshot>(&copied);
    if (!now || !isUntouched(*now, before))
        result.error = EBUSY;
    else if (!copy || copy->size != before.size)
        result.error = EIO;
    else if (stop.stop_requested())
        result.error = ECANCELED;
    return result;
}

} // namespace sonavo
