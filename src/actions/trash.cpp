// Why not QFile::moveToTrash() or g_file_trash(): as of Qt 6.4, the first writes paths unescaped, only after
// the move and without checking whether that succeeded, retries forever when the Trash cannot be written,
// refuses broken links, and moves the file into the current folder when there is no data folder. As of
// GLib 2.74, the second overwrites a file in the Trash whose info file is missing, and leaves an empty info
// file when the disk is full.

#include "actions/trash.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <numeric>
#include <string>

namespace sonavo {
namespace {

namespace fs = std::filesystem;

constexpr mode_t OWNER_ONLY = 0700;
constexpr QLatin1String INFO_EXTENSION(".trashinfo");
/// What file systems allow, in bytes.
constexpr qsizetype MAX_NAME = 255;
/// With the dot, in characters; what is longer is no extension but part of the name.
constexpr qsizetype MAX_EXTENSION = 8;
/// Enough for any collection; ends the search on a file system that misbehaves.
constexpr int MAX_FILES_OF_ONE_NAME = 100'000;

struct Trash
{
    fs::path folder;
    /// What the paths of its files are relative to; empty where they are absolute.
    fs::path top;
};

fs::path nativePath(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

/// Identifies a mount: files can be renamed within one, but not from one into another, not even when both
/// show the same disk.
/// @return nothing on an error, which errno tells
std::optional<quint64> mountIdOf(const fs::path &path)
{
    struct statx status = {};
    if (::statx(AT_FDCWD, path.c_str(), 0, STATX_MNT_ID, &status) != 0)
        return std::nullopt;
    if ((status.stx_mask & STATX_MNT_ID) != 0)
        return status.stx_mnt_id;
    return quint64{status.stx_dev_major} << 32 | status.stx_dev_minor; // a kernel before 5.8
}

/// The same for a folder that may not exist yet.
std::optional<quint64> futureMountIdOf(fs::path folder)
{
    std::optional<quint64> id = mountIdOf(folder);
    while (!id && meansGone(errno) && folder.has_relative_path()) {
        folder = folder.parent_path();
        id = mountIdOf(folder);
    }
    return id;
}

/// @param id of the mount that the folder is on
/// @return nothing on an error, which errno tells
std::optional<fs::path> mountPointOf(fs::path folder, quint64 id)
{
    while (folder.has_relative_path()) {
        const std::optional<quint64> parentId = mountIdOf(folder.parent_path());
        if (!parentId)
            return std::nullopt;
        if (*parentId != id)
            break;
        folder = folder.parent_path();
    }
    return folder;
}

std::error_code makeFolder(const fs::path &folder)
{
    return ::mkdir(folder.c_str(), OWNER_ONLY) == 0 || errno == EEXIST ? std::error_code() : lastError();
}

/// On a disk that others can write to, a folder of the right name need not be ours.
std::error_code makeOwnFolder(const fs::path &folder)
{
    const bool isNew = ::mkdir(folder.c_str(), OWNER_ONLY) == 0;
    if (!isNew && errno != EEXIST)
        return lastError();
    struct stat status = {};
    if (::lstat(folder.c_str(), &status) != 0)
        return lastError();
    if (S_ISDIR(status.st_mode) && status.st_uid == ::geteuid())
        return {};
    if (isNew) // some file systems know only one owner
        ::rmdir(folder.c_str());
    return std::make_error_code(std::errc::permission_denied);
}

/// A Trash for all users, which an administrator has made, has to be a folder in which they cannot remove the
/// files of one another.
bool isSharedTrash(const fs::path &folder)
{
    struct stat status = {};
    return ::lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           (status.st_mode & S_ISVTX) != 0;
}

std::error_code makeTrashAtMountPoint(const fs::path &mountPoint, Trash &trash)
{
    const std::string user = std::to_string(::geteuid());
    trash = {mountPoint / ".Trash" / user, mountPoint};
    if (isSharedTrash(mountPoint / ".Trash") && !makeOwnFolder(trash.folder))
        return {};
    trash.folder = mountPoint / (".Trash-" + user);
    return makeOwnFolder(trash.folder);
}

std::error_code makeTrashInDataFolder(const fs::path &dataFolder, Trash &trash)
{
    trash = {dataFolder / "Trash", {}};
    std::error_code error;
    fs::create_directories(dataFolder, error);
    return error ? error : makeFolder(trash.folder);
}

/// Creates the Trash for the files of a folder, without its folders "info" and "files".
/// @param folder has no links in its path
std::error_code makeTrashFolderFor(const fs::path &folder, Trash &trash)
{
    const fs::path dataFolder =
        nativePath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    const auto homeDisk = futureMountIdOf(dataFolder / "Trash");
    const auto disk = homeDisk ? mountIdOf(folder) : std::nullopt;
    if (!disk)
        return lastError();
    if (disk == homeDisk)
        return makeTrashInDataFolder(dataFolder, trash);
    const auto mountPoint = mountPointOf(folder, *disk);
    return mountPoint ? makeTrashAtMountPoint(*mountPoint, trash) : lastError();
}

std::error_code makeTrashFor(const fs::path &folder, Trash &trash)
{
    std::error_code error = makeTrashFolderFor(folder, trash);
    if (!error)
        error = makeFolder(trash.folder / "info");
    if (!error)
        error = makeFolder(trash.folder / "files");
    return error;
}

/// The name in the Trash: the file's own, with a number where that is taken, and cut where the name of its
/// info file would get too long.
QString nameInTrash(const QString &name, int number)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    const bool hasExtension = dot > 0 && name.size() - dot <= MAX_EXTENSION;
    QString stem = hasExtension ? name.first(dot) : name;
    const QString extension = (number > 1 ? QStringLiteral(".%1").arg(number) : QString()) +
                              (hasExtension ? name.sliced(dot) : QString());
    while (QFile::encodeName(stem + extension).size() > MAX_NAME - INFO_EXTENSION.size())
        stem.chop(stem.back().isLowSurrogate() ? 2 : 1);
    return stem + extension;
}

/// The content of an info file.
QByteArray trashInfo(const fs::path &file, const Trash &trash)
{
    const fs::path path = trash.top.empty() ? file : file.lexically_relative(trash.top);
    return "[Trash Info]\nPath=" + QByteArray(path.c_str()).toPercentEncoding("/") +
           "\nDeletionDate=" + QDateTime::currentDateTime().toString(Qt::ISODate).toLatin1() + '\n';
}

std::error_code writeNew(const fs::path &path, QByteArrayView content)
{
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file < 0)
        return lastError();
    const ssize_t written = ::write(file, content.data(), static_cast<std::size_t>(content.size()));
    std::error_code error = written < 0 ? lastError() : std::error_code();
    if (written >= 0 && written < content.size())
        error = std::make_error_code(std::errc::no_space_on_device);
    if (::close(file) != 0 && !error) // where network file systems tell of a full disk
        error = lastError();
    if (error)
        ::unlink(path.c_str());
    return error;
}

/// Where a file of a name goes, and its info file.
struct Slot
{
    fs::path file;
    fs::path info;
};

Slot slotFor(const Trash &trash, const QString &name)
{
    return {trash.folder / "files" / nativePath(name),
            trash.folder / "info" / nativePath(name + INFO_EXTENSION)};
}

/// A number whose name is free, found by bisection: thousands of songs can have the same name. If the taken
/// numbers have gaps, it need not be the lowest.
int freeNumber(const Trash &trash, const QString &name)
{
    const auto isTaken = [&](int number) {
        const Slot slot = slotFor(trash, nameInTrash(name, number));
        std::error_code error;
        return fs::exists(fs::symlink_status(slot.info, error)) ||
               fs::exists(fs::symlink_status(slot.file, error));
    };
    int taken = 0;
    int free = 1;
    while (free < MAX_FILES_OF_ONE_NAME && isTaken(free)) {
        taken = free;
        free *= 2;
    }
    while (free - taken > 1) {
        const int middle = std::midpoint(taken, free);
        (isTaken(middle) ? taken : free) = middle;
    }
    return free;
}

std::error_code toErrorCode(int error)
{
    return {error, std::generic_category()};
}

QString describe(const std::error_code &error)
{
    return QString::fromLocal8Bit(error.message());
}

Failure unusableTrash(const QString &reason)
{
    return {QStringLiteral("The Trash of this disk cannot be used: %1").arg(reason)};
}

/// @param file in a folder without links
std::variant<TrashedFile, Failure> moveInto(const Trash &trash, const fs::path &file, const QString &name,
                                            const MoveOptions &options)
{
    const QByteArray from(file.c_str());
    const QByteArray info = trashInfo(file, trash);
    std::error_code error = std::make_error_code(std::errc::file_exists);
    // Somebody else can take the name first.
    for (int number = freeNumber(trash, name); number <= MAX_FILES_OF_ONE_NAME; ++number) {
        const Slot slot = slotFor(trash, nameInTrash(name, number));
        error = writeNew(slot.info, info);
        if (error == std::errc::file_exists)
            continue;
        if (error)
            return Failure{describe(error)};
        const QByteArray to(slot.file.c_str());
        const MoveResult result = renameWithoutReplacing(from, to, options);
        if (result.state == MoveResult::State::Moved)
            return TrashedFile{describeMove(from, to), QByteArray(slot.info.c_str())};
        // If uncertain, the file may be in the Trash, where it needs its info file.
        if (result.state == MoveResult::State::Uncertain)
            return toFailure(result, from, to);
        ::unlink(slot.info.c_str());
        error = toErrorCode(result.error);
        if (error == std::errc::cross_device_link)
            return unusableTrash(QStringLiteral("It is on another file system"));
        if (error != std::errc::file_exists)
            return Failure{describe(error)};
    }
    return Failure{describe(error)};
}

} // namespace

std::variant<TrashedFile, Failure> moveToTrash(const QString &path, const MoveOptions &options)
{
    std::error_code error;
    const fs::path given = fs::absolute(nativePath(path), error);
    const fs::file_status status = fs::symlink_status(given, error);
    if (error)
        return Failure{describe(error)};
    if (!fs::is_regular_file(status) && !fs::is_symlink(status))
        return Failure{QStringLiteral("Not a file")};
    const fs::path folder = fs::canonical(given.parent_path(), error);
    if (error)
        return Failure{describe(error)};

    Trash trash;
    error = makeTrashFor(folder, trash);
    if (error)
        return unusableTrash(describe(error));
    return moveInto(trash, folder / given.filename(), QFileInfo(path).fileName(), options);
}

PutBackResult restore(const TrashedFile &trashed, const MoveOptions &options)
{
    PutBackResult result = renameBack(trashed.file, options);
    if (result.state == PutBackResult::State::Back)
        ::unlink(trashed.infoFile.constData());
    return result;
}

} // namespace sonavo
