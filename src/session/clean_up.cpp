#include "session/clean_up.h"

#include "model/translate.h"
#include "model/visible_controls.h"
#include "session/clean_up_text.h"
#include "session/release.h"

#include <algorithm>
#include <utility>

namespace sonavo {

using namespace std::chrono_literals;
using ToastType = Notices::ToastType;

namespace {

QString progressText(CleanUpTarget target)
{
    return target == CleanUpTarget::Trash ? translate("CleanUp", "Moving %L1 of %L2 to the Trash", "files")
                                          : translate("CleanUp", "Moving %L1 of %L2 to the folder", "files");
}

} // namespace

CleanUp::CleanUp(const Session &session, std::shared_ptr<Pauses> pauses, QObject *parent)
    : QObject(parent)
    , m_session(session)
    , m_pauses(std::move(pauses))
{
    connect(&session.library, &Library::songsChanged, this, &CleanUp::forgetOtherScan);
    // Nothing can be undone while a scan runs.
    connect(&session.scan, &Scan::changed, this, [this](const Scan::State &before) {
        if (!before.isRunning && m_session.scan.state().isRunning)
            m_session.notices.removeToastAction();
    });
}

bool CleanUp::isBusy() const
{
    return m_session.job.state().isRunning || m_session.scan.state().isRunning;
}

CleanUpPlan CleanUp::plan(CleanUpTarget target) const
{
    return {.basis = basisOf(m_session.library),
            .target = target,
            .groups = m_session.library.duplicateGroups(),
            .files = m_session.library.duplicateTotals().count,
            .summaryBefore = m_state.summary};
}

std::optional<CleanUpPlan> CleanUp::planForGroupOf(QUuid member, CleanUpTarget target) const
{
    CleanUpPlan plan = this->plan(target);
    const auto group =
        std::ranges::find_if(std::as_const(plan.groups), [member](const DuplicateGroup &candidate) {
            return isMember(candidate, member);
        });
    if (group == plan.groups.cend())
        return std::nullopt;
    plan.scope = CleanUpScope::OneGroup;
    plan.files = group->duplicates.size();
    plan.groups = {*group};
    return plan;
}

void CleanUp::moveDuplicatesToFolder()
{
    if (isBusy())
        return;
    const QPointer<CleanUp> self(this);
    stopPreviewOfDuplicates(m_session.library.duplicateGroups());
    if (self)
        chooseFolderAndStart(plan(CleanUpTarget::Folder));
}

void CleanUp::moveGroupToFolder(QUuid member)
{
    if (isBusy())
        return;
    const QPointer<CleanUp> self(this);
    if (const auto plan = planForGroupOf(member, CleanUpTarget::Folder)) {
        stopPreviewOfDuplicates(plan->groups);
        if (self)
            chooseFolderAndStart(*plan);
    }
}

void CleanUp::chooseFolderAndStart(CleanUpPlan plan)
{
    const QPointer<CleanUp> self(this);
    if (plan.files == 0) {
        m_session.notices.showToast(noDuplicatesText(), ToastType::Info);
        return;
    }
    plan.parentFolder =
        m_session.desktop.chooseFolder(translate("CleanUp", "Select a folder to move duplicate files to"),
                                       translate("CleanUp", "Select Folder"));
    if (!self || plan.parentFolder.isEmpty() || isBusy() ||
        !m_session.library.duplicateGroups().isSharedWith(plan.basis.groups))
        return;
    plan.now = QDateTime::currentDateTime();
    start(plan);
}

void CleanUp::trashDuplicates()
{
    if (isBusy())
        return;
    const QPointer<CleanUp> self(this);
    stopPreviewOfDuplicates(m_session.library.duplicateGroups());
    if (self)
        start(plan(CleanUpTarget::Trash));
}

void CleanUp::trashGroup(QUuid member)
{
    if (isBusy())
        return;
    const QPointer<CleanUp> self(this);
    if (const auto plan = planForGroupOf(member, CleanUpTarget::Trash))
        stopPreviewOfDuplicates(plan->groups);
    const auto plan = self ? planForGroupOf(member, CleanUpTarget::Trash) : std::nullopt;
    if (plan && !isBusy())
        start(*plan);
}

void CleanUp::retry()
{
    if (isBusy() || !m_state.summary || m_state.summary->failures.isEmpty())
        return;
    CleanUpPlan plan = this->plan(m_state.summary->target);
    plan.groups = m_state.summary->failedGroups;
    plan.files = m_state.summary->failures.size();
    plan.scope = CleanUpScope::Retry;
    start(plan);
}

void CleanUp::stopPreviewOfDuplicates(const QList<DuplicateGroup> &groups)
{
    if (!m_session.preview.state().song)
        return;
    const auto hasPlayed = [this](const DuplicateGroup &group) {
        return std::ranges::any_of(group.duplicates,
                                   [this](const Song &song) { return m_session.preview.isOf(song); });
    };
    if (std::ranges::any_of(groups, hasPlayed))
        m_session.preview.stop();
}

/// Nothing else would show that it plays, and stop it. The user can have started it during the job.
void CleanUp::stopPreviewWithoutRow(const WorkResult &result)
{
    const auto &played = m_session.preview.state().song;
    const bool showsSummary = result.withRow.isEmpty() && m_state.summary;
    if (played && !result.withRow.contains(played->id) && !showsSummary)
        m_session.preview.stop();
}

void CleanUp::start(const CleanUpPlan &plan)
{
    m_session.job.run<CleanedUp>(
        progressText(plan.target), plan.files,
        [plan](const FileJob::Control &control) { return cleanUp(plan, control); },
        [self = QPointer<CleanUp>(this), scan = plan.basis.scan.id](const CleanedUp &cleaned) {
            if (self)
                self->publish(scan, cleaned);
        });
}

void CleanUp::publish(quint64 scan, const CleanedUp &cleaned)
{
    Notices &notices = m_session.notices;
    if (cleaned.folderFailure) {
        notices.showToast(
            translate("CleanUp", "Failed to create folder: %1").arg(cleaned.folderFailure->reason),
            ToastType::Error);
        return;
    }
    const QPointer<CleanUp> self(this);
    // One that the user has started meanwhile.
    const auto &played = m_session.preview.state().song;
    if (played && cleaned.removed.contains(played->id))
        m_session.preview.stop();
    if (self && isShown(scan)) {
        m_summaryScan = scan;
        m_session.library.setHistory(cleaned.history);
        if (self && isShown(scan))
            setSummary(cleaned.total);
        if (self && isShown(scan))
            m_session.library.show(cleaned.lists);
        if (self && isShown(scan))
            stopPreviewWithoutRow(cleaned);
    } else if (self) {
        m_session.library.setHistory(cleaned.history);
    }
    if (!self)
        return;
    const CleanUpSummary &summary = cleaned.summary;
    const ToastType type = !summary.failures.isEmpty() ? ToastType::Error
                           : summary.notReached > 0    ? ToastType::Info
                                                       : ToastType::Success;
    const bool isUndoable = summary.moved > 0;
    notices.showToast(toastText(summary), type, isUndoable ? undoText() : QString());
    if (self && summary.folder) {
        m_session.desktop.copyToClipboard(summary.folder->path());
        announceCopiedPath(this, m_pauses, isUndoable ? m_session.library.history().next() : nullptr);
    }
}

QCoro::Task<> CleanUp::announceCopiedPath(QPointer<CleanUp> self, std::shared_ptr<Pauses> pauses,
                                          std::weak_ptr<const UndoStep> step)
{
    co_await pauses->wait(1s);
    if (!self)
        co_return;
    const auto next = self->m_session.library.history().next();
    const bool isUndoable = next && next == step.lock() && !self->isBusy();
    self->m_session.notices.showToast(translate("CleanUp", "Folder path copied to clipboard"),
                                      ToastType::Info, isUndoable ? undoText() : QString());
}

void CleanUp::deleteSong(const Song &song)
{
    if (isBusy())
        return;
    const QPointer<CleanUp> self(this);
    // The caller's can be one that the preview drops here.
    Song deleted = song;
    if (m_session.preview.isOf(deleted)) {
        m_session.preview.mute();
        m_session.preview.stop();
    }
    if (!self)
        return;
    const WorkBasis basis = basisOf(m_session.library);
    const auto work = [deleted, basis](const FileJob::Control &control) {
        return sonavo::deleteSong(deleted, basis, control);
    };
    m_session.job.run<DeletedSong>(
        progressText(CleanUpTarget::Trash), 1, work,
        [self, deleted = std::move(deleted), scan = basis.scan.id](const DeletedSong &result) {
            if (self)
                self->publish(scan, deleted, result);
        });
}

void CleanUp::publish(quint64 scan, const Song &song, const DeletedSong &deleted)
{
    Notices &notices = m_session.notices;
    if (deleted.failure) {
        notices.showToast(translate("CleanUp", "Could not delete file: %1").arg(deleted.failure->reason),
                          ToastType::Error);
        return;
    }
    const QPointer<CleanUp> self(this);
    Library &library = m_session.library;
    library.setHistory(deleted.history);
    if (self && isShown(scan)) {
        SongLists lists = library.lists();
        lists.songs = deleted.lists.songs;
        library.show(lists);
    }
    if (!self || deleted.wasGone)
        return;
    notices.showToast(translate("CleanUp", "Moved to Trash: %1").arg(nameInText(song.name)),
                      ToastType::Success, undoText());
    if (self && isShown(scan))
        library.show(deleted.lists);
    if (self && isShown(scan))
        stopPreviewWithoutRow(deleted);
    if (self && m_session.preview.isOf(song))
        m_session.preview.stop();
}

void CleanUp::undo()
{
    if (isBusy() || !m_session.library.history().next())
        return;
    const QPointer<CleanUp> self(this);
    m_session.notices.removeToastAction();
    if (!self || isBusy())
        return;
    const WorkBasis basis = basisOf(m_session.library);
    const std::shared_ptr<const UndoStep> step = basis.history.next();
    m_session.job.run<UndoneStep>(
        step->files.isEmpty() ? step->name : translate("CleanUp", "Putting back %L1 of %L2", "files"),
        step->files.size(), [basis](const FileJob::Control &control) { return undoNext(basis, control); },
        [self, scan = basis.scan.id, step](const UndoneStep &undone) {
            if (self)
                self->publish(scan, *step, undone);
        });
}

void CleanUp::publish(quint64 scan, const UndoStep &step, const UndoneStep &undone)
{
    const QPointer<CleanUp> self(this);
    if (undone.changesLists && isShown(scan)) {
        m_session.library.setNotes(undone.notes);
        m_session.library.setHistory(undone.history);
        if (self && isShown(scan) && undone.summaryBefore)
            setSummary(*undone.summaryBefore);
        if (self && isShown(scan))
            m_session.library.show(undone.lists);
    } else {
        m_session.library.setHistory(undone.history);
    }
    if (self && undone.changesLists && isShown(scan))
        stopPreviewWithoutRow(undone);
    if (!self)
        return;
    if (step.files.isEmpty()) {
        m_session.notices.showToast(
            translate("CleanUp", "Undone: %1", "the name of a step, such as Keep This One").arg(step.name),
            ToastType::Success);
        return;
    }
    const bool isDone = undone.failures.isEmpty();
    m_session.notices.showToast(undoToastText(undone.restored, undone.failures.size(), undone.notReached),
                                !isDone                 ? ToastType::Error
                                : undone.notReached > 0 ? ToastType::Info
                                                        : ToastType::Success);
    if (self && !isDone)
        m_session.notices.raiseAlert(undoAlertText(undone.failures));
}

void CleanUp::setSummary(const std::shared_ptr<const CleanUpSummary> &summary)
{
    State state = m_state;
    state.summary = summary;
    set(std::move(state));
}

void CleanUp::forgetOtherScan()
{
    const QPointer<CleanUp> self(this);
    // No row will show that it plays.
    const quint64 listed = m_session.library.scanResult().id;
    if (std::exchange(m_listedScan, listed) != listed)
        m_session.preview.stop();
    if (!self || !m_state.summary || isShown(m_summaryScan))
        return;
    State state = m_state;
    state.summary.reset();
    set(std::move(state));
}

void CleanUp::set(State state)
{
    if (state == m_state)
        return;
    State before = std::exchange(m_state, std::move(state));
    Q_EMIT changed(before);
    releaseLater(std::move(before));
}

} // namespace sonavo
