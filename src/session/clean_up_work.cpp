#include "session/clean_up_work.h"

#include "actions/file_identity.h"
#include "actions/move_journal.h"
#include "actions/unfinished_moves.h"
#include "import/disk_task.h"
#include "model/saturating.h"
#include "model/translate.h"
#include "session/clean_up_text.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace sonavo {
namespace {

QString moveStepName(CleanUpTarget target)
{
    return target == CleanUpTarget::Trash ? translate("CleanUp", "Move to Trash", "the name of a step")
                                          : translate("CleanUp", "Move to Folder", "the name of a step");
}

CleanUpOptions optionsFor(MoveJournal &journal, const FileJob::Control &control, const FileNotes &notes)
{
    return {
        .stop = control.stop, .journal = &journal, .notes = notes, .reportProgress = control.reportProgress};
}

QSet<QUuid> idsOf(const QList<Song> &songs)
{
    QSet<QUuid> ids;
    for (const Song &song : songs)
        ids.insert(song.id);
    return ids;
}

/// The duplicates that a clean-up has reached, and groups that had none.
Removal removalBy(const CleanUpOutcome &outcome, const QList<DuplicateGroup> &groups)
{
    const QSet<QUuid> staying = idsOf(outcome.notReached);
    Removal removal;
    for (const DuplicateGroup &group : groups) {
        for (const Song &song : group.duplicates) {
            if (!staying.contains(song.id))
                removal.songs.insert(song.id);
        }
    }
    removal.members = removal.cleanedUp = removal.songs;
    for (const DuplicateGroup &group : groups) {
        if (group.duplicates.isEmpty())
            removal.cleanedUp.insert(group.original.id);
    }
    return removal;
}

/// A retry adds only what it has moved: the others are missing already.
Removal removalByRetry(const CleanUpOutcome &outcome)
{
    QSet<QUuid> moved;
    for (const DisposedSong &disposed : outcome.moved)
        moved.insert(disposed.song.id);
    return {.songs = moved, .members = moved, .cleanedUp = moved};
}

/// @param retried what a retry has done
/// @param notReached what it has not reached stays among the failures
CleanUpSummary sumOf(const CleanUpSummary &first, CleanUpSummary retried, const QList<Song> &notReached)
{
    retried.moved += first.moved;
    retried.saved = saturatingSum(retried.saved, first.saved);
    QStringList losses{first.losses, retried.losses};
    losses.removeAll(QString());
    losses.removeDuplicates();
    retried.losses = losses.join(u'\n');
    const QSet<QUuid> waiting = idsOf(notReached);
    for (const SongFailure &failure : first.failures) {
        if (waiting.contains(failure.song.id))
            retried.failures.append(failure);
    }
    return retried;
}

/// The groups of some failures, with these alone as duplicates.
QList<DuplicateGroup> groupsOf(const QList<SongFailure> &failures, QList<DuplicateGroup> groups)
{
    QSet<QUuid> failed;
    for (const SongFailure &failure : failures)
        failed.insert(failure.song.id);
    if (failed.isEmpty())
        return {};
    for (DuplicateGroup &group : groups)
        group.duplicates.removeIf([&failed](const Song &song) { return !failed.contains(song.id); });
    groups.removeIf([](const DuplicateGroup &group) { return group.duplicates.isEmpty(); });
    return groups;
}

/// Adds all other groups without their duplicates: what is removed may not be the original of any group.
QList<DuplicateGroup> withOtherOriginals(QList<DuplicateGroup> groups, const QList<DuplicateGroup> &all)
{
    QSet<QUuid> given;
    for (const DuplicateGroup &group : groups)
        given.insert(group.id);
    for (const DuplicateGroup &group : all) {
        if (given.contains(group.id))
            continue;
        groups.append(group);
        groups.last().duplicates.clear();
    }
    return groups;
}

/// Adds what a clean-up has done to the result.
void summarize(const CleanUpOutcome &outcome, const CleanUpPlan &plan, CleanedUp &result)
{
    CleanUpSummary &summary = result.summary;
    summary.moved = outcome.moved.size();
    summary.saved = outcome.savedBytes;
    summary.notReached = outcome.notReached.size();
    summary.losses = lossesText(outcome.lostAttributes, outcome.songsWithLostAttributes);
    summary.failures = outcome.failures;
    // Nothing to do changes nothing.
    if (plan.files == 0) {
        result.total = plan.summaryBefore;
        return;
    }
    const bool isRetry = plan.scope == CleanUpScope::Retry;
    CleanUpSummary total = isRetry ? sumOf(*plan.summaryBefore, summary, outcome.notReached) : summary;
    total.failedGroups = groupsOf(total.failures, plan.groups);
    result.total = std::make_shared<const CleanUpSummary>(std::move(total));
}

} // namespace

bool isMember(const DuplicateGroup &group, const QUuid &id)
{
    const auto isSong = [&id](const Song &song) { return song.id == id; };
    return isSong(group.original) || std::ranges::any_of(group.duplicates, isSong);
}

WorkBasis basisOf(const Library &library)
{
    return {library.scanResult(), library.notes(), library.history(), library.duplicateGroups()};
}

QSet<QUuid> songsWithRow(const QList<DuplicateGroup> &groups)
{
    QSet<QUuid> ids;
    for (const DuplicateGroup &group : groups) {
        if (!group.duplicates.isEmpty())
            ids.unite(idsOf(membersOf(group)));
    }
    return ids;
}

void WorkResult::makeLists(const ScanResult &scan)
{
    lists = history.applyTo(scan);
    withRow = songsWithRow(lists.groups);
}

void removeLeftoversLater()
{
    diskThreads().start([] { cleanUpUnfinishedMoves(moveJournalFolder()); });
}

CleanedUp cleanUp(const CleanUpPlan &plan, const FileJob::Control &control)
{
    CleanedUp result;
    result.summary.target = plan.target;
    if (plan.scope == CleanUpScope::Retry) {
        result.summary.folder = plan.summaryBefore->folder;
    } else if (plan.target == CleanUpTarget::Folder) {
        auto folder = DuplicatesFolder::create(plan.parentFolder, plan.now);
        if (const auto *failure = std::get_if<Failure>(&folder)) {
            result.folderFailure = *failure;
            return result;
        }
        result.summary.folder =
            std::make_shared<DuplicatesFolder>(std::get<DuplicatesFolder>(std::move(folder)));
    }

    removeLeftoversLater();
    MoveJournal journal(moveJournalFolder());
    const CleanUpOptions options = optionsFor(journal, control, plan.basis.notes);
    const QList<DuplicateGroup> groups = plan.scope == CleanUpScope::OneGroup
                                             ? withOtherOriginals(plan.groups, plan.basis.groups)
                                             : plan.groups;
    const CleanUpOutcome outcome = plan.target == CleanUpTarget::Folder
                                       ? moveDuplicates(groups, *result.summary.folder, options)
                                       : trashDuplicates(groups, options);
    summarize(outcome, plan, result);
    const Removal removal =
        plan.scope == CleanUpScope::Retry ? removalByRetry(outcome) : removalBy(outcome, plan.groups);
    result.removed = removal.songs;
    result.history = plan.basis.history;
    if (outcome.moved.isEmpty()) {
        result.history.addRemoval(plan.basis.scan.id, removal);
    } else {
        result.history.add({.name = moveStepName(plan.target),
                            .scan = plan.basis.scan.id,
                            .removal = removal,
                            .files = outcome.moved,
                            .summaryBefore = plan.summaryBefore});
    }
    result.makeLists(plan.basis.scan);
    const bool isAllDone = std::ranges::all_of(
        result.lists.groups, [](const DuplicateGroup &group) { return group.duplicates.isEmpty(); });
    if (plan.scope == CleanUpScope::OneGroup && outcome.failures.isEmpty() && !isAllDone)
        result.total = plan.summaryBefore;
    return result;
}

DeletedSong deleteSong(const Song &song, const WorkBasis &basis, const FileJob::Control &control)
{
    DeletedSong result;
    result.history = basis.history;
    removeLeftoversLater();
    MoveJournal journal(moveJournalFolder());
    if (isGone(song.path)) {
        result.wasGone = true;
        result.history.addRemoval(basis.scan.id, {.songs = {song.id}, .members = {}, .cleanedUp = {}});
        result.makeLists(basis.scan);
        return result;
    }
    QList<DuplicateGroup> groupsOfSong;
    std::ranges::copy_if(basis.groups, std::back_inserter(groupsOfSong),
                         [&song](const DuplicateGroup &group) { return isMember(group, song.id); });
    const auto trashed = trashSong(song, groupsOfSong, optionsFor(journal, control, basis.notes));
    if (const auto *failure = std::get_if<Failure>(&trashed)) {
        result.failure = *failure;
        return result;
    }
    result.history.add({.name = moveStepName(CleanUpTarget::Trash),
                        .scan = basis.scan.id,
                        .removal = {.songs = {song.id}, .members = {song.id}, .cleanedUp = {}},
                        .files = {std::get<DisposedSong>(trashed)},
                        .summaryBefore = {}});
    result.makeLists(basis.scan);
    return result;
}

UndoneStep undoNext(const WorkBasis &basis, const FileJob::Control &control)
{
    const std::shared_ptr<const UndoStep> step = basis.history.next();
    UndoOutcome outcome;
    if (!step->files.isEmpty()) {
        removeLeftoversLater();
        MoveJournal journal(moveJournalFolder());
        outcome = putBack(step->files, optionsFor(journal, control, {}));
    }

    UndoneStep result;
    result.history = basis.history;
    result.history.undone(outcome, basis.scan.id);
    result.notes = basis.notes;
    result.notes.insert(outcome.notes);
    result.restored = outcome.restored.size();
    result.failures = outcome.failures + outcome.gone;
    result.notReached = step->files.size() - result.restored - result.failures.size();
    result.summaryBefore = step->summaryBefore;
    result.changesLists = step->scan == basis.scan.id && (result.restored > 0 || step->files.isEmpty());
    if (result.changesLists)
        result.makeLists(basis.scan);
    return result;
}

} // namespace sonavo
