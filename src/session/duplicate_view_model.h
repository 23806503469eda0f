#pragma once

#include "actions/desktop.h"
#include "actions/preview_player.h"
#include "analysis/pauses.h"
#include "model/color.h"
#include "model/duplicate_group.h"
#include "model/song.h"

#include <QCoroTask>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QUrl>
#include <QVariant>

#include <memory>
#include <optional>
#include <stop_token>

namespace sonavo {

struct CleanUpOutcome;

/// The one session of the application: the songs that were imported, the duplicates among them, the progress
/// of a running scan, and what is to be shown to the person. Lives in the main thread and is used only there;
/// what it starts elsewhere comes back to the main thread before anything is published.
class DuplicateViewModel : public QObject
{
    Q_OBJECT
    /// Every song of the session, in import order.
    Q_PROPERTY(QList<sonavo::Song> songs READ songs NOTIFY songsChanged)
    /// How many songs there are; cheaper than looking at all of them.
    Q_PROPERTY(int songCount READ songCount NOTIFY songsChanged)
    /// The result of the last analysis, in the order in which it made the groups.
    Q_PROPERTY(
        QList<sonavo::DuplicateGroup> duplicateGroups READ duplicateGroups NOTIFY duplicateGroupsChanged)
    /// How many groups there are, also those that were left with their original alone.
    Q_PROPERTY(int duplicateGroupCount READ duplicateGroupCount NOTIFY duplicateGroupsChanged)
    /// How many duplicates all groups hold together; originals do not count.
    Q_PROPERTY(int duplicateCount READ duplicateCount NOTIFY duplicateGroupsChanged)
    /// Whether a scan (import and analysis) is running.
    Q_PROPERTY(bool isScanning READ isScanning NOTIFY isScanningChanged)
    /// How much of the running scan's current part is done, from 0.0 to 1.0. It goes back to less when
    /// another part begins.
    Q_PROPERTY(double progress READ progress NOTIFY progressChanged)
    /// Files read so far, of totalFiles.
    Q_PROPERTY(qint64 processedFiles READ processedFiles NOTIFY processedFilesChanged)
    Q_PROPERTY(qint64 totalFiles READ totalFiles NOTIFY totalFilesChanged)
    /// What the scan is doing.
    Q_PROPERTY(QString scanMessage READ scanMessage NOTIFY scanMessageChanged)
    /// Whether an alert with alertMessage is to be shown; set to false when it is dismissed.
    Q_PROPERTY(bool showAlert READ showAlert WRITE setShowAlert NOTIFY showAlertChanged)
    Q_PROPERTY(QString alertMessage READ alertMessage NOTIFY alertMessageChanged)
    /// The player of the song being previewed, or null.
    Q_PROPERTY(sonavo::PreviewPlayer *player READ player NOTIFY playerChanged)
    /// The song being previewed, or undefined.
    Q_PROPERTY(
        QVariant currentlyPlayingSong READ currentlyPlayingSongVariant NOTIFY currentlyPlayingSongChanged)
    /// Whether the person is to be asked about an import of more than OPTIMAL_LIMIT songs: pendingImportURLs.
    /// Set to false when the question is dismissed.
    Q_PROPERTY(
        bool showLimitWarning READ showLimitWarning WRITE setShowLimitWarning NOTIFY showLimitWarningChanged)
    /// Emptied when the question is answered with no.
    Q_PROPERTY(QList<QUrl> pendingImportURLs READ pendingImportURLs WRITE setPendingImportURLs NOTIFY
                   pendingImportURLsChanged)
    /// Whether a transient notice of toastType with toastMessage is visible; set to false when the person
    /// closes it.
    Q_PROPERTY(bool showToast READ showToast WRITE setShowToast NOTIFY showToastChanged)
    Q_PROPERTY(QString toastMessage READ toastMessage NOTIFY toastMessageChanged)
    Q_PROPERTY(ToastType toastType READ toastType NOTIFY toastTypeChanged)

public:
    enum class ToastType
    {
        Success,
        Error,
        Info
    };
    Q_ENUM(ToastType)

    /// Songs in a session that start without asking, and that may be imported at all.
    static constexpr qint64 OPTIMAL_LIMIT = 10'000;
    static constexpr qint64 WARNING_LIMIT = 50'000;
    static constexpr qint64 MAXIMUM_LIMIT = 500'000;
    /// Tuning values that nothing consults; the comparison has values of its own.
    static constexpr double DURATION_DIFF_STRICT = 0.03;
    static constexpr double DURATION_DIFF_MEDIUM = 0.05;
    static constexpr double DURATION_DIFF_LOOSE = 0.1;
    static constexpr double SIZE_DIFF_STRICT = 0.15;
    static constexpr double SIZE_DIFF_LOOSE = 0.2;
    static constexpr double SIMILARITY_THRESHOLD = 0.9;

    /// @param desktop must outlive the session
    /// @param colors background tints of the groups, one for each slot
    DuplicateViewModel(Desktop &desktop, std::shared_ptr<Pauses> pauses, QList<Color> colors,
                       QObject *parent = nullptr);
    /// Cancels nothing: what still runs notices that the session is gone.
    ~DuplicateViewModel() override;

    [[nodiscard]] const QList<Song> &songs() const { return m_songs; }
    [[nodiscard]] int songCount() const { return static_cast<int>(m_songs.size()); }
    [[nodiscard]] int duplicateGroupCount() const { return static_cast<int>(m_duplicateGroups.size()); }
    [[nodiscard]] int duplicateCount() const;
    [[nodiscard]] const QList<DuplicateGroup> &duplicateGroups() const { return m_duplicateGroups; }
    [[nodiscard]] bool isScanning() const { return m_isScanning; }
    [[nodiscard]] double progress() const { return m_progress; }
    [[nodiscard]] qint64 processedFiles() const { return m_processedFiles; }
    [[nodiscard]] qint64 totalFiles() const { return m_totalFiles; }
    [[nodiscard]] const QString &scanMessage() const { return m_scanMessage; }
    [[nodiscard]] bool showAlert() const { return m_showAlert; }
    [[nodiscard]] const QString &alertMessage() const { return m_alertMessage; }
    [[nodiscard]] PreviewPlayer *player() const { return m_player.get(); }
    [[nodiscard]] const std::optional<Song> &currentlyPlayingSong() const { return m_currentlyPlayingSong; }
    [[nodiscard]] bool showLimitWarning() const { return m_showLimitWarning; }
    [[nodiscard]] const QList<QUrl> &pendingImportURLs() const { return m_pendingImportURLs; }
    [[nodiscard]] bool showToast() const { return m_showToast; }
    [[nodiscard]] const QString &toastMessage() const { return m_toastMessage; }
    [[nodiscard]] ToastType toastType() const { return m_toastType; }
    [[nodiscard]] const QList<Color> &colors() const { return m_colors; }

    void setShowAlert(bool isShown);
    void setShowLimitWarning(bool isShown);
    void setPendingImportURLs(const QList<QUrl> &urls);
    void setShowToast(bool isShown);

    /// Shows a transient notice for three seconds. Another notice within that time replaces it at once and is
    /// hidden when the time of the first is over.
    void showToast(const QString &message, ToastType type);

    /// Imports dropped files and folders, as far as the session limits allow: an import beyond MAXIMUM_LIMIT
    /// raises an alert, one beyond OPTIMAL_LIMIT waits for the person in pendingImportURLs.
    /// @param urls file URLs
    /// @return whether a scan was started
    Q_INVOKABLE bool importDroppedItems(const QList<QUrl> &urls);

    /// Imports what was dropped together, each item by itself, so that the last one stands; says so in a
    /// toast when there is more than one to import. What is not a file is ignored.
    /// @return whether a scan was started
    Q_INVOKABLE bool importDrop(const QList<QUrl> &urls);

    /// Imports files and folders that the person named all together, within the same limits.
    /// @param urls file URLs
    /// @return whether a scan was started
    bool importChosenItems(const QList<QUrl> &urls);

    /// Lets the person choose files and folders and imports them like importChosenItems().
    /// @return whether a scan was started
    Q_INVOKABLE bool importWithOpenPanel();

    /// Scans files and folders in place of a scan that may be running: finds the audio files, reads them into
    /// `songs`, which loses what it held, and finds the duplicates among them. Returns at once; an empty list
    /// does nothing.
    /// @param urls file URLs; a copy, because they can be pendingImportURLs, which the scan empties
    Q_INVOKABLE void startScan(QList<QUrl> urls);

    /// Plays a song from its beginning, in place of any other; stops it when it is the one being previewed.
    /// The sound starts at the next turn of the event loop. That a song has come to its end is not noticed:
    /// it stays the one being previewed.
    /// @param song a copy, like that of deleteSong(): it can be one that the session lets go of meanwhile
    Q_INVOKABLE void togglePlayback(sonavo::Song song);

    /// Goes on with the preview at the second that a click on the song's row stands for; see seekTarget().
    /// Nothing happens as long as there is no player.
    Q_INVOKABLE void seekPlayback(double x, double width);

    /// Stops the preview and lets go of its file.
    Q_INVOKABLE void stopPlayback();

    /// Moves every duplicate into a new folder inside one that the person chooses, takes the duplicates off
    /// the list, tells the outcome in a toast and puts the new folder's path on the clipboard. The chooser
    /// runs the event loop; when the result has changed meanwhile, nothing is moved. The files are moved
    /// before this returns.
    Q_INVOKABLE void moveDuplicatesToFolder();

    /// Sends every duplicate to the Trash, takes the duplicates off the list and tells the outcome in a
    /// toast.
    Q_INVOKABLE void cleanupAll();

    /// Sends one song's file to the Trash and repairs the group that held it. On failure nothing changes but
    /// that a preview of the song has stopped. A song whose file is gone already leaves `songs` without a
    /// word, and its group stays as it is.
    Q_INVOKABLE void deleteSong(sonavo::Song song);

    /// Puts the path of a song's file on the clipboard.
    Q_INVOKABLE void copyPath(const sonavo::Song &song);

    /// Shows a song's file in the system's file viewer.
    Q_INVOKABLE void revealSong(const sonavo::Song &song);

    /// Empties the session: cancels a running scan, stops the preview and returns every property to its
    /// initial value, except those of the toast.
    Q_INVOKABLE void clearAll();

Q_SIGNALS:
    void songsChanged();
    void duplicateGroupsChanged();
    void isScanningChanged();
    void progressChanged();
    void processedFilesChanged();
    void totalFilesChanged();
    void scanMessageChanged();
    void showAlertChanged();
    void alertMessageChanged();
    void playerChanged();
    void currentlyPlayingSongChanged();
    void showLimitWarningChanged();
    void pendingImportURLsChanged();
    void showToastChanged();
    void toastMessageChanged();
    void toastTypeChanged();

private:
    using Change = void (DuplicateViewModel::*)();

    /// The scan from the first message to the groups. Once `stop` is requested or the session is gone,
    /// nothing more is published.
    static QCoro::Task<> scan(QPointer<DuplicateViewModel> self, QList<QUrl> urls, std::stop_token stop);
    static QCoro::Task<> hideToastLater(QPointer<DuplicateViewModel> self);

    static QCoro::Task<> announceCopiedPath(QPointer<DuplicateViewModel> self);

    bool importWithinLimits(const QList<QUrl> &urls, const QString &refusal);
    void startPlayback(const Song &song);
    [[nodiscard]] bool isPreviewOf(const Song &song) const;
    void stopPlaybackOfDuplicates();
    /// @param done, partlyDone what was moved, when all was and when some failed; %1 is the number
    void showOutcome(const CleanUpOutcome &outcome, const QString &done, const QString &partlyDone);
    void takeDuplicatesOffTheList();
    void cancelCurrentAnalysisTask();
    void announceEverything();
    [[nodiscard]] QVariant currentlyPlayingSongVariant() const;

    template <typename T>
    void set(T &property, const T &value, Change changed);
    void setSongs(const QList<Song> &songs);
    void setDuplicateGroups(const QList<DuplicateGroup> &groups);
    void setIsScanning(bool isScanning);
    void setProgress(double progress);
    void setProcessedFiles(qint64 count);
    void setTotalFiles(qint64 count);
    void setScanMessage(const QString &message);
    void setAlertMessage(const QString &message);

    Desktop &m_desktop;
    const std::shared_ptr<Pauses> m_pauses;
    const QList<Color> m_colors;

    QList<Song> m_songs;
    QList<DuplicateGroup> m_duplicateGroups;
    bool m_isScanning = false;
    double m_progress = 0.0;
    qint64 m_processedFiles = 0;
    qint64 m_totalFiles = 0;
    QString m_scanMessage;
    bool m_showAlert = false;
    QString m_alertMessage;
    std::unique_ptr<PreviewPlayer> m_player;
    std::optional<Song> m_currentlyPlayingSong;
    bool m_showLimitWarning = false;
    QList<QUrl> m_pendingImportURLs;
    bool m_showToast = false;
    QString m_toastMessage;
    ToastType m_toastType = ToastType::Info;

    /// Grows with every preview that starts or stops: a start that comes late knows by it.
    quint64 m_previewNumber = 0;
    /// Grows with every clearing of the session: what a chooser returned for an earlier one is void.
    quint64 m_sessionNumber = 0;

    /// The running scan, or the last one.
    std::optional<std::stop_source> m_currentAnalysisTask;
};

} // namespace sonavo
