#include "actions/file_move.h"

#include "actions/descriptor.h"
#include "actions/file_copy.h"
#include "actions/file_removal.h"
#include "actions/folders.h"
#include "actions/move_journal.h"
#include "model/translate.h"
#include "model/visible_controls.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <utility>
#include <variant>

namespace sonavo {
namespace {

using State = MoveResult::State;

const MoveResult MOVED{};

MoveResult notMoved(int error)
{
    return {.state = State::NotMoved, .error = error};
}

/// @param error 0 where every call reported success, but its result could not be found
MoveResult uncertain(int error, const QByteArray &leftAt = {})
{
    return {.state = State::Uncertain, .error = error != 0 ? error : EIO, .leftAt = leftAt};
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

/// What can be left over is known to the next start.
MoveResult finish(MoveJournal::Entry &entry, const MoveResult &result)
{
    if (result.state == State::Uncertain)
        entry.keep();
    return result;
}

/// Undoes a move whose old name is still there.
MoveResult removeNewName(const KnownFile &made, int error, const MoveOptions &options)
{
    // Somebody can have put another file there, or changed this one.
    if (isUntouched(made)) {
        const RemovalResult removal = removeFile(made, options.journal);
        if (removal.state != RemovalResult::State::Removed)
            return uncertain(error, removal.leftAt);
    }
    return stateOfName(made) == FileState::Gone ? notMoved(error) : uncertain(error);
}

/// The last step of a move that takes several: the new name is there, the old one is removed if nobody has
/// touched the file since `old` was taken.
MoveResult removeOldName(const KnownFile &old, const KnownFile &made, const MoveOptions &options)
{
    RemovalResult removal{RemovalResult::State::Uncertain, EBUSY};
    if (isUntouched(old))
        removal = removeFile(old, options.journal);
    if (removal.state == RemovalResult::State::Removed)
        return MOVED;
    if (removal.state == RemovalResult::State::Kept) {
        // A second name of the file has seen the renaming.
        const auto now = fileAt(made.path);
        const bool isSame = now && isSameFile(now->snapshot, made.snapshot);
        return removeNewName(isSame ? *now : made, removal.error, options);
    }
    const bool isMoved = removal.leftAt.isEmpty() && stateOfName(old) == FileState::Gone &&
                         stateOfName(made) == FileState::Same;
    return isMoved ? MOVED : uncertain(removal.error, removal.leftAt);
}

/// An empty file of our own.
struct Placeholder
{
    MoveJournal::Entry entry;
    KnownFile file;
};

/// Takes the new name of a file that is to be moved.
/// @return as in errno if that failed; what could be left over is known to the next start
std::variant<Placeholder, int> makePlaceholder(const KnownFile &old, const QByteArray &to,
                                               const MoveOptions &options)
{
    auto entry = MoveJournal::recordIn(options.journal, {.kind = Leftover::Kind::Placeholder,
                                                         .path = to,
                                                         .source = old.path,
                                                         .sourceSnapshot = old.snapshot});
    constexpr mode_t OWNER_ONLY = 0600;
    // Closed before it is replaced: shares of Windows refuse to replace a file that is open.
    Descriptor file(to, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, OWNER_ONLY);
    const auto snapshot = takeSnapshot(file.get());
    if (file.error() != 0 || std::holds_alternative<int>(snapshot)) {
        if (!isNothingAt(to))
            entry.keep();
        return file.error() != 0 ? file.error() : std::get<int>(snapshot);
    }
    const KnownFile made{to, std::get<FileSnapshot>(snapshot)};
    entry.made(made.snapshot);
    const bool isOurs = isUntouched(made);
    file.close();
    if (isOurs)
        return Placeholder{std::move(entry), made};
    entry.keep(); // it can be that only the look failed
    return EIO;
}

/// Whether a disk takes a name shows only when a file gets it. Better now than after a long copy.
/// @return as in errno; 0 if the name can be given, and is free again
int tryName(const KnownFile &old, const QByteArray &name, const MoveOptions &options)
{
    auto made = makePlaceholder(old, name, options);
    if (const int *error = std::get_if<int>(&made))
        return *error;
    auto &placeholder = std::get<Placeholder>(made);
    // Network shares may set the times of a file once more when it is closed.
    const auto now = fileAt(name);
    const bool isStillEmpty = now && S_ISREG(now->snapshot.mode) && now->snapshot.size == 0;
    const MoveResult removed = removeNewName(isStillEmpty ? *now : placeholder.file, EIO, options);
    return finish(placeholder.entry, removed).state == State::NotMoved ? 0 : EIO;
}

/// The last resort, for FUSE and the shared folders of virtual machines: an empty file takes the name, and is
/// replaced.
MoveResult renameOverPlaceholder(const KnownFile &old, const QByteArray &to, const MoveOptions &options)
{
    auto made = makePlaceholder(old, to, options);
    if (const int *error = std::get_if<int>(&made))
        return notMoved(*error);
    auto &[entry, placeholder] = std::get<Placeholder>(made);

    const int error = ::rename(old.path.constData(), to.constData()) == 0 ? 0 : errno;
    const FileState atOldName = stateOfName(old);
    if (atOldName == FileState::Gone && stateOfName({to, old.snapshot}) == FileState::Same)
        return MOVED;
    if (atOldName != FileState::Same)
        return finish(entry, uncertain(error));
    if (removeNewName(placeholder, error, options).state == State::Uncertain)
        entry.keep(); // only an empty file is left over
    return notMoved(error != 0 ? error : EIO);
}

bool hasNoHardLinks(int error)
{
    return error == EPERM || error == EOPNOTSUPP || error == ENOSYS || error == EMLINK;
}

/// Network file systems cannot refuse to replace in one step, but most of them can give a file a second name.
/// @return nothing where that is not so
std::optional<MoveResult> linkAndRemove(const KnownFile &old, const QByteArray &to,
                                        const MoveOptions &options)
{
    auto entry = MoveJournal::recordIn(
        options.journal,
        {.kind = Leftover::Kind::SecondName, .path = to, .source = old.path, .sourceSnapshot = old.snapshot});
    const int error = ::link(old.path.constData(), to.constData()) == 0 ? 0 : errno;
    const auto made = fileAt(to);
    if (!made) {
        if (error == 0 || !isNothingAt(to))
            return finish(entry, uncertain(error));
        return hasNoHardLinks(error) ? std::nullopt : std::optional(notMoved(error));
    }
    // Where inodes do not last, somebody's equal copy would look like the same file.
    const bool isOurs = made->snapshot.device == old.snapshot.device &&
                        made->snapshot.inode == old.snapshot.inode &&
                        isSameFile(made->snapshot, old.snapshot);
    if (error != 0 && !isOurs)
        return notMoved(error);
    entry.made(made->snapshot);
    // The second name has changed the number of links and the time of the last change.
    const auto linked = lookAt(old.path);
    const auto *now = std::get_if<FileSnapshot>(&linked);
    const bool isLinked = now && isSameFile(*now, old.snapshot);
    return finish(entry, isLinked ? removeOldName({old.path, *now}, *made, options) : uncertain(error));
}

MoveResult renameWithoutFlag(const QByteArray &from, const QByteArray &to, const MoveOptions &options)
{
    const auto snapshot = lookAt(from);
    if (const auto *error = std::get_if<int>(&snapshot))
        return notMoved(*error);
    const KnownFile old{from, std::get<FileSnapshot>(snapshot)};
    const auto linked = linkAndRemove(old, to, options);
    return linked ? *linked : renameOverPlaceholder(old, to, options);
}

/// Creates a new symbolic link that leads to the same file from its new folder, and removes the old one.
MoveResult moveLink(const KnownFile &old, const QByteArray &to, const MoveOptions &options)
{
    namespace fs = std::filesystem;
    const fs::path link(old.path.constData());
    std::error_code error;
    const fs::path before = fs::read_symlink(link, error);
    fs::path target = options.linkTarget.isEmpty() ? before : options.linkTarget.constData();
    if (!error && options.linkTarget.isEmpty() && target.is_relative())
        target = fs::canonical(parentFolderOf(old.path).constData(), error) / target;
    if (error)
        return notMoved(error.value());
    if (const int reason = errorIfTaken(to))
        return notMoved(reason);

    auto entry = MoveJournal::recordIn(options.journal, {.kind = Leftover::Kind::NewLink,
                                                         .path = to,
                                                         .source = old.path,
                                                         .sourceSnapshot = old.snapshot,
                                                         .content = target.c_str()});
    const int creation = ::symlink(target.c_str(), to.constData()) == 0 ? 0 : errno;
    const auto made = fileAt(to);
    if (!made) {
        const bool isFree = creation != 0 && isNothingAt(to);
        return isFree ? notMoved(creation) : finish(entry, uncertain(creation));
    }
    if (creation != 0 && linkTarget(to) != target.c_str())
        return notMoved(creation);
    entry.made(made->snapshot);
    const int flushing = flushFolder(parentFolderOf(to));
    MoveResult result = finish(entry, flushing == 0 ? removeOldName(old, *made, options)
                                                    : removeNewName(*made, flushing, options));
    result.linkTarget = before.c_str();
    return result;
}

/// A copy under a private name in the folder where it is to go. Unless it was placed there, it is removed
/// with the object.
class TemporaryCopy
{
public:
    TemporaryCopy(const KnownFile &source, const QByteArray &to, MoveJournal *journal)
        : m_path(privateNameBeside(to))
        , m_entry(MoveJournal::recordIn(journal, {.kind = Leftover::Kind::Copy,
                                                  .path = m_path,
                                                  .finalPath = to,
                                                  .source = source.path,
                                                  .sourceSnapshot = source.snapshot}))
        , m_file(m_path, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, OWNER_ONLY)
    {}
    ~TemporaryCopy()
    {
        m_file.close();
        if (!m_isPlaced && ::unlink(m_path.constData()) != 0 && !isNothingAt(m_path))
            m_entry.keep();
    }
    Q_DISABLE_COPY_MOVE(TemporaryCopy)

    [[nodiscard]] const Descriptor &file() const { return m_file; }

    /// @return as renameWithoutReplacing()
    [[nodiscard]] MoveResult place(const QByteArray &to, MoveJournal *journal)
    {
        const auto snapshot = takeSnapshot(m_file.get());
        if (const auto *error = std::get_if<int>(&snapshot))
            return notMoved(*error);
        m_entry.made(std::get<FileSnapshot>(snapshot));
        m_file.close();
        const MoveResult result = renameWithoutReplacing(m_path, to, {.stop = {}, .journal = journal});
        m_isPlaced = result.state == State::Moved;
        return finish(m_entry, result);
    }
    [[nodiscard]] MoveJournal::Entry &entry() { return m_entry; }

private:
    static constexpr mode_t OWNER_ONLY = 0600;

    const QByteArray m_path;
    MoveJournal::Entry m_entry;
    Descriptor m_file;
    bool m_isPlaced = false;
};

/// The last steps, when a copy has got its name.
MoveResult replaceByCopy(const KnownFile &old, const QByteArray &to, const MoveOptions &options)
{
    const auto made = fileAt(to);
    const int error = flushFolder(parentFolderOf(to));
    if (!made)
        return uncertain(error);
    if (error == 0)
        return removeOldName(old, *made, options);
    return isUntouched(old) ? removeNewName(*made, error, options) : uncertain(error);
}

MoveResult moveByCopying(const QByteArray &from, const QByteArray &to, const MoveOptions &options)
{
    // Fails now rather than after everything has been copied for nothing.
    if (::access(parentFolderOf(from).constData(), W_OK | X_OK) != 0)
        return notMoved(errno);
    Descriptor source(from, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    if (source.error() != 0)
        return notMoved(source.error());
    const auto before = takeSnapshot(source.get());
    if (const auto *error = std::get_if<int>(&before))
        return notMoved(*error);
    const KnownFile old{from, std::get<FileSnapshot>(before)};

    if (const int error = tryName(old, to, options))
        return notMoved(error);
    TemporaryCopy copy(old, to, options.journal);
    if (copy.file().error() != 0)
        return notMoved(copy.file().error());
    const CopyResult copied = copyFile(source.get(), old.snapshot, copy.file().get(), options.stop);
    source.close();
    if (copied.error != 0)
        return notMoved(copied.error);

    MoveResult result = copy.place(to, options.journal);
    if (result.state == State::Moved)
        result = finish(copy.entry(), replaceByCopy(old, to, options));
    if (result.state == State::Moved) {
        result.lostAttributes = copied.lostAttributes;
        result.copiedFrom = old.snapshot;
    }
    return result;
}

/// Whether a move has failed because a name has characters that FAT and Windows do not allow. Drivers report
/// it in several ways.
bool isRefusedName(int error, const QByteArray &from, const QByteArray &to)
{
    const QByteArrayView name = QByteArrayView(to).sliced(to.lastIndexOf('/') + 1);
    const auto isSpecial = [](char c) {
        return static_cast<unsigned char>(c) < ' ' || QByteArrayView("\"*:<>?\\|").contains(c);
    };
    return (error == EINVAL || error == ENOENT || error == EILSEQ) && std::ranges::any_of(name, isSpecial) &&
           isTaken(from) && isTaken(parentFolderOf(to));
}

} // namespace

MoveResult renameWithoutReplacing(const QByteArray &from, const QByteArray &to, const MoveOptions &options)
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
        return renameWithoutFlag(from, to, options);
    const FileState atOldName = stateOfName(old);
    const FileState atNewName = stateOfName({to, old.snapshot});
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
        return moveLink(old, to, options);
    const MoveResult renamed = renameWithoutReplacing(from, to, options);
    const bool isOtherDisk = renamed.state == State::NotMoved && renamed.error == EXDEV;
    return isOtherDisk && S_ISREG(old.snapshot.mode) ? moveByCopying(from, to, options) : renamed;
}

Failure toFailure(const MoveResult &result, const QByteArray &from, const QByteArray &to)
{
    if (result.state == State::NotMoved && isRefusedName(result.error, from, to))
        return {translate("FileMove", "The disk cannot store a file of this name"), result.error};
    if (result.state != State::Uncertain)
        return {errorText(result.error), result.error};
    const QString error = errorText(result.error);
    const QString oldPath = pathInText(QFile::decodeName(from));
    const QString newPath = pathInText(QFile::decodeName(to));
    if (result.leftAt.isEmpty())
        return {translate("FileMove",
                          "It is not certain that the file was moved (%1). Look for it at %2 and at %3.",
                          "an error and two paths")
                    .arg(error, oldPath, newPath)};
    return {
        translate("FileMove",
                  "It is not certain that the file was moved (%1). Look for it at %2 and at %3, and for what "
                  "was put in its place at %4.",
                  "an error and three paths")
            .arg(error, oldPath, newPath, pathInText(QFile::decodeName(result.leftAt)))};
}

MovedFile describeMove(const QByteArray &from, const QByteArray &to, const MoveResult &result)
{
    const auto made = fileAt(to);
    return {.originalPath = from,
            .path = to,
            .snapshot = made ? std::optional(made->snapshot) : std::nullopt,
            .lostAttributes = result.lostAttributes,
            .linkTarget = result.linkTarget,
            .copiedFrom = result.copiedFrom};
}

} // namespace sonavo
