#include "actions/put_back.h"

#include "actions/folders.h"
#include "actions/volume.h"
#include "model/translate.h"
#include "model/visible_controls.h"

#include <QFile>
#include <QList>

#include <sys/vfs.h>
#include <unistd.h>

#include <linux/magic.h>

namespace sonavo {
namespace {

using PutBackState = PutBackResult::State;

PutBackResult stays(const QString &reason)
{
    return {PutBackState::Stays, reason};
}

/// Whether a file is the one that was moved away, where it was before. It is another inode if it was on
/// another disk meanwhile.
bool isBack(const FileSnapshot &now, FileSnapshot moved)
{
    moved.hasLastingInode = moved.hasLastingInode && moved.device == now.device;
    return isSameFile(now, moved);
}

/// Whether the disk that a path was on is there: where it is not, no path on it leads anywhere.
/// @param device of the file that was there
bool isDiskThere(const QByteArray &path, dev_t device)
{
    QByteArray folder = parentFolderOf(path);
    auto snapshot = takeSnapshot(folder + "/.");
    while (std::holds_alternative<int>(snapshot) && folder != parentFolderOf(folder)) {
        folder = parentFolderOf(folder);
        snapshot = takeSnapshot(folder + "/.");
    }
    struct statfs status = {};
    // In an overlay, files and folders can have different devices.
    const bool isOverlay =
        ::statfs(folder.constData(), &status) == 0 && status.f_type == OVERLAYFS_SUPER_MAGIC;
    const auto *now = std::get_if<FileSnapshot>(&snapshot);
    return isOverlay || (now && now->device == device);
}

/// Without this, a file could get to the folder on which its disk is to be mounted, and be hidden by that.
bool isOriginalVolumeThere(const MovedFile &file)
{
    return file.originalTop.isEmpty() || volumeTopOf(file.originalPath) == file.originalTop;
}

PutBackResult missesDiskOf(const QByteArray &path)
{
    return stays(translate("PutBack", "The disk of %1 is not there", "%1 is a path")
                     .arg(pathInText(QFile::decodeName(path))));
}

/// The folders that are missing on the way to a file, the deepest first.
QList<QByteArray> missingFoldersOf(const QByteArray &file)
{
    QList<QByteArray> missing;
    QByteArray folder = parentFolderOf(file);
    while (std::holds_alternative<int>(takeSnapshot(folder)) && folder != parentFolderOf(folder)) {
        missing.append(folder);
        folder = parentFolderOf(folder);
    }
    return missing;
}

/// When the file is not where it was moved to.
/// @param error of looking there; 0 when another file is there
PutBackResult lookAtOldPath(const MovedFile &file, int error)
{
    const QString path = QFile::decodeName(file.path);
    const auto snapshot = lookAt(file.originalPath);
    const auto *now = std::get_if<FileSnapshot>(&snapshot);
    if (now && file.snapshot && isBack(*now, *file.snapshot))
        return {PutBackState::Back, {}, *now};
    if (error == 0)
        return stays(
            translate("PutBack", "The file at %1 is not the one that was moved there", "%1 is a path")
                .arg(pathInText(path)));
    if (!meansGone(error))
        return stays(errorText(error));
    if (file.snapshot && !isDiskThere(file.path, file.snapshot->device))
        return missesDiskOf(file.path);
    if (!isOriginalVolumeThere(file))
        return missesDiskOf(file.originalPath);
    if (!now && !meansGone(std::get<int>(snapshot)))
        return stays(errorText(std::get<int>(snapshot)));
    return {PutBackState::Gone,
            translate("PutBack", "The file is neither at %1 nor at %2 any more", "two paths")
                .arg(pathInText(path), pathInText(QFile::decodeName(file.originalPath)))};
}

PutBackResult moveBackWith(MoveResult (*move)(const QByteArray &, const QByteArray &, const MoveOptions &),
                           const MovedFile &file, MoveOptions options)
{
    options.linkTarget = file.linkTarget;
    const auto snapshot = lookAt(file.path);
    const auto *now = std::get_if<FileSnapshot>(&snapshot);
    if (!now || !file.snapshot || !isSameFileAfterRemount(*now, *file.snapshot))
        return lookAtOldPath(file, now ? 0 : std::get<int>(snapshot));
    if (!isOriginalVolumeThere(file))
        return missesDiskOf(file.originalPath);
    const QList<QByteArray> newFolders = missingFoldersOf(file.originalPath);
    const int error = makeFolders(parentFolderOf(file.originalPath));
    const MoveResult result = error == 0 ? move(file.path, file.originalPath, options)
                                         : MoveResult{MoveResult::State::NotMoved, error};
    if (result.state != MoveResult::State::Moved) {
        for (const QByteArray &folder : newFolders)
            ::rmdir(folder.constData()); // only if nothing is in it
        return stays(toFailure(result, file.path, file.originalPath).reason);
    }
    auto back = describeMove(file.path, file.originalPath, result).snapshot;
    if (back && !isBack(*back, *file.snapshot))
        back.reset(); // somebody has replaced it already
    return {PutBackState::Back, {}, back};
}

} // namespace

PutBackResult renameBack(const MovedFile &file, const MoveOptions &options)
{
    return moveBackWith(renameWithoutReplacing, file, options);
}

PutBackResult moveBack(const MovedFile &file, const MoveOptions &options)
{
    return moveBackWith(moveWithoutReplacing, file, options);
}

} // namespace sonavo
