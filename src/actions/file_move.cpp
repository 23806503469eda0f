#include "actions/file_move.h"

#include <QFile>
#include <QTemporaryFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <vector>

namespace sonavo {
namespace {

using State = MoveResult::State;

const MoveResult MOVED{};

MoveResult notMoved(int error)
{
    return {.state = State::NotMoved, .error = error};
}

/// @param error 0 where every call reported success, but its result could not be found
MoveResult uncertain(int error)
{
    return {.state = State::Uncertain, .error = error != 0 ? error : EIO};
}

/// The folder of a path, with a slash at its end.
QByteArray folderOf(const QByteArray &path)
{
    const qsizetype nameStart = path.lastIndexOf('/') + 1;
    return nameStart > 0 ? path.first(nameStart) : QByteArray("./");
}

/// @return 0 when nothing is at a path, EEXIST when something is, or the error that left it undecided
int errorIfTaken(const QByteArray &path)
{
    const auto snapshot = takeSnapshot(path);
    const auto *error = std::get_if<int>(&snapshot);
    if (!error)
        return EEXIST;
    return *error == ENOENT ? 0 : *error;
}

/// @return nothing when there is no file at a path, or the file system does not tell
std::optional<KnownFile> fileAt(const QByteArray &path)
{
    const auto snapshot = takeSnapshot(path);
    const auto *file = std::get_if<FileSnapshot>(&snapshot);
    return file ? std::optional(KnownFile{path, *file}) : std::nullopt;
}

/// Undoes a move whose old name is still there.
MoveResult removeNewName(const KnownFile &made, int error)
{
    // Somebody can have put another file there, or changed this one.
    if (isUntouched(made) && ::unlink(made.path.constData()) == 0)
        return notMoved(error);
    return stateOf(made) == FileState::Gone ? notMoved(error) : uncertain(error);
}

/// The last step of a move that takes several: the new name is there, the old one is removed if nobody has
/// touched the file since `old` was taken.
MoveResult removeOldName(const KnownFile &old, const KnownFile &made)
{
    int error = EBUSY;
    if (isUntouched(old)) {
        if (::unlink(old.path.constData()) == 0)
            return MOVED;
        error = errno;
        if (isUntouched(old))
            return removeNewName(made, error);
    }
    const bool isMoved = stateOf(old) == FileState::Gone && stateOf(made) == FileState::Same;
    return isMoved ? MOVED : uncertain(error);
}

/// Network file systems cannot refuse to replace in one step, but most of them can give a file a second name.
MoveResult linkAndUnlink(const QByteArray &from, const QByteArray &to)
{
    const auto before = openAndTakeSnapshot(from);
    if (const auto *unreadable = std::get_if<int>(&before))
        return notMoved(*unreadable);
    const int error = ::link(from.constData(), to.constData()) == 0 ? 0 : errno;
    const auto made = fileAt(to);
    if (!made)
        return error != 0 && errorIfTaken(to) == 0 ? notMoved(error) : uncertain(error);
    const auto &old = std::get<FileSnapshot>(before);
    if (error != 0 && !isSameFile(made->snapshot, old))
        return notMoved(error);
    // The second name has changed the number of links and the time of the last change.
    const auto linked = openAndTakeSnapshot(from);
    const auto *now = std::get_if<FileSnapshot>(&linked);
    return now && isSameFile(*now, old) ? removeOldName({from, *now}, *made) : uncertain(error);
}

QByteArray targetOf(const QByteArray &link)
{
    std::error_code error;
    return QByteArray(std::filesystem::read_symlink(link.constData(), error).c_str());
}

/// Creates a new symbolic link that leads to the same file from its new folder, and removes the old one.
MoveResult moveLink(const KnownFile &old, const QByteArray &to)
{
    namespace fs = std::filesystem;
    const fs::path link(old.path.constData());
    std::error_code error;
    fs::path target = fs::read_symlink(link, error);
    if (!error && target.is_relative())
        target = fs::canonical(folderOf(old.path).constData(), error) / target;
    if (error)
        return notMoved(error.value());
    if (const int reason = errorIfTaken(to))
        return notMoved(reason);

    const int creation = ::symlink(target.c_str(), to.constData()) == 0 ? 0 : errno;
    const auto made = fileAt(to);
    if (!made)
        return creation != 0 && errorIfTaken(to) == 0 ? notMoved(creation) : uncertain(creation);
    if (creation != 0 && targetOf(to) != target.c_str())
        return notMoved(creation);
    return removeOldName(old, *made);
}

/// An open file, or an error number.
class Descriptor
{
public:
    Descriptor(const QByteArray &path, int flags)
        : m_descriptor(::open(path.constData(), flags | O_CLOEXEC))
        , m_error(m_descriptor < 0 ? errno : 0)
    {}
    ~Descriptor()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    Q_DISABLE_COPY_MOVE(Descriptor)

    [[nodiscard]] int get() const { return m_descriptor; }
    [[nodiscard]] int error() const { return m_error; }

private:
    int m_descriptor;
    int m_error;
};

/// @return an error number, 0 for success
int writeAll(int target, const char *data, ssize_t size)
{
    while (size > 0) {
        const ssize_t written = ::write(target, data, static_cast<std::size_t>(size));
        if (written < 0)
            return errno;
        data += written;
        size -= written;
    }
    return 0;
}

/// @return an error number, 0 for success
int copyContent(int source, int target)
{
    constexpr std::size_t CHUNK = 1024 * 1024;
    std::vector<char> chunk(CHUNK);
    ssize_t size = 0;
    while ((size = ::read(source, chunk.data(), CHUNK)) > 0) {
        if (const int error = writeAll(target, chunk.data(), size))
            return error;
    }
    return size < 0 ? errno : 0;
}

/// Gives a copy the permissions and times of its source, as far as its file system supports them. The copy
/// belongs to the user, so the source's set-user-ID, set-group-ID and sticky bits are not copied.
/// @return an error number, 0 for success
int keepAttributes(int source, int target)
{
    struct stat status = {};
    if (::fstat(source, &status) != 0)
        return errno;
    constexpr mode_t PERMISSIONS = 0777;
    const timespec times[] = {status.st_atim, status.st_mtim};
    [[maybe_unused]] const int ignored =
        ::fchmod(target, status.st_mode & PERMISSIONS) | ::futimens(target, times);
    return 0;
}

/// Copies a file and flushes the copy to the disk.
/// @return an error number, 0 when `target` is a complete copy and `source` has not changed meanwhile
int copyFile(int source, const FileSnapshot &before, int target)
{
    if (const int error = copyContent(source, target))
        return error;
    if (const int error = keepAttributes(source, target))
        return error;
    if (::fsync(target) != 0)
        return errno;
    const auto after = takeSnapshot(source);
    const auto copied = takeSnapshot(target);
    const auto *now = std::get_if<FileSnapshot>(&after);
    if (!now || !isUntouched(*now, before))
        return EBUSY;
    const auto *copy = std::get_if<FileSnapshot>(&copied);
    return copy && copy->size == before.size ? 0 : EIO;
}

/// Makes renames and new files in a folder survive a loss of power, on file systems that support it.
/// @return an error number, 0 for success
int flushFolder(const QByteArray &folder)
{
    const Descriptor descriptor(folder, O_RDONLY | O_DIRECTORY);
    if (descriptor.error() != 0)
        return descriptor.error();
    const int error = ::fsync(descriptor.get()) == 0 ? 0 : errno;
    return error == EINVAL || error == ENOSYS || error == ENOTSUP ? 0 : error;
}

MoveResult moveByCopying(const QByteArray &from, const QByteArray &to)
{
    // Fails now rather than after everything has been copied for nothing.
    if (::access(folderOf(from).constData(), W_OK | X_OK) != 0)
        return notMoved(errno);
    const Descriptor source(from, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    if (source.error() != 0)
        return notMoved(source.error());
    const auto before = takeSnapshot(source.get());
    if (const auto *error = std::get_if<int>(&before))
        return notMoved(*error);
    const KnownFile old{from, std::get<FileSnapshot>(before)};

    QTemporaryFile copy(QFile::decodeName(folderOf(to)) + QStringLiteral(".sonavo-XXXXXX"));
    errno = 0;
    if (!copy.open())
        return notMoved(errno != 0 ? errno : EIO);
    if (const int error = copyFile(source.get(), old.snapshot, copy.handle()))
        return notMoved(error);

    const MoveResult placed = renameWithoutReplacing(QFile::encodeName(copy.fileName()), to);
    if (placed.state != State::Moved)
        return placed;
    copy.setAutoRemove(false);
    const auto made = fileAt(to);
    const int error = flushFolder(folderOf(to));
    if (!made)
        return uncertain(EIO);
    if (error != 0)
        return isUntouched(old) ? removeNewName(*made, error) : uncertain(error);
    return removeOldName(old, *made);
}

QString describe(int error)
{
    return QString::fromLocal8Bit(std::generic_category().message(error));
}

PutBackResult moveBackWith(MoveResult (*move)(const QByteArray &, const QByteArray &, const MoveOptions &),
                           const MovedFile &file, const MoveOptions &options)
{
    if (!file.snapshot || stateOf({file.path, *file.snapshot}) != FileState::Same)
        return {PutBackResult::State::Stays,
                QStringLiteral("The file at %1 is not the one that was moved there")
                    .arg(QFile::decodeName(file.path))};
    const MoveResult result = move(file.path, file.originalPath, options);
    if (result.state == State::Moved)
        return {};
    return {PutBackResult::State::Stays, toFailure(result, file.path, file.originalPath).reason};
}

} // namespace

MoveResult renameWithoutReplacing(const QByteArray &from, const QByteArray &to,
                                  [[maybe_unused]] const MoveOptions &options)
{
    const auto snapshot = takeSnapshot(from);
    if (const auto *error = std::get_if<int>(&snapshot))
        return notMoved(*error);
    // Both names could be links to one file; afterwards it would be unknown whether the new name is ours.
    if (const int reason = errorIfTaken(to))
        return notMoved(reason);

    const KnownFile old{from, std::get<FileSnapshot>(snapshot)};
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return MOVED;
    const int error = errno;
    if (error == EINVAL || error == ENOSYS)
        return linkAndUnlink(from, to);
    const FileState atOldName = stateOf(old);
    const FileState atNewName = stateOf({to, old.snapshot});
    if (atOldName == FileState::Same && atNewName != FileState::Same)
        return notMoved(error);
    return atOldName == FileState::Gone && atNewName == FileState::Same ? MOVED : uncertain(error);
}

MoveResult moveWithoutReplacing(const QByteArray &from, const QByteArray &to, const MoveOptions &options)
{
    const auto snapshot = takeSnapshot(from);
    if (const auto *error = std::get_if<int>(&snapshot))
        return notMoved(*error);
    const KnownFile old{from, std::get<FileSnapshot>(snapshot)};
    if (S_ISLNK(old.snapshot.mode))
        return moveLink(old, to);
    const MoveResult renamed = renameWithoutReplacing(from, to, options);
    const bool isOtherDisk = renamed.state == State::NotMoved && renamed.error == EXDEV;
    return isOtherDisk && S_ISREG(old.snapshot.mode) ? moveByCopying(from, to) : renamed;
}

Failure toFailure(const MoveResult &result, const QByteArray &from, const QByteArray &to)
{
    if (result.state != State::Uncertain)
        return {describe(result.error)};
    return {QStringLiteral("It is not certain that the file was moved (%1). Look for it at %2 and at %3.")
                .arg(describe(result.error), QFile::decodeName(from), QFile::decodeName(to))};
}

MovedFile describeMove(const QByteArray &from, const QByteArray &to)
{
    const auto made = fileAt(to);
    return {from, to, made ? std::optional(made->snapshot) : std::nullopt};
}

PutBackResult renameBack(const MovedFile &file, const MoveOptions &options)
{
    return moveBackWith(renameWithoutReplacing, file, options);
}

PutBackResult moveBack(const MovedFile &file, const MoveOptions &options)
{
    return moveBackWith(moveWithoutReplacing, file, options);
}

} // namespace sonavo
