#include "session/duplicate_view_model.h"

#include "model/translate.h"
#include "model/visible_controls.h"
#include "session/clean_up_text.h"

#include <QFileInfo>
#include <QPointer>
#include <QSignalBlocker>

namespace sonavo {

DuplicateViewModel::DuplicateViewModel(Desktop &desktop, const std::shared_ptr<Pauses> &pauses,
                                       QList<Color> colors, std::shared_ptr<KnownDurations> known,
                                       QObject *parent)
    : QObject(parent)
    , m_desktop(desktop)
    , m_colors(std::move(colors))
    , m_notices(pauses)
    , m_preview(desktop)
    , m_scan(m_library, m_notices, pauses, std::move(known))
    , m_importer(desktop, m_library, m_job, m_scan, m_notices)
    , m_cleanUp({desktop, m_library, m_preview, m_notices, m_scan, m_job}, pauses)
    , m_review({m_library, m_preview, m_notices, m_scan, m_job})
    , m_reportSaver(desktop, m_library, m_notices, m_job)
{
    Q_ASSERT(!m_colors.isEmpty());
    connect(&m_library, &Library::songsChanged, this, &DuplicateViewModel::songsChanged);
    connect(&m_library, &Library::duplicateGroupsChanged, this, &DuplicateViewModel::duplicateGroupsChanged);
    connect(&m_library, &Library::historyChanged, this, &DuplicateViewModel::undoTextChanged);
    connect(&m_scan, &Scan::changed, this, &DuplicateViewModel::announceScan);
    connect(&m_notices, &Notices::changed, this, &DuplicateViewModel::announceNotices);
    connect(&m_preview, &Preview::changed, this, &DuplicateViewModel::announcePreview);
    connect(&m_importer, &Importer::changed, this, &DuplicateViewModel::announceImporter);
    connect(&m_job, &FileJob::changed, this, &DuplicateViewModel::announceJob);
    connect(&m_cleanUp, &CleanUp::changed, this, &DuplicateViewModel::announceCleanUp);
    // For the number of duplicates that are left.
    connect(&m_library, &Library::duplicateGroupsChanged, this, &DuplicateViewModel::openQuestionChanged);
    // For the number of songs that remain.
    connect(&m_library, &Library::songsChanged, this, &DuplicateViewModel::cleanUpSummaryChanged);
}

DuplicateViewModel::~DuplicateViewModel() = default;

void DuplicateViewModel::clearAll()
{
    if (!isCleaningUp())
        reset();
}

void DuplicateViewModel::endSession()
{
    m_job.requestStop();
    reset();
}

void DuplicateViewModel::reset()
{
    {
        // Silent until everything is reset, so that nothing here cancels a scan that a listener starts.
        const QSignalBlocker blocker(this);
        m_scan.reset();
        m_preview.stop();
        m_library.clear();
        m_notices.clearAlert();
        m_importer.reset();
    }
    // Announced again at the next turn, for observers that read the properties halfway through.
    QMetaObject::invokeMethod(this, &DuplicateViewModel::announceEverything, Qt::QueuedConnection);
    announceEverything();
}

void DuplicateViewModel::announce(std::initializer_list<std::pair<Signal, bool>> signalsAndWhetherDue)
{
    const QPointer<DuplicateViewModel> self(this);
    for (const auto &[signal, isDue] : signalsAndWhetherDue) {
        if (self && isDue)
            Q_EMIT(this->*signal)();
    }
}

void DuplicateViewModel::announceScan(const Scan::State &before)
{
    const Scan::State &now = m_scan.state();
    const bool isSameProgress = before.progress == now.progress && before.message == now.message &&
                                before.processedFiles == now.processedFiles &&
                                before.totalFiles == now.totalFiles && before.foundFiles == now.foundFiles;
    announce({
        {&DuplicateViewModel::isScanningChanged, before.isRunning != now.isRunning},
        {&DuplicateViewModel::progressChanged, !isSameProgress},
    });
}

void DuplicateViewModel::announceNotices(const Notices::State &before)
{
    const Notices::State &now = m_notices.state();
    announce({
        {&DuplicateViewModel::alertMessageChanged, before.alertMessage != now.alertMessage},
        {&DuplicateViewModel::showAlertChanged, before.isAlertShown != now.isAlertShown},
        {&DuplicateViewModel::toastChanged,
         before.toastNumber != now.toastNumber || before.toastAction != now.toastAction},
        {&DuplicateViewModel::showToastChanged, before.isToastShown != now.isToastShown},
    });
}

void DuplicateViewModel::announcePreview(const Preview::State &before)
{
    const Preview::State &now = m_preview.state();
    announce({
        {&DuplicateViewModel::playerChanged, before.player != now.player},
        {&DuplicateViewModel::currentlyPlayingSongChanged, before.song != now.song},
    });
}

void DuplicateViewModel::announceImporter(const Importer::State &before)
{
    const Importer::State &now = m_importer.state();
    announce({
        {&DuplicateViewModel::pendingImportURLsChanged, before.pendingUrls != now.pendingUrls},
        {&DuplicateViewModel::showLimitWarningChanged, before.isAsking != now.isAsking},
        {&DuplicateViewModel::openQuestionChanged, before.openedUrls != now.openedUrls},
        {&DuplicateViewModel::scanAllChanged, before.droppedUrls != now.droppedUrls},
    });
}

void DuplicateViewModel::announceJob(const FileJob::State &before)
{
    const FileJob::State &now = m_job.state();
    announce({
        {&DuplicateViewModel::cleanUpProgressChanged, true},
        {&DuplicateViewModel::isCleaningUpChanged, before.isRunning != now.isRunning},
    });
}

void DuplicateViewModel::announceCleanUp(const CleanUp::State &before)
{
    const CleanUp::State &now = m_cleanUp.state();
    announce({
        {&DuplicateViewModel::cleanUpSummaryChanged, before.summary != now.summary},
    });
}

void DuplicateViewModel::announceEverything()
{
    announce({
        {&DuplicateViewModel::playerChanged, true},
        {&DuplicateViewModel::songsChanged, true},
        {&DuplicateViewModel::duplicateGroupsChanged, true},
        {&DuplicateViewModel::progressChanged, true},
        {&DuplicateViewModel::currentlyPlayingSongChanged, true},
        {&DuplicateViewModel::showAlertChanged, true},
        {&DuplicateViewModel::alertMessageChanged, true},
        {&DuplicateViewModel::pendingImportURLsChanged, true},
        {&DuplicateViewModel::showLimitWarningChanged, true},
        {&DuplicateViewModel::openQuestionChanged, true},
        {&DuplicateViewModel::scanAllChanged, true},
        {&DuplicateViewModel::isScanningChanged, true},
        {&DuplicateViewModel::cleanUpProgressChanged, true},
        {&DuplicateViewModel::isCleaningUpChanged, true},
        {&DuplicateViewModel::undoTextChanged, true},
        {&DuplicateViewModel::cleanUpSummaryChanged, true},
        {&DuplicateViewModel::toastChanged, true},
        {&DuplicateViewModel::showToastChanged, true},
    });
}

void DuplicateViewModel::performToastAction()
{
    if (toastAction().isEmpty())
        return;
    switch (m_notices.state().toastActionKind) {
    case Notices::ToastAction::Undo:
        undo();
        break;
    case Notices::ToastAction::ScanAll:
        scanAllDropped();
        break;
    case Notices::ToastAction::ShowReport:
        m_notices.setToastShown(false);
        showInFileViewer(m_reportSaver.savedPath());
        break;
    }
}

void DuplicateViewModel::importFromClipboard()
{
    const QList<QUrl> files = m_desktop.copiedFiles();
    if (files.isEmpty())
        showToast(translate("DuplicateViewModel", "No files have been copied"), ToastType::Info);
    else
        openItems(files);
}

void DuplicateViewModel::showInFileViewer(const QString &path)
{
    m_desktop.showInFileViewer(path, [self = QPointer<DuplicateViewModel>(this)] {
        if (self)
            self->showToast(translate("DuplicateViewModel", "The folder could not be opened"),
                            ToastType::Error);
    });
}

QString DuplicateViewModel::cleanupAllDescription() const
{
    return descriptionOf(m_library.duplicateTotals(), CleanUpTarget::Trash);
}

QString DuplicateViewModel::moveDuplicatesDescription() const
{
    return descriptionOf(m_library.duplicateTotals(), CleanUpTarget::Folder);
}

QString DuplicateViewModel::moreFoundDescription() const
{
    return isFurtherResult() ? moreFoundText(onlyFurther().size()) : QString();
}

void DuplicateViewModel::keepCopiesInFolderOf(const Song &song)
{
    m_review.keepCopiesIn(QFileInfo(song.path).path());
}

QDateTime DuplicateViewModel::modifiedAt(const Song &song) const
{
    constexpr qint64 NANOSECONDS_PER_MILLISECOND = 1'000'000;
    const auto note = m_library.notes().constFind(song.id);
    return note == m_library.notes().cend()
               ? QDateTime()
               : QDateTime::fromMSecsSinceEpoch(note->modified / NANOSECONDS_PER_MILLISECOND);
}

QString DuplicateViewModel::playingName() const
{
    return currentlyPlayingSong() ? withVisibleControls(currentlyPlayingSong()->name) : QString();
}

QString DuplicateViewModel::cleanUpHeadline() const
{
    return hasCleanUpSummary() ? headlineOf(*m_cleanUp.state().summary) : QString();
}

QString DuplicateViewModel::cleanUpRemaining() const
{
    return hasCleanUpSummary() ? remainingText(songCount()) : QString();
}

QString DuplicateViewModel::cleanUpLosses() const
{
    return hasCleanUpSummary() ? m_cleanUp.state().summary->losses : QString();
}

QList<SongFailure> DuplicateViewModel::cleanUpFailures() const
{
    return hasCleanUpSummary() ? m_cleanUp.state().summary->failures : QList<SongFailure>();
}

QVariant DuplicateViewModel::currentlyPlayingSongVariant() const
{
    return currentlyPlayingSong() ? QVariant::fromValue(*currentlyPlayingSong()) : QVariant();
}

} // namespace sonavo
