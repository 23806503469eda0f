// Why not QFile::moveToTrash() or g_file_trash(): as of Qt 6.4, the first writes paths unescaped, only after
// the move and without checking whether that succeeded, retries forever when the Trash cannot be written,
// refuses broken links, and moves the file into the current folder when there is no data folder. As of
// GLib 2.74, the second overwrites a file in the Trash whose info file is missing, and leaves an empty info
// file when the disk is full.

#include "actions/trash.h"

#include "actions/descriptor.h"
#include "actions/folders.h"
#include "actions/move_journal.h"
#include "actions/volume.h"
#include "model/file_name.h"
#include "model/translate.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

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

std::error_code toErrorCode(int error)
{
    return {error, std::generic_category()};
}

std::error_code lastError()
{
    return toErrorCode(errno);
}

QByteArray toBytes(const fs::path &path)
{
    return QByteArray(path.c_str());
}

std::error_code makeFolder(const fs::path &folder)
{
    return toErrorCode(makeFolders(toBytes(folder), OWNER_ONLY));
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
        return isNew ? toErrorCode(flushFolder(toBytes(folder.parent_path()))) : std::error_code();
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

std::error_code makeTrashAtTop(const fs::path &top, Trash &trash)
{
    const std::string user = std::to_string(::geteuid());
    trash = {top / ".Trash" / user, top};
    if (isSharedTrash(top / ".Trash") && !makeOwnFolder(trash.folder))
        return {};
    trash.folder = top / (".Trash-" + user);
    return makeOwnFolder(trash.folder);
}

/// Creates the Trash for the files of a folder, without its folders "info" and "files".
/// @param folder has no links in its path
std::error_code makeTrashFolderFor(const fs::path &folder, Trash &trash)
{
    const auto volume = volumeOf(folder);
    if (!volume)
        return lastError();
    const QString dataFolder = userDataFolder();
    if (!dataFolder.isEmpty()) {
        trash = {nativePath(dataFolder) / "Trash", {}};
        const auto homeVolume = futureVolumeOf(trash.folder);
        if (!homeVolume)
            return lastError();
        if (homeVolume == volume)
            return makeFolder(trash.folder);
    }
    const auto top = topOf(*volume, folder);
    return top ? makeTrashAtTop(*top, trash) : lastError();
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
    const QString extension = (number > 1 ? QStringLiteral(".%1").arg(number) : QString()) +
                              (hasExtension ? name.sliced(dot) : QString());
    return joinedFileName(hasExtension ? name.first(dot) : name, extension,
                          MAX_FILE_NAME - INFO_EXTENSION.size());
}

/// The content of an info file.
QByteArray trashInfo(const fs::path &file, const Trash &trash)
{
    const fs::path path = trash.top.empty() ? file : file.lexically_relative(trash.top);
    return "[Trash Info]\nPath=" + QByteArray(path.c_str()).toPercentEncoding("/") +
           "\nDeletionDate=" + QDateTime::currentDateTime().toString(Qt::ISODate).toLatin1() + '\n';
}

/// Writes a new file and flushes it to the disk.
/// @return an error number, 0 for success
int writeNew(const fs::path &path, const QByteArray &content)
{
    Descriptor file(toBytes(path), O_WRONLY | O_CREAT | O_EXCL, 0600);
    if (file.error() != 0)
        return file.error();
    int error = file.write(content);
    if (error == 0 && ::fsync(file.get()) != 0)
        error = errno;
    if (const int closingError = file.close(); error == 0)
        error = closingError;
    if (error == 0)
        error = flushFolder(toBytes(path.parent_path()));
    if (error != 0)
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

Failure unusableTrash(const QString &reason)
{
    return {translate("Trash", "The Trash of this disk cannot be used: %1", "%1 is the reason").arg(reason)};
}

/// Whether a file is certainly still at its old path and not at the new one.
/// @param before a snapshot of the file at its old path
bool isProvenNotMoved(const std::variant<FileSnapshot, int> &before, const QByteArray &from,
                      const QByteArray &to)
{
    const auto *old = std::get_if<FileSnapshot>(&before);
    const auto atOldPath = takeSnapshot(from);
    const auto *now = std::get_if<FileSnapshot>(&atOldPath);
    return old && now && isSameFile(*old, *now) && isNothingAt(to);
}

MoveJournal::Entry recordInfo(const TrashedFile &trashed, MoveJournal *journal)
{
    return MoveJournal::recordIn(journal, {.kind = Leftover::Kind::Note,
                                           .path = trashed.infoFile,
                                           .finalPath = trashed.file.path,
                                           .source = trashed.file.originalPath,
                                           .content = trashed.info});
}

void keepUnlessGone(const TrashedFile &trashed, MoveJournal::Entry &entry)
{
    if (!isNothingAt(trashed.infoFile))
        entry.keep();
}

/// Removes an info file unless somebody has changed it. What is left over stays in the record.
void removeInfo(const TrashedFile &trashed, MoveJournal::Entry &entry)
{
    QFile info(QFile::decodeName(trashed.infoFile));
    const bool isOurs = info.open(QIODevice::ReadOnly) && info.read(trashed.info.size() + 1) == trashed.info;
    if (!isOurs || ::unlink(trashed.infoFile.constData()) != 0)
        keepUnlessGone(trashed, entry);
}

/// Moves a file to a slot in the Trash unless somebody else has taken it: then NotMoved with EEXIST.
MoveResult fillSlot(TrashedFile &trashed, const MoveOptions &options)
{
    const QByteArray from = trashed.file.originalPath;
    const QByteArray to = trashed.file.path;
    MoveJournal::Entry entry = recordInfo(trashed, options.journal);
    if (const int error = writeNew(trashed.infoFile.constData(), trashed.info)) {
        if (error != EEXIST)
            keepUnlessGone(trashed, entry);
        return {.state = MoveResult::State::NotMoved, .error = error};
    }
    const auto before = takeSnapshot(from);
    MoveResult result = renameWithoutReplacing(from, to, options);
    if (result.state == MoveResult::State::Uncertain && isProvenNotMoved(before, from, to))
        result.state = MoveResult::State::NotMoved;
    if (result.state == MoveResult::State::Moved)
        trashed.file = describeMove(from, to);
    else if (result.state == MoveResult::State::NotMoved)
        removeInfo(trashed, entry);
    else // the file may be in the Trash, where it needs its info file
        entry.keep();
    return result;
}

/// @param file in a folder without links
std::variant<TrashedFile, Failure> moveInto(const Trash &trash, const fs::path &file, const QString &name,
                                            const MoveOptions &options)
{
    const QByteArray from = toBytes(file);
    const QByteArray info = trashInfo(file, trash);
    // Somebody else can take a free name first.
    for (int number = freeNumber(trash, name); number <= MAX_FILES_OF_ONE_NAME; ++number) {
        const Slot slot = slotFor(trash, nameInTrash(name, number));
        TrashedFile trashed{{from, toBytes(slot.file), {}}, toBytes(slot.info), info};
        const MoveResult result = fillSlot(trashed, options);
        if (result.state == MoveResult::State::Moved)
            return trashed;
        if (result.state == MoveResult::State::NotMoved && result.error == EXDEV)
            return unusableTrash(translate("Trash", "It is on another file system", "the Trash"));
        if (result.state != MoveResult::State::NotMoved || result.error != EEXIST)
            return toFailure(result, from, trashed.file.path);
    }
    return Failure{errorText(EEXIST)};
}

} // namespace

std::variant<TrashedFile, Failure> moveToTrash(const QString &path, const MoveOptions &options)
{
    std::error_code error;
    const fs::path given = fs::absolute(nativePath(path), error);
    const fs::file_status status = fs::symlink_status(given, error);
    if (error)
        return Failure{errorText(error.value())};
    if (!fs::is_regular_file(status) && !fs::is_symlink(status))
        return Failure{translate("Trash", "Not a file")};
    const fs::path folder = fs::canonical(given.parent_path(), error);
    if (error)
        return Failure{errorText(error.value())};

    Trash trash;
    error = makeTrashFor(folder, trash);
    if (error)
        return unusableTrash(errorText(error.value()));
    return moveInto(trash, folder / given.filename(), QFileInfo(path).fileName(), options);
}

PutBackResult restore(const TrashedFile &trashed, const MoveOptions &options)
{
    MoveJournal::Entry entry = recordInfo(trashed, options.journal);
    PutBackResult result = renameBack(trashed.file, options);
    if (result.state == PutBackResult::State::Back)
        removeInfo(trashed, entry);
    else if (std::holds_alternative<int>(takeSnapshot(trashed.file.path)))
        entry.keep(); // it may be back
    return result;
}

} // namespace sonavo
