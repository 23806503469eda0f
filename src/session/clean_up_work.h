#pragma once

#include "actions/failure.h"
#include "model/file_note.h"
#include "session/clean_up_summary.h"
#include "session/file_job.h"
#include "session/library.h"
#include "session/undo_history.h"

#include <QDateTime>
#include <QList>
#include <QSet>
#include <QString>
#include <QUuid>

#include <memory>
#include <optional>

namespace sonavo {

// What the jobs of CleanUp do. They take as long as the disks do, and pass over all songs. They run in the
// thread of the jobs and share their values with the session, which does not change them meanwhile.

/// Removes what an earlier process has left over, in a thread that is abandoned when its disk hangs. Any
/// thread may call it; every job begins with it.
void removeLeftoversLater();

/// What a job starts from.
struct WorkBasis
{
    ScanResult scan;
    FileNotes notes;
    UndoHistory history;
    /// The groups that are shown.
    QList<DuplicateGroup> groups;
};

[[nodiscard]] WorkBasis basisOf(const Library &library);

[[nodiscard]] bool isMember(const DuplicateGroup &group, const QUuid &id);

/// Ids of the songs that have a row in the list when groups are shown.
[[nodiscard]] QSet<QUuid> songsWithRow(const QList<DuplicateGroup> &groups);

/// What a job leaves.
struct WorkResult
{
    UndoHistory history;
    SongLists lists;
    /// See songsWithRow().
    QSet<QUuid> withRow;

    /// Makes the lists of a scan by the history.
    void makeLists(const ScanResult &scan);
};

/// Which duplicates a clean-up moves.
enum class CleanUpScope
{
    AllGroups,
    OneGroup,
    /// Those that the clean-up of summaryBefore could not move.
    Retry,
};

struct CleanUpPlan
{
    WorkBasis basis;
    CleanUpTarget target = CleanUpTarget::Trash;
    CleanUpScope scope = CleanUpScope::AllGroups;
    /// Those that are cleaned up.
    QList<DuplicateGroup> groups;
    /// Duplicates in the groups.
    qint64 files = 0;
    std::shared_ptr<const CleanUpSummary> summaryBefore;
    /// Where a new folder is made, and the local time in its name.
    QString parentFolder = {};
    QDateTime now = {};
};

struct CleanedUp : WorkResult
{
    /// Why the folder could not be made; then nothing has happened.
    std::optional<Failure> folderFailure;
    /// What this job has done.
    CleanUpSummary summary;
    /// What is to be shown: the same together with the clean-up that it retries. That of one group is not
    /// shown, unless it leaves failures or nothing else to do; then this is summaryBefore.
    std::shared_ptr<const CleanUpSummary> total;
    /// Ids of the songs that have left the songs.
    QSet<QUuid> removed;
};

/// Moves the duplicates of the plan's groups.
[[nodiscard]] CleanedUp cleanUp(const CleanUpPlan &plan, const FileJob::Control &control);

struct DeletedSong : WorkResult
{
    /// Why the file stays where it is; then nothing else has changed.
    std::optional<Failure> failure;
    /// There was no file any more.
    bool wasGone = false;
};

/// Moves one song's file to the Trash.
[[nodiscard]] DeletedSong deleteSong(const Song &song, const WorkBasis &basis,
                                     const FileJob::Control &control);

struct UndoneStep : WorkResult
{
    /// Those of the basis, with what the files are that were put back.
    FileNotes notes;
    qint64 restored = 0;
    qint64 notReached = 0;
    /// With those that exist nowhere any more.
    QList<SongFailure> failures;
    /// Whether the step has changed the lists of this scan, and has not been undone in vain.
    bool changesLists = false;
    /// See UndoStep.
    std::optional<std::shared_ptr<const CleanUpSummary>> summaryBefore;
};

/// Puts the files of the next step back, or takes back what it has decided. There must be one.
[[nodiscard]] UndoneStep undoNext(const WorkBasis &basis, const FileJob::Control &control);

} // namespace sonavo
