#pragma once

#include "model/color.h"
#include "session/clean_up.h"
#include "session/file_job.h"
#include "session/importer.h"
#include "session/library.h"
#include "session/notices.h"
#include "session/preview.h"
#include "session/report_saver.h"
#include "session/review.h"
#include "session/scan.h"

#include <QDateTime>
#include <QList>
#include <QObject>
#include <QUrl>
#include <QVariant>

#include <initializer_list>
#include <memory>
#include <optional>
#include <utility>

namespace sonavo {

/// The session as the views see it: its parts' values as properties and their operations, and the order in
/// which changes are announced. Every value is set before any change of it is announced. Main thread only.
class DuplicateViewModel : public QObject
{
    Q_OBJECT
    /// See Library. The counts are cheaper than the lists.
    Q_PROPERTY(QList<sonavo::Song> songs READ songs NOTIFY songsChanged)
    Q_PROPERTY(int songCount READ songCount NOTIFY songsChanged)
    Q_PROPERTY(
        QList<sonavo::DuplicateGroup> duplicateGroups READ duplicateGroups NOTIFY duplicateGroupsChanged)
    /// Includes groups that were left with their original alone.
    Q_PROPERTY(int duplicateGroupCount READ duplicateGroupCount NOTIFY duplicateGroupsChanged)
    Q_PROPERTY(int duplicateCount READ duplicateCount NOTIFY duplicateGroupsChanged)
    /// What the buttons for all duplicates will do, as "Move 344 duplicates (1.2 GB) to the Trash".
    Q_PROPERTY(QString cleanupAllDescription READ cleanupAllDescription NOTIFY duplicateGroupsChanged)
    Q_PROPERTY(QString moveDuplicatesDescription READ moveDuplicatesDescription NOTIFY duplicateGroupsChanged)
    /// Whether the groups are those that looking further has found.
    Q_PROPERTY(bool isFurtherResult READ isFurtherResult NOTIFY duplicateGroupsChanged)
    /// What that has added, as "14 more duplicates found"; empty when it is the first result that is shown.
    Q_PROPERTY(QString moreFoundDescription READ moreFoundDescription NOTIFY duplicateGroupsChanged)
    /// See Scan::State.
    Q_PROPERTY(bool isScanning READ isScanning NOTIFY isScanningChanged)
    Q_PROPERTY(double progress READ progress NOTIFY progressChanged)
    Q_PROPERTY(qint64 processedFiles READ processedFiles NOTIFY progressChanged)
    Q_PROPERTY(qint64 totalFiles READ totalFiles NOTIFY progressChanged)
    Q_PROPERTY(int foundFiles READ foundFiles NOTIFY progressChanged)
    Q_PROPERTY(QString scanMessage READ scanMessage NOTIFY progressChanged)
    /// Set to false when the user dismisses the alert.
    Q_PROPERTY(bool showAlert READ showAlert WRITE setShowAlert NOTIFY showAlertChanged)
    Q_PROPERTY(QString alertMessage READ alertMessage NOTIFY alertMessageChanged)
    /// Null without a preview.
    Q_PROPERTY(sonavo::PreviewPlayer *player READ player NOTIFY playerChanged)
    /// Undefined without a preview.
    Q_PROPERTY(
        QVariant currentlyPlayingSong READ currentlyPlayingSongVariant NOTIFY currentlyPlayingSongChanged)
    /// Name of that song as it is shown; empty without a preview.
    Q_PROPERTY(QString playingName READ playingName NOTIFY currentlyPlayingSongChanged)
    /// Whether the user must be asked about the import of pendingImportURLs. Set to false when the question
    /// is closed.
    Q_PROPERTY(
        bool showLimitWarning READ showLimitWarning WRITE setShowLimitWarning NOTIFY showLimitWarningChanged)
    /// Emptied when the answer is no.
    Q_PROPERTY(QList<QUrl> pendingImportURLs READ pendingImportURLs WRITE setPendingImportURLs NOTIFY
                   pendingImportURLsChanged)
    /// Whether items from another program may replace the result; empty when there is nothing to ask.
    Q_PROPERTY(QString openQuestion READ openQuestion NOTIFY openQuestionChanged)
    /// As "Scan All 3", when only the last of several dropped items was scanned; else empty.
    Q_PROPERTY(QString scanAllText READ scanAllText NOTIFY scanAllChanged)
    /// Which one that was; empty with scanAllText.
    Q_PROPERTY(QString scanAllNote READ scanAllNote NOTIFY scanAllChanged)
    /// Set to false when the user closes the toast.
    Q_PROPERTY(bool showToast READ showToast WRITE setShowToast NOTIFY showToastChanged)
    Q_PROPERTY(QString toastMessage READ toastMessage NOTIFY toastChanged)
    Q_PROPERTY(sonavo::Notices::ToastType toastType READ toastType NOTIFY toastChanged)
    /// Counts the toasts.
    Q_PROPERTY(int toastNumber READ toastNumber NOTIFY toastChanged)
    /// Text of the toast's button; empty without one.
    Q_PROPERTY(QString toastAction READ toastAction NOTIFY toastChanged)
    /// Files are being moved, or the groups changed. Meanwhile everything that would change the session is
    /// ignored.
    Q_PROPERTY(bool isCleaningUp READ isCleaningUp NOTIFY isCleaningUpChanged)
    /// Whether that has taken long enough to show how far it is.
    Q_PROPERTY(bool showCleanUpProgress READ showCleanUpProgress NOTIFY cleanUpProgressChanged)
    /// As "Moving 1,234 of 4,943 to the Trash".
    Q_PROPERTY(QString cleanUpMessage READ cleanUpMessage NOTIFY cleanUpProgressChanged)
    /// From 0.0 to 1.0.
    Q_PROPERTY(double cleanUpFraction READ cleanUpFraction NOTIFY cleanUpProgressChanged)
    /// As "About 2 minutes left"; empty unless it takes longer than some seconds.
    Q_PROPERTY(QString cleanUpTimeLeft READ cleanUpTimeLeft NOTIFY cleanUpProgressChanged)
    /// It was asked to stop, and still ends the file at hand.
    Q_PROPERTY(bool isCleanUpStopping READ isCleanUpStopping NOTIFY cleanUpProgressChanged)
    /// See UndoHistory::nextText().
    Q_PROPERTY(QString undoText READ undoText NOTIFY undoTextChanged)
    /// What the last clean-up of all duplicates has done, until the next scan or its undo.
    Q_PROPERTY(bool hasCleanUpSummary READ hasCleanUpSummary NOTIFY cleanUpSummaryChanged)
    /// As "30 files moved to the Trash • 1.2 GB".
    Q_PROPERTY(QString cleanUpHeadline READ cleanUpHeadline NOTIFY cleanUpSummaryChanged)
    /// As "150 songs remain".
    Q_PROPERTY(QString cleanUpRemaining READ cleanUpRemaining NOTIFY cleanUpSummaryChanged)
    /// What the target folder could not store; empty when nothing was lost.
    Q_PROPERTY(QString cleanUpLosses READ cleanUpLosses NOTIFY cleanUpSummaryChanged)
    Q_PROPERTY(int cleanUpFailureCount READ cleanUpFailureCount NOTIFY cleanUpSummaryChanged)

public:
    using ToastType = Notices::ToastType;

    static constexpr qint64 OPTIMAL_LIMIT = Importer::OPTIMAL_LIMIT;
    static constexpr qint64 MAXIMUM_LIMIT = Importer::MAXIMUM_LIMIT;
    /// Tuning values that nothing reads; the comparison has its own.
    static constexpr qint64 WARNING_LIMIT = 50'000;
    static constexpr double DURATION_DIFF_STRICT = 0.03;
    static constexpr double DURATION_DIFF_MEDIUM = 0.05;
    static constexpr double DURATION_DIFF_LOOSE = 0.1;
    static constexpr double SIZE_DIFF_STRICT = 0.15;
    static constexpr double SIZE_DIFF_LOOSE = 0.2;
    static constexpr double SIMILARITY_THRESHOLD = 0.9;

    /// @param desktop must outlive the session
    /// @param colors background tints of the groups, one for each slot
    /// @param known makes the next scan read only the files that have changed; may be null
    DuplicateViewModel(Desktop &desktop, const std::shared_ptr<Pauses> &pauses, QList<Color> colors,
                       std::shared_ptr<KnownDurations> known = {}, QObject *parent = nullptr);
    /// Cancels nothing: what still runs notices that the session is gone.
    ~DuplicateViewModel() override;

    [[nodiscard]] const QList<Song> &songs() const { return m_library.songs(); }
    [[nodiscard]] int songCount() const { return static_cast<int>(songs().size()); }
    [[nodiscard]] const QList<DuplicateGroup> &duplicateGroups() const { return m_library.duplicateGroups(); }
    [[nodiscard]] int duplicateGroupCount() const { return static_cast<int>(duplicateGroups().size()); }
    [[nodiscard]] int duplicateCount() const { return m_library.duplicateTotals().count; }
    [[nodiscard]] bool isFurtherResult() const { return m_library.lists().depth == SearchDepth::Further; }
    [[nodiscard]] QString moreFoundDescription() const;
    /// When a song's file was last changed before it was read, in local time; invalid unless it is in a
    /// group.
    [[nodiscard]] QDateTime modifiedAt(const Song &song) const;
    /// Whether a song keeps the samples as they were recorded.
    [[nodiscard]] bool isLossless(const Song &song) const
    {
        return m_library.scanResult().lossless.contains(song);
    }
    /// Ids of the duplicates that only looking further has found.
    [[nodiscard]] const QSet<QUuid> &onlyFurther() const { return m_library.lists().onlyFurther; }
    [[nodiscard]] bool isScanning() const { return m_scan.state().isRunning; }
    [[nodiscard]] double progress() const { return m_scan.state().progress; }
    [[nodiscard]] qint64 processedFiles() const { return m_scan.state().processedFiles; }
    [[nodiscard]] qint64 totalFiles() const { return m_scan.state().totalFiles; }
    [[nodiscard]] int foundFiles() const { return static_cast<int>(m_scan.state().foundFiles); }
    [[nodiscard]] const QString &scanMessage() const { return m_scan.state().message; }
    [[nodiscard]] bool showAlert() const { return m_notices.state().isAlertShown; }
    [[nodiscard]] const QString &alertMessage() const { return m_notices.state().alertMessage; }
    [[nodiscard]] PreviewPlayer *player() const { return m_preview.state().player; }
    [[nodiscard]] const std::optional<Song> &currentlyPlayingSong() const { return m_preview.state().song; }
    [[nodiscard]] QString playingName() const;
    [[nodiscard]] bool showLimitWarning() const { return m_importer.state().isAsking; }
    [[nodiscard]] const QList<QUrl> &pendingImportURLs() const { return m_importer.state().pendingUrls; }
    [[nodiscard]] QString openQuestion() const { return m_importer.openQuestion(); }
    [[nodiscard]] QString scanAllText() const { return m_importer.scanAllText(); }
    [[nodiscard]] QString scanAllNote() const { return m_importer.scanAllNote(); }
    [[nodiscard]] bool showToast() const { return m_notices.state().isToastShown; }
    [[nodiscard]] const QString &toastMessage() const { return m_notices.state().toastMessage; }
    [[nodiscard]] ToastType toastType() const { return m_notices.state().toastType; }
    [[nodiscard]] int toastNumber() const { return m_notices.state().toastNumber; }
    [[nodiscard]] const QString &toastAction() const { return m_notices.state().toastAction; }
    [[nodiscard]] QString cleanupAllDescription() const;
    [[nodiscard]] QString moveDuplicatesDescription() const;
    [[nodiscard]] bool isCleaningUp() const { return m_job.state().isRunning; }
    [[nodiscard]] bool showCleanUpProgress() const { return m_job.state().isShown; }
    [[nodiscard]] const QString &cleanUpMessage() const { return m_job.state().message; }
    [[nodiscard]] double cleanUpFraction() const { return m_job.state().fraction; }
    [[nodiscard]] const QString &cleanUpTimeLeft() const { return m_job.state().timeLeft; }
    [[nodiscard]] bool isCleanUpStopping() const { return m_job.state().isStopping; }
    [[nodiscard]] QString undoText() const { return m_library.history().nextText(); }
    [[nodiscard]] bool hasCleanUpSummary() const { return m_cleanUp.state().summary != nullptr; }
    [[nodiscard]] QString cleanUpHeadline() const;
    [[nodiscard]] QString cleanUpRemaining() const;
    [[nodiscard]] QString cleanUpLosses() const;
    /// Songs that the last clean-up has left where they were, and why.
    [[nodiscard]] QList<SongFailure> cleanUpFailures() const;
    [[nodiscard]] int cleanUpFailureCount() const { return static_cast<int>(cleanUpFailures().size()); }
    [[nodiscard]] const QList<Color> &colors() const { return m_colors; }

    void setShowAlert(bool isShown) { m_notices.setAlertShown(isShown); }
    void setShowLimitWarning(bool isShown) { m_importer.setAsking(isShown); }
    void setPendingImportURLs(const QList<QUrl> &urls) { m_importer.setPendingUrls(urls); }
    void setShowToast(bool isShown) { m_notices.setToastShown(isShown); }

    /// See Notices.
    void showToast(const QString &message, ToastType type) { m_notices.showToast(message, type); }

    /// See Importer.
    Q_INVOKABLE bool importDroppedItems(const QList<QUrl> &urls)
    {
        return m_importer.importDroppedItems(urls);
    }
    Q_INVOKABLE bool importDrop(const QList<QUrl> &urls) { return m_importer.importDrop(urls); }
    bool importChosenItems(const QList<QUrl> &urls) { return m_importer.importChosenItems(urls); }
    Q_INVOKABLE bool importWithOpenPanel() { return m_importer.importWithOpenPanel(); }
    bool openItems(const QList<QUrl> &urls) { return m_importer.openItems(urls); }
    Q_INVOKABLE void acceptOpenedItems() { m_importer.acceptOpenedItems(); }
    /// Imports the files and folders that were copied in a file manager, as openItems() does.
    Q_INVOKABLE void importFromClipboard();
    Q_INVOKABLE void declineOpenedItems() { m_importer.declineOpenedItems(); }
    Q_INVOKABLE void scanAllDropped() { m_importer.scanAllDropped(); }
    Q_INVOKABLE void startScan(const QList<QUrl> &urls) { m_importer.startScan(urls); }

    /// See Preview.
    Q_INVOKABLE void togglePlayback(const sonavo::Song &song) { m_preview.toggle(song); }
    Q_INVOKABLE void comparePlayback(const sonavo::Song &song) { m_preview.compare(song); }
    Q_INVOKABLE void seekPlayback(double x, double width) { m_preview.seek(x, width); }
    Q_INVOKABLE void stopPlayback() { m_preview.stop(); }

    /// See CleanUp.
    Q_INVOKABLE void moveDuplicatesToFolder() { m_cleanUp.moveDuplicatesToFolder(); }
    Q_INVOKABLE void cleanupAll() { m_cleanUp.trashDuplicates(); }
    Q_INVOKABLE void moveGroupToFolder(const sonavo::Song &member) { m_cleanUp.moveGroupToFolder(member.id); }
    Q_INVOKABLE void trashGroup(const sonavo::Song &member) { m_cleanUp.trashGroup(member.id); }
    Q_INVOKABLE void deleteSong(const sonavo::Song &song) { m_cleanUp.deleteSong(song); }
    /// Tries again to move the songs that the last clean-up could not move.
    Q_INVOKABLE void retryCleanUp() { m_cleanUp.retry(); }
    /// Takes back the last step that can be undone.
    Q_INVOKABLE void undo() { m_cleanUp.undo(); }
    /// Ends a clean-up or an undo after the file at hand, and looking further at once.
    Q_INVOKABLE void stopCleanUp() { m_job.requestStop(); }

    /// See Review.
    Q_INVOKABLE void findMore() { m_review.findMore(); }
    Q_INVOKABLE void returnToFirstResult() { m_review.returnToFirstResult(); }
    Q_INVOKABLE void keepSong(const sonavo::Song &song) { m_review.keepSong(song); }
    /// Keeps the copies in a song's folder, and below it.
    Q_INVOKABLE void keepCopiesInFolderOf(const sonavo::Song &song);
    Q_INVOKABLE void keepLosslessCopies() { m_review.keepLosslessCopies(); }
    Q_INVOKABLE void excludeFromDuplicates(const sonavo::Song &song) { m_review.excludeFromDuplicates(song); }

    /// See ReportSaver.
    Q_INVOKABLE void saveReport() { m_reportSaver.save(); }

    /// Does what the toast's button says.
    Q_INVOKABLE void performToastAction();
    /// See Notices.
    Q_INVOKABLE void holdToast(bool isHeld) { m_notices.holdToast(isHeld); }

    /// Copies the path of a song's file to the clipboard.
    Q_INVOKABLE void copyPath(const sonavo::Song &song) { m_desktop.copyToClipboard(song.path); }
    /// Shows a song's file in the system's file viewer.
    Q_INVOKABLE void revealSong(const sonavo::Song &song) { showInFileViewer(song.path); }

    /// Empties the session: cancels a running scan, stops the preview and returns every property to its
    /// initial value, except those of the toast. Does nothing while files are being moved.
    Q_INVOKABLE void clearAll();
    /// The same at the end of the application: files that are being moved do not prevent it, and no further
    /// one is begun.
    void endSession();

Q_SIGNALS:
    void songsChanged();
    void duplicateGroupsChanged();
    void isScanningChanged();
    void progressChanged();
    void showAlertChanged();
    void alertMessageChanged();
    void playerChanged();
    void currentlyPlayingSongChanged();
    void showLimitWarningChanged();
    void pendingImportURLsChanged();
    void openQuestionChanged();
    void scanAllChanged();
    void showToastChanged();
    void toastChanged();
    void isCleaningUpChanged();
    void cleanUpProgressChanged();
    void undoTextChanged();
    void cleanUpSummaryChanged();

private:
    using Signal = void (DuplicateViewModel::*)();

    /// Emits those of the signals that are due, in this order, as long as no listener destroys the session.
    void announce(std::initializer_list<std::pair<Signal, bool>> signalsAndWhetherDue);
    void announceScan(const Scan::State &before);
    void announceNotices(const Notices::State &before);
    void announcePreview(const Preview::State &before);
    void announceImporter(const Importer::State &before);
    void announceJob(const FileJob::State &before);
    void announceCleanUp(const CleanUp::State &before);
    /// A toast says when nothing could show it.
    void showInFileViewer(const QString &path);
    void reset();
    void announceEverything();
    [[nodiscard]] QVariant currentlyPlayingSongVariant() const;

    Desktop &m_desktop;
    const QList<Color> m_colors;
    Library m_library;
    FileJob m_job;
    Notices m_notices;
    Preview m_preview;
    Scan m_scan;
    Importer m_importer;
    CleanUp m_cleanUp;
    Review m_review;
    ReportSaver m_reportSaver;
};

} // namespace sonavo
