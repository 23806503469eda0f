#include "actions/clean_up.h"

#include "actions/file_identity.h"
#include "actions/file_snapshot.h"
#include "actions/trash.h"
#include "model/saturating.h"

#include <QFile>
#include <QHash>
#include <QSet>

#include <sys/stat.h>
#include <sys/vfs.h>
#include <system_error>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <linux/magic.h>
#include <utility>
#include <variant>
#include <vector>

namespace sonavo {
namespace {

/// The readable file that a path leads to.
std::optional<KnownFile> readableFile(const QString &path)
{
    std::error_code error;
    const QByteArray resolved(std::filesystem::canonical(QFile::encodeName(path).constData(), error).c_str());
    if (error)
        return std::nullopt;
    const auto snapshot = openAndTakeSnapshot(resolved);
    const auto *file = std::get_if<FileSnapshot>(&snapshot);
    const bool hasName = file && (file->hardLinks > 0 || isListed(resolved));
    return hasName && S_ISREG(file->mode) ? std::optional(KnownFile{resolved, *file}) : std::nullopt;
}

/// Whether two files with different identities may be one file that is visible through two file systems.
bool canBeOneFile(const FileSnapshot &a, const FileSnapshot &b)
{
    // File systems round times, FAT to two seconds.
    constexpr qint64 COARSEST_TIME = 2'000'000'000;
    return a.device != b.device && a.size == b.size && std::abs(a.modified - b.modified) <= COARSEST_TIME;
}

/// Whether a path is on a file system that opens a file only by a name that it has. Others, on top of a file
/// system or of a network, may not know yet that a name is lost.
bool knowsLostNames(const QByteArray &path)
{
    constexpr std::array<decltype(statfs::f_type), 10> DISKS{
        EXT4_SUPER_MAGIC,  XFS_SUPER_MAGIC,   BTRFS_SUPER_MAGIC, F2FS_SUPER_MAGIC, TMPFS_MAGIC,
        MSDOS_SUPER_MAGIC, EXFAT_SUPER_MAGIC, ISOFS_SUPER_MAGIC, UDF_SUPER_MAGIC,  0x7366746E /* NTFS */};
    struct statfs status = {};
    return ::statfs(path.constData(), &status) == 0 && std::ranges::find(DISKS, status.f_type) != DISKS.end();
}

/// Whether a file is still there after another one was moved.
bool hasSurvived(const KnownFile &file, const std::optional<KnownFile> &moved)
{
    const bool isSuspect = !moved || canBeOneFile(file.snapshot, moved->snapshot);
    return stateOf(file) == FileState::Same &&
           (!isSuspect || knowsLostNames(file.path) || isListed(file.path));
}

using DisposedFile = std::variant<TrashedFile, MovedFile>;
using Dispose = std::function<std::variant<DisposedFile, Failure>(const QString &path)>;

PutBackResult putFileBack(const DisposedFile &file, const MoveOptions &options)
{
    if (const auto *trashed = std::get_if<TrashedFile>(&file))
        return restore(*trashed, options);
    return moveBack(std::get<MovedFile>(file), options);
}

QString pathOf(const DisposedFile &file)
{
    const auto *trashed = std::get_if<TrashedFile>(&file);
    return QFile::decodeName(trashed ? trashed->file.path : std::get<MovedFile>(file).path);
}

MoveOptions moveOptions(const CleanUpOptions &options)
{
    return {options.stop, options.journal};
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
    {
        for (const DuplicateGroup &group : groups) {
            if (const auto identity = identityOf(group.original.path))
                m_originals.insert(*identity);
        }
    }

    [[nodiscard]] CleanUpOutcome run()
    {
        for (const DuplicateGroup &group : m_groups) {
            m_original = readableFile(group.original.path);
            for (const Song &song : group.duplicates)
                remove(song);
        }
        checkOriginalsAgain();
        for (const Moved &moved : m_moved) {
            m_outcome.savedBytes = saturatingSum(m_outcome.savedBytes, moved.song.size);
            m_outcome.moved.append({moved.song, moved.file});
        }
        return std::move(m_outcome);
    }

private:
    struct Moved
    {
        Song song;
        DisposedFile file;
        KnownFile original;
    };

    void remove(const Song &song);
    void putBack(const Moved &moved);
    void checkOriginalsAgain();
    void fail(const Song &song, const QString &reason) { m_outcome.failures.append({song, reason}); }

    const QList<DuplicateGroup> &m_groups;
    const CleanUpOptions &m_options;
    const Dispose m_dispose;
    const WhenGone m_whenGone;
    FileSet m_originals;
    /// Of the group at hand.
    std::optional<KnownFile> m_original;
    std::vector<Moved> m_moved;
    /// Where the moved files were.
    QSet<dev_t> m_devices;
    CleanUpOutcome m_outcome;
};

void DuplicateRemover::remove(const Song &song)
{
    if (isGone(song.path)) {
        if (m_whenGone == WhenGone::Fail)
            fail(song, QStringLiteral("The file does not exist any more"));
        return;
    }
    const auto identity = identityOf(song.path);
    if (identity && m_originals.contains(*identity))
        return;
    if (!identity)
        return fail(song, QStringLiteral("The file cannot be reached"));
    if (!m_original || stateOf(*m_original) != FileState::Same)
        return fail(song, QStringLiteral("The original of its group cannot be read or was changed"));

    const auto before = readableFile(song.path);
    const auto result = m_dispose(song.path);
    if (const auto *failure = std::get_if<Failure>(&result))
        return fail(song, failure->reason);
    const Moved moved{song, std::get<DisposedFile>(result), *m_original};
    if (!hasSurvived(*m_original, before))
        return putBack(moved);
    m_moved.push_back(moved);
    if (before)
        m_devices.insert(before->snapshot.device);
}

void DuplicateRemover::putBack(const Moved &moved)
{
    const PutBackResult result = putFileBack(moved.file, moveOptions(m_options));
    const QString reason =
        result.state != PutBackResult::State::Back
            ? QStringLiteral("The original of its group is gone or was changed. The file is at %1 now: %2")
                  .arg(pathOf(moved.file), result.reason)
            : QStringLiteral("The original of its group is gone or was changed, so the file was put back");
    fail(moved.song, reason);
}

/// The original of one group can vanish with a duplicate of another.
void DuplicateRemover::checkOriginalsAgain()
{
    QHash<QByteArray, bool> hasStayed;
    for (const Moved &moved : m_moved) {
        const KnownFile &original = moved.original;
        if (hasStayed.contains(original.path))
            continue;
        const bool isAlone = m_devices == QSet{original.snapshot.device};
        hasStayed[original.path] = stateOf(original) == FileState::Same &&
                                   (isAlone || knowsLostNames(original.path) || isListed(original.path));
    }
    const auto mustGoBack = [&](const Moved &moved) { return !hasStayed.value(moved.original.path); };
    std::for_each(m_moved.rbegin(), m_moved.rend(), [&](const Moved &moved) {
        if (mustGoBack(moved))
            putBack(moved);
    });
    std::erase_if(m_moved, mustGoBack);
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

bool isOneFile(const Song &a, const Song &b)
{
    const auto identityOfA = identityOf(a.path);
    const auto identityOfB = identityOf(b.path);
    return identityOfA && identityOfB && areOneFile(*identityOfA, *identityOfB);
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
    std::vector<KnownFile> others;
    for (const Song &other : othersInGroupsOf(song, groups)) {
        if (isOneFile(song, other))
            return Failure{QStringLiteral(
                "Another song of this group is the very same file and would be gone as well.")};
        if (const auto file = readableFile(other.path))
            others.push_back(*file);
    }
    const auto before = readableFile(song.path);
    const auto result = moveToTrash(song.path, moveOptions(options));
    if (const auto *failure = std::get_if<Failure>(&result))
        return *failure;
    const auto &trashed = std::get<TrashedFile>(result);
    const auto hasStayed = [&before](const KnownFile &other) { return hasSurvived(other, before); };
    if (std::ranges::all_of(others, hasStayed))
        return DisposedSong{song, trashed};
    const PutBackResult back = restore(trashed, moveOptions(options));
    if (back.state != PutBackResult::State::Back)
        return Failure{
            QStringLiteral("Another song of this group was gone as well. The file is at %1 now: %2")
                .arg(QFile::decodeName(trashed.file.path), back.reason)};
    return Failure{QStringLiteral("Another song of this group was gone as well, so the file was put back.")};
}

UndoOutcome putBack(const QList<DisposedSong> &songs, const CleanUpOptions &options)
{
    UndoOutcome outcome;
    std::for_each(songs.rbegin(), songs.rend(), [&](const DisposedSong &disposed) {
        const PutBackResult result = putFileBack(disposed.file, moveOptions(options));
        if (result.state == PutBackResult::State::Back)
            outcome.restored.append(disposed.song);
        else
            (result.state == PutBackResult::State::Gone ? outcome.gone : outcome.failures)
                .append({disposed.song, result.reason});
    });
    return outcome;
}

} // namespace sonavo
