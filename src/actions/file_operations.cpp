#include "actions/file_operations.h"

#include <fcntl.h>
#include <system_error>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

namespace sonavo {
namespace {

/// Takes the old name away after the file got a new one; takes the new one back when that fails.
int removeOldName(const QByteArray &from, const QByteArray &to)
{
    if (::unlink(from.constData()) == 0)
        return 0;
    const int error = errno;
    ::unlink(to.constData());
    return error;
}

} // namespace

int renameWithoutReplacing(const QByteArray &from, const QByteArray &to)
{
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    // Network file systems cannot do that in one step, but most of them can give a file a second name.
    if (::link(from.constData(), to.constData()) != 0)
        return errno;
    return removeOldName(from, to);
}

int moveLinkWithoutReplacing(const QByteArray &from, const QByteArray &to)
{
    namespace fs = std::filesystem;
    const fs::path link(from.constData());
    std::error_code error;
    fs::path target = fs::read_symlink(link, error);
    if (!error && target.is_relative())
        target = fs::canonical(link.parent_path(), error) / target;
    if (!error)
        fs::create_symlink(target, fs::path(to.constData()), error);
    return error ? error.value() : removeOldName(from, to);
}

int flushFolder(const QByteArray &folder)
{
    const int descriptor = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return errno;
    const int error = ::fsync(descriptor) == 0 ? 0 : errno;
    ::close(descriptor);
    return error == EINVAL || error == ENOSYS || error == ENOTSUP ? 0 : error;
}

} // namespace sonavo
