// Why not QFile::moveToTrash() or g_file_trash(): as of Qt 6.4, the first writes paths unescaped, only after
// the move and without looking whether that succeeded, tries forever when the Trash cannot be written,
// refuses broken links, and moves the file into the current folder when there is no data folder. As of
// GLib 2.74, the second overwrites a file in the Trash whose note is missing, and leaves an empty note when
// the disk is full.

#include "actions/trash.h"

#include "actions/file_operations.h"

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

constexpr mode_t ONLY_THE_OWNER = 0700;
constexpr QLatin1String NOTE_ENDING(".trashinfo");
/// What file systems allow, in bytes.
constexpr qsizetype LONGEST_NAME = 255;
/// In characters; what is longer is no ending but part of the name.
constexpr qsizetype LONGEST_ENDING = 8;
/// Enough for any collection; a file system with strange answers must not keep us forever.
constexpr int MOST_OF_ONE_NAME = 100'000;

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

/// Tells the mounts apart: files can be renamed within one, but not from one into another, not even when both
/// show the same disk.
/// @return 0 where nothing is
quint64 mountOf(const fs::path &path)
{
    struct statx status = {};
    if (::statx(AT_FDCWD, path.c_str(), 0, STATX_MNT_ID, &status) != 0)
        return 0;
    if ((status.stx_mask & STATX_MNT_ID) != 0)
        return status.stx_mnt_id;
    return quint64{status.stx_dev_major} << 32 | status.stx_dev_minor; // a kernel before 5.8
}

fs::path nearestExisting(fs::path path)
{
    while (mountOf(path) == 0 && path.has_relative_path())
        path = path.parent_path();
    return path;
}

fs::path topOfMount(fs::path folder)
{
    while (folder.has_relative_path() && mountOf(folder.parent_path()) == mountOf(folder))
        folder = folder.parent_path();
    return folder;
}

std::error_code makeFolder(const fs::path &folder)
{
    return ::mkdir(folder.c_str(), ONLY_THE_OWNER) == 0 || errno == EEXIST ? std::error_code() : lastError();
}

/// On a disk that others can write to, a folder of the right name need not be ours.
std::error_code makeOwnFolder(const fs::path &folder)
{
    const bool isNew = ::mkdir(folder.c_str(), ONLY_THE_OWNER) == 0;
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

/// A Trash for all, which an administrator has made, has to be a folder in which people cannot remove the
/// files of one another.
bool isSharedTrash(const fs::path &folder)
{
    struct stat status = {};
    return ::lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           (status.st_mode & S_ISVTX) != 0;
}

std::error_code makeTrashAtTop(const fs::path &top, Trash &trash)
{
    const std::string user = std::to_string(::geteuid());
    trash = {top / ".Trash" / user, top};
    if (isSharedTrash(top / ".Trash") && !makeOwnFolder(trash.folder))
        return {};
    trash.folder = top / (".Trash-" + user);
    return makeOwnFolder(trash.folder);
}

std::error_code makeTrashInDataFolder(const fs::path &dataFolder, Trash &trash)
{
    trash = {dataFolder / "Trash", {}};
    std::error_code error;
    fs::create_directories(dataFolder, error);
    return error ? error : makeFolder(trash.folder);
}

/// @param folder where the file is, without links
std::error_code makeTrashFor(const fs::path &folder, Trash &trash)
{
    const fs::path dataFolder =
        nativePath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    const bool isAtHome = mountOf(nearestExisting(dataFolder / "Trash")) == mountOf(folder);
    std::error_code error =
        isAtHome ? makeTrashInDataFolder(dataFolder, trash) : makeTrashAtTop(topOfMount(folder), trash);
    if (!error)
        error = makeFolder(trash.folder / "info");
    if (!error)
        error = makeFolder(trash.folder / "files");
    return error;
}

/// The name in the Trash: the file's own, with a number where that is taken, and cut where the name of its
/// note would get too long.
QString nameInTrash(const QString &name, int number)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    const bool hasEnding = dot > 0 && name.size() - dot <= LONGEST_ENDING;
    QString stem = hasEnding ? name.first(dot) : name;
    const QString ending = (number > 1 ? QStringLiteral(".%1").arg(number) : QString()) +
                           (hasEnding ? name.sliced(dot) : QString());
    while (QFile::encodeName(stem + ending).size() > LONGEST_NAME - NOTE_ENDING.size())
        stem.chop(stem.back().isLowSurrogate() ? 2 : 1);
    return stem + ending;
}

/// What file managers restore a file by.
QByteArray noteAbout(const fs::path &file, const Trash &trash)
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

std::error_code renameToNew(const fs::path &from, const fs::path &to)
{
    return {renameWithoutReplacing(from.c_str(), to.c_str()), std::generic_category()};
}

fs::path placeOfNote(const Trash &trash, const QString &name)
{
    return trash.folder / "info" / nativePath(name + NOTE_ENDING);
}

fs::path placeOfFile(const Trash &trash, const QString &name)
{
    return trash.folder / "files" / nativePath(name);
}

/// The first number whose name is free, without a look at every one before: thousands of songs can have one
/// name. Where the numbers have gaps, it is the first behind some name that is taken.
int freeNumber(const Trash &trash, const QString &name)
{
    const auto isTaken = [&](int number) {
        const QString candidate = nameInTrash(name, number);
        std::error_code error;
        return fs::exists(fs::symlink_status(placeOfNote(trash, candidate), error)) ||
               fs::exists(fs::symlink_status(placeOfFile(trash, candidate), error));
    };
    int taken = 0;
    int free = 1;
    while (free < MOST_OF_ONE_NAME && isTaken(free)) {
        taken = free;
        free *= 2;
    }
    while (free - taken > 1) {
        const int middle = std::midpoint(taken, free);
        (isTaken(middle) ? taken : free) = middle;
    }
    return free;
}

/// @param file in a folder without links
std::error_code moveInto(const Trash &trash, const fs::path &file, const QString &name)
{
    const std::error_code isTaken = std::make_error_code(std::errc::file_exists);
    const QByteArray content = noteAbout(file, trash);
    std::error_code error = isTaken;
    // Somebody else can take the name first.
    for (int number = freeNumber(trash, name); error == isTaken && number <= MOST_OF_ONE_NAME; ++number) {
        const QString newName = nameInTrash(name, number);
        const fs::path note = placeOfNote(trash, newName);
        error = writeNew(note, content);
        if (error)
            continue;
        error = renameToNew(file, placeOfFile(trash, newName));
        if (error)
            ::unlink(note.c_str());
    }
    return error;
}

QString textOf(const std::error_code &error)
{
    return QString::fromLocal8Bit(error.message());
}

Failure unusableTrash(const QString &reason)
{
    return {QStringLiteral("The Trash of this disk cannot be used: %1").arg(reason)};
}

} // namespace

std::optional<Failure> moveToTrash(const QString &path)
{
    std::error_code error;
    const fs::path given = fs::absolute(nativePath(path), error);
    const fs::file_status status = fs::symlink_status(given, error);
    if (error)
        return Failure{textOf(error)};
    if (!fs::is_regular_file(status) && !fs::is_symlink(status))
        return Failure{QStringLiteral("Not a file")};
    const fs::path folder = fs::canonical(given.parent_path(), error);
    if (error)
        return Failure{textOf(error)};

    Trash trash;
    error = makeTrashFor(folder, trash);
    if (error)
        return unusableTrash(textOf(error));
    error = moveInto(trash, folder / given.filename(), QFileInfo(path).fileName());
    if (error == std::errc::cross_device_link)
        return unusableTrash(QStringLiteral("It is on another file system"));
    return error ? std::optional(Failure{textOf(error)}) : std::nullopt;
}

} // namespace sonavo
