#include "actions/clean_up.h"

#include "actions/file_identity.h"
#include "actions/file_snapshot.h"
#include "actions/trash.h"
#include "model/saturating.h"
#include "model/translate.h"
#include "model/visible_controls.h"

#include <QFile>
#include <QHash>
#include <QSet>

#include <sys/stat.h>
#include <system_error>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

namespace sonavo {
namespace {

/// What is wrong with a file.
struct Flaw
{
    enum class Kind
    {
        Gone,
        Unreadable,
        ChangedSinceScan,
        ChangedMeanwhile,
    };
    Kind kind = Kind::Gone;
    /// For Unreadable, as in errno.
    int error = 0;
};

using Look = std::variant<KnownFile, Flaw>;

QString textOf(const Flaw &flaw)
{
    switch (flaw.kind) {
    case Flaw::Kind::Gone:
        return translate("CleanUp", "The file does not exist any more");
    case Flaw::Kind::Unreadable:
        return translate("CleanUp", "The file cannot be read (%1)").arg(errorText(flaw.error));
    case Flaw::Kind::ChangedSinceScan:
        return translate("CleanUp", "The file has been changed since it was scanned");
    case Flaw::Kind::ChangedMeanwhile:
        break;
    }
    return translate("CleanUp", "The file is gone or has been changed meanwhile");
}

QString textForOriginal(const Flaw &flaw)
{
    switch (flaw.kind) {
    case Flaw::Kind::Gone:
        return translate("CleanUp", "The original of its group does not exist any more");
    case Flaw::Kind::Unreadable:
        return translate("CleanUp", "The original of its group cannot be read (%1)")
            .arg(errorText(flaw.error));
    case Flaw::Kind::ChangedSinceScan:
        return translate("CleanUp", "The original of its group has been changed since it was scanned");
    case Flaw::Kind::ChangedMeanwhile:
        break;
    }
    return translate("CleanUp", "The original of its group is gone or has been changed meanwhile");
}

QString unreachableText()
{
    return translate("CleanUp", "The file cannot be reached");
}

QString originalLostText()
{
    return translate("CleanUp", "The original of its group is gone or was changed");
}

QString changedWhileMovedText()
{
    return translate("CleanUp", "The file was changed at the moment when it was moved");
}

QString putBackText(const QString &why)
{
    return translate("CleanUp", "%1, so the file was put back",
                     "%1 says what has happened, without a full stop")
        .arg(why);
}

QString notPutBackText(const QString &why, const QString &path, const QString &reason)
{
    return translate("CleanUp", "%1. The file is at %2 now: %3",
                     "what has happened, a path, and why the file could not be put back")
        .arg(why, pathInText(path), reason);
}

QString withFullStop(const QString &sentence)
{
    return translate("CleanUp", "%1.", "a sentence and its full stop").arg(sentence);
}

Flaw unreadable(int error)
{
    return meansGone(error) ? Flaw{} : Flaw{Flaw::Kind::Unreadable, error};
}

/// Opens the file that a path leads to and reads from it.
Look readableFile(const QString &path)
{
    std::error_code error;
    const QByteArray resolved(std::filesystem::canonical(QFile::encodeName(path).constData(), error).c_str());
    if (error)
        return unreadable(error.value());
    const auto snapshot = openAndTakeSnapshot(resolved);
    if (const auto *reason = std::get_if<int>(&snapshot))
        return unreadable(*reason);
    const auto &file = std::get<FileSnapshot>(snapshot);
    if (!S_ISREG(file.mode) || hasLostItsNames(file))
        return Flaw{};
    return KnownFile{resolved, file};
}

/// The same for a song, whose file must be the one that was read.
Look unchangedFile(const Song &song, const FileNotes &notes)
{
    Look look = readableFile(song.path);
    const auto *file = std::get_if<KnownFile>(&look);
    const auto note = notes.constFind(song.id);
    if (file && note != notes.constEnd() && !isAsNoted(file->snapshot, *note))
        return Flaw{Flaw::Kind::ChangedSinceScan};
    return look;
}

using DisposedFile = std::variant<TrashedFile, MovedFile>;
using Dispose = std::function<std::variant<DisposedFile, Failure>(const QString &path)>;

PutBackResult putFileBack(const DisposedFile &file, const MoveOptions &options)
{
    if (const auto *trashed = std::get_if<TrashedFile>(&file))
        return restore(*trashed, options);
    return DuplicatesFolder::moveBack(std::get<MovedFile>(file), options);
}

const MovedFile &movedFile(const DisposedFile &file)
{
    const auto *trashed = std::get_if<TrashedFile>(&file);
    return trashed ? trashed->file : std::get<MovedFile>(file);
}

QString pathOf(const DisposedFile &file)
{
    return QFile::decodeName(movedFile(file).path);
}

/// Somebody can have put another file in its place between the last look and the move.
bool isAsLookedAt(const MovedFile &moved, const FileSnapshot &look)
{
    if (moved.copiedFrom)
        return isSameFile(*moved.copiedFrom, look);
    const auto &now = moved.snapshot;
    return !now || S_ISLNK(now->mode) ||
           (now->size == look.size && std::abs(now->modified - look.modified) <= COARSEST_TIME);
}

MoveOptions moveOptions(const CleanUpOptions &options)
{
    return {options.stop, options.journal};
}

/// For what has to be done even if the user stops the rest.
MoveOptions unstoppable(const CleanUpOptions &options)
{
    return {{}, options.journal};
}

enum class WhenGone
{
    PassOver,
    Fail,
};

/// Goes through the duplicates of all groups.
class DuplicateRemover
{
public:
    DuplicateRemover(const QList<DuplicateGroup> &groups, Dispose dispose, WhenGone whenGone,
                     const CleanUpOptions &options)
        : m_groups(groups)
        , m_options(options)
        , m_dispose(std::move(dispose))
        , m_whenGone(whenGone)
    {}

    [[nodiscard]] CleanUpOutcome run();

private:
    struct Moved
    {
        Song song;
        DisposedFile file;
        KnownFile original;
    };
    /// Device, size and time of the last modification.
    using Traits = std::tuple<dev_t, qint64, qint64>;

    void findOriginals();
    void remove(const Song &song);
    void passOverOrFail(const Song &song);
    void dispose(const Song &song, const FileIdentity &identity, const KnownFile &file);
    [[nodiscard]] std::optional<Flaw> flawOfOriginal();
    void putBack(const Moved &moved, const QString &why);
    void checkOriginalsAgain();
    [[nodiscard]] bool isSuspect(const FileSnapshot &original) const;
    [[nodiscard]] bool hasSurvived(const KnownFile &original) const;
    void report(const Moved &moved);
    void fail(const Song &song, const QString &reason) { m_outcome.failures.append({song, reason}); }

    const QList<DuplicateGroup> &m_groups;
    const CleanUpOptions &m_options;
    const Dispose m_dispose;
    const WhenGone m_whenGone;
    /// Of all groups.
    FileSet m_originals;
    const DuplicateGroup *m_group = nullptr;
    /// Of the group at hand, once it was found to be as it was read.
    std::optional<KnownFile> m_original;
    std::vector<Moved> m_moved;
    QSet<FileEntry> m_movedEntries;
    /// Where the moved files were, and what they were.
    QSet<dev_t> m_devices;
    std::set<Traits> m_traits;
    QList<MovedFile> m_movedBack;
    qsizetype m_disposals = 0;
    CleanUpOutcome m_outcome;
};

CleanUpOutcome DuplicateRemover::run()
{
    findOriginals();
    qint64 done = 0;
    for (const DuplicateGroup &group : m_groups) {
        m_group = &group;
        m_original.reset();
        for (const Song &song : group.duplicates) {
            if (m_options.stop.stop_requested()) {
                m_outcome.notReached.append(song);
                continue;
            }
            remove(song);
            if (m_options.reportProgress)
                m_options.reportProgress(++done);
        }
    }
    checkOriginalsAgain();
    for (const Moved &moved : m_moved)
        report(moved);
    return std::move(m_outcome);
}

void DuplicateRemover::findOriginals()
{
    for (const DuplicateGroup &group : m_groups) {
        if (m_options.stop.stop_requested())
            return; // nothing is moved
        if (const auto identity = identityOf(group.original.path))
            m_originals.insert(*identity);
    }
}

void DuplicateRemover::remove(const Song &song)
{
    const auto identity = identityOf(song.path);
    if (!identity)
        return passOverOrFail(song);
    if (m_originals.contains(*identity))
        return;
    const Look look = unchangedFile(song, m_options.notes);
    if (const auto *flaw = std::get_if<Flaw>(&look))
        return fail(song, textOf(*flaw));
    if (const std::optional<Flaw> flaw = flawOfOriginal())
        return fail(song, textForOriginal(*flaw));
    const auto &file = std::get<KnownFile>(look);
    if (m_originals.mayContain(file) || mayBeOneFile(file, *m_original))
        return fail(song, translate("CleanUp",
                                    "It may be the same file as an original, which another file system shows "
                                    "as well"));
    dispose(song, *identity, file);
}

void DuplicateRemover::passOverOrFail(const Song &song)
{
    if (!isGone(song.path))
        return fail(song, unreachableText());
    const auto entry = entryOf(song.path);
    if (m_whenGone == WhenGone::Fail && !(entry && m_movedEntries.contains(*entry)))
        fail(song, textOf({Flaw::Kind::Gone}));
}

std::optional<Flaw> DuplicateRemover::flawOfOriginal()
{
    if (m_original) {
        const bool isSame = stateOf(*m_original) == FileState::Same;
        return isSame ? std::nullopt : std::optional(Flaw{Flaw::Kind::ChangedMeanwhile});
    }
    const Look look = unchangedFile(m_group->original, m_options.notes);
    if (const auto *flaw = std::get_if<Flaw>(&look))
        return *flaw;
    m_original = std::get<KnownFile>(look);
    return {};
}

void DuplicateRemover::dispose(const Song &song, const FileIdentity &identity, const KnownFile &file)
{
    const auto result = m_dispose(song.path);
    if (const auto *failure = std::get_if<Failure>(&result)) {
        if (failure->error == ECANCELED && m_options.stop.stop_requested())
            m_outcome.notReached.append(song);
        else
            fail(song, failure->reason);
        return;
    }
    ++m_disposals;
    m_devices.insert(file.snapshot.device);
    m_traits.insert({file.snapshot.device, file.snapshot.size, file.snapshot.modified});
    const Moved moved{song, std::get<DisposedFile>(result), *m_original};
    if (!isAsLookedAt(movedFile(moved.file), file.snapshot))
        return putBack(moved, changedWhileMovedText());
    if (!hasSurvived(*m_original))
        return putBack(moved, originalLostText());
    m_moved.push_back(moved);
    m_movedEntries.insert(identity.entry);
}

void DuplicateRemover::putBack(const Moved &moved, const QString &why)
{
    const PutBackResult result = putFileBack(moved.file, unstoppable(m_options));
    if (result.state != PutBackResult::State::Back)
        return fail(moved.song, notPutBackText(why, pathOf(moved.file), result.reason));
    if (const auto *file = std::get_if<MovedFile>(&moved.file))
        m_movedBack.append(*file);
    fail(moved.song, putBackText(why));
}

/// The original of one group can vanish with a duplicate of another.
void DuplicateRemover::checkOriginalsAgain()
{
    QHash<QByteArray, bool> hasStayed;
    for (const Moved &moved : m_moved) {
        if (!hasStayed.contains(moved.original.path))
            hasStayed[moved.original.path] = hasSurvived(moved.original);
    }
    const auto mustGoBack = [&](const Moved &moved) { return !hasStayed.value(moved.original.path); };
    std::for_each(m_moved.rbegin(), m_moved.rend(), [&](const Moved &moved) {
        if (mustGoBack(moved))
            putBack(moved, originalLostText());
    });
    std::erase_if(m_moved, mustGoBack);
    // With nothing in it, the folder would be removed, and its path is told to the user.
    if (m_disposals > m_movedBack.size())
        DuplicatesFolder::forget(m_movedBack);
}

/// Whether one of the moved files can be an original that another file system shows.
bool DuplicateRemover::isSuspect(const FileSnapshot &original) const
{
    return std::ranges::any_of(m_devices, [&](dev_t device) {
        const auto moved = m_traits.lower_bound({device, original.size, original.modified - COARSEST_TIME});
        return device != original.device && moved != m_traits.end() &&
               *moved <= Traits{device, original.size, original.modified + COARSEST_TIME};
    });
}

/// A file system that shows another one may open a file by a name that is lost. But moving a file changes the
/// time of its last change.
bool DuplicateRemover::hasSurvived(const KnownFile &original) const
{
    return isSuspect(original.snapshot) ? isUntouched(original) : stateOf(original) == FileState::Same;
}

void DuplicateRemover::report(const Moved &moved)
{
    m_outcome.moved.append({moved.song, moved.file});
    m_outcome.savedBytes = saturatingSum(m_outcome.savedBytes, moved.song.size);
    const QStringList &lost = movedFile(moved.file).lostAttributes;
    m_outcome.songsWithLostAttributes += lost.isEmpty() ? 0 : 1;
    m_outcome.lostAttributes += lost;
    m_outcome.lostAttributes.removeDuplicates();
}

QString whyItStays(const QString &path, const QString &reason)
{
    const QString shown = pathInText(path);
    return reason.contains(shown)
               ? reason
               : translate("CleanUp", "It stays at %1: %2", "a path and the reason").arg(shown, reason);
}

/// Nothing if another file has taken its place already. A link still has the note of the file it leads to.
std::optional<FileNote> noteOfRestored(const Song &song, const PutBackResult &result)
{
    const Look look = readableFile(song.path);
    const auto *file = std::get_if<KnownFile>(&look);
    const bool isSame = file && result.snapshot && isSameFile(file->snapshot, *result.snapshot);
    return isSame ? std::optional(noteOf(file->snapshot)) : std::nullopt;
}

/// The other members of the groups that hold a song.
QList<Song> othersInGroupsOf(const Song &song, const QList<DuplicateGroup> &groups)
{
    const auto isSong = [&song](const Song &member) { return member.id == song.id; };
    QList<Song> others;
    for (const DuplicateGroup &group : groups) {
        QList<Song> members = membersOf(group);
        if (members.removeIf(isSong) > 0)
            others += members;
    }
    return others;
}

} // namespace

CleanUpOutcome trashDuplicates(const QList<DuplicateGroup> &groups, const CleanUpOptions &options)
{
    const Dispose dispose = [&options](const QString &path) -> std::variant<DisposedFile, Failure> {
        const auto result = moveToTrash(path, moveOptions(options));
        if (const auto *failure = std::get_if<Failure>(&result))
            return *failure;
        return DisposedFile(std::get<TrashedFile>(result));
    };
    return DuplicateRemover(groups, dispose, WhenGone::PassOver, options).run();
}

CleanUpOutcome moveDuplicates(const QList<DuplicateGroup> &groups, DuplicatesFolder &folder,
                              const CleanUpOptions &options)
{
    const Dispose dispose = [&](const QString &path) -> std::variant<DisposedFile, Failure> {
        const auto result = folder.moveHere(path, moveOptions(options));
        if (const auto *failure = std::get_if<Failure>(&result))
            return *failure;
        return DisposedFile(std::get<MovedFile>(result));
    };
    return DuplicateRemover(groups, dispose, WhenGone::Fail, options).run();
}

std::variant<DisposedSong, Failure> trashSong(const Song &song, const QList<DuplicateGroup> &groups,
                                              const CleanUpOptions &options)
{
    const Look look = unchangedFile(song, options.notes);
    if (const auto *flaw = std::get_if<Flaw>(&look))
        return Failure{withFullStop(textOf(*flaw))};
    const auto &file = std::get<KnownFile>(look);
    const auto identity = identityOf(song.path);
    if (!identity)
        return Failure{withFullStop(unreachableText())};
    std::vector<KnownFile> others;
    for (const Song &other : othersInGroupsOf(song, groups)) {
        const auto otherIdentity = identityOf(other.path);
        if (!otherIdentity)
            continue;
        if (areOneFile(*identity, *otherIdentity) || mayBeOneFile(file, otherIdentity->file))
            return Failure{translate("CleanUp",
                                     "Another song of this group is the very same file and would be gone "
                                     "as well.")};
        if (const Look otherLook = readableFile(other.path); std::holds_alternative<KnownFile>(otherLook))
            others.push_back(std::get<KnownFile>(otherLook));
    }
    const auto result = moveToTrash(song.path, moveOptions(options));
    if (const auto *failure = std::get_if<Failure>(&result))
        return *failure;
    const auto &trashed = std::get<TrashedFile>(result);
    const auto hasSurvived = [&file](const KnownFile &other) {
        const bool isOnOtherDevice = other.snapshot.device != file.snapshot.device;
        return isOnOtherDevice ? isUntouched(other) : stateOf(other) == FileState::Same;
    };
    const bool isSame = isAsLookedAt(trashed.file, file.snapshot);
    if (isSame && std::ranges::all_of(others, hasSurvived))
        return DisposedSong{song, trashed};
    const QString why = isSame ? translate("CleanUp", "Another song of this group was gone as well")
                               : changedWhileMovedText();
    const PutBackResult back = restore(trashed, unstoppable(options));
    if (back.state != PutBackResult::State::Back)
        return Failure{notPutBackText(why, QFile::decodeName(trashed.file.path), back.reason)};
    return Failure{withFullStop(putBackText(why))};
}

UndoOutcome putBack(const QList<DisposedSong> &songs, const CleanUpOptions &options)
{
    UndoOutcome outcome;
    QList<MovedFile> movedBack;
    qint64 done = 0;
    for (auto disposed = songs.rbegin(); disposed != songs.rend(); ++disposed) {
        if (options.stop.stop_requested())
            break;
        const Song &song = disposed->song;
        const PutBackResult result = putFileBack(disposed->file, moveOptions(options));
        if (result.state == PutBackResult::State::Back) {
            outcome.restored.append(song);
            if (const auto *file = std::get_if<MovedFile>(&disposed->file))
                movedBack.append(*file);
            if (const auto note = noteOfRestored(song, result))
                outcome.notes.insert(song.id, *note);
        } else if (result.state == PutBackResult::State::Gone) {
            outcome.gone.append({song, result.reason});
        } else if (!options.stop.stop_requested()) {
            outcome.failures.append({song, whyItStays(pathOf(disposed->file), result.reason)});
        }
        if (options.reportProgress)
            options.reportProgress(++done);
    }
    DuplicatesFolder::forget(movedBack);
    return outcome;
}

} // namespace sonavo
