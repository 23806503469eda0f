#include "actions/folders.h"

#include "actions/descriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

namespace sonavo {
namespace {

namespace fs = std::filesystem;

/// @return 0 for a folder or a link to one
int errorUnlessFolder(const QByteArray &path)
{
    struct stat status = {};
    if (::stat(path.constData(), &status) != 0)
        return errno;
    return S_ISDIR(status.st_mode) ? 0 : ENOTDIR;
}

} // namespace

QString userDataFolder()
{
    QString dataHome = qEnvironmentVariable("XDG_DATA_HOME");
    if (dataHome.startsWith(u'/'))
        return dataHome;
    const QString home = qEnvironmentVariable("HOME");
    return home.startsWith(u'/') ? home + QStringLiteral("/.local/share") : QString();
}

int makeFolders(const QByteArray &path, mode_t mode)
{
    const int error = errorUnlessFolder(path);
    if (error != ENOENT)
        return error;
    const QByteArray parent = parentFolderOf(path);
    if (parent != path) {
        if (const int parentError = makeFolders(parent, mode))
            return parentError;
    }
    if (::mkdir(path.constData(), mode) != 0)
        return errno == EEXIST ? errorUnlessFolder(path) : errno;
    return flushFolder(parent);
}

int flushFolder(const QByteArray &path)
{
    const Descriptor folder(path, O_RDONLY | O_DIRECTORY);
    if (folder.error() != 0)
        return folder.error() == EACCES ? 0 : folder.error();
    const int error = ::fsync(folder.get()) == 0 ? 0 : errno;
    return error == EINVAL || error == ENOSYS || error == ENOTSUP ? 0 : error;
}

QByteArray linkTarget(const QByteArray &link)
{
    std::error_code error;
    return QByteArray(fs::read_symlink(link.constData(), error).c_str());
}

QByteArray parentFolderOf(const QByteArray &path)
{
    fs::path file(path.constData());
    if (!file.has_filename())
        file = file.parent_path();
    const fs::path folder = file.parent_path();
    return folder.empty() ? QByteArray(".") : QByteArray(folder.c_str());
}

} // namespace sonavo
