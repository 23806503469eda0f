#include "session/duplicate_view_model.h"

#include "actions/clean_up.h"
#include "actions/click_to_seek.h"
#include "actions/duplicates_folder.h"
#include "actions/file_identity.h"
#include "analysis/analyze_duplicates.h"
#include "import/audio_discovery.h"
#include "import/disk_task.h"
#include "import/song_read_ahead.h"
#include "model/byte_count.h"
#include "model/saturating.h"

#include <QCoroFuture>
#include <QDir>
#include <QMetaProperty>

#include <algorithm>
#include <numeric>
#include <utility>

namespace sonavo {

using namespace std::chrono_literals;

namespace {

/// Takes steps in order as long as the condition holds before each of them. A step that changes a property
/// can lead to a listener that clears the session or starts another scan, which must have the last word.
/// @return whether all were taken and the condition still holds
template <typename Condition, typename... Steps>
bool takeSteps(const Condition &mayGoOn, const Steps &...steps)
{
    return ((mayGoOn() && (steps(), true)) && ...) && mayGoOn();
}

QString droppedItemsRefusal()
{
    return QStringLiteral("Cannot import more than %1 songs in a single session.\n\n"
                          "For large music libraries, we recommend:\n"
                          "\u2022 Processing your library in batches by genre or folder\n"
                          "\u2022 Using 1000-2000 songs per session for best performance\n"
                          "\u2022 Clearing previous results before starting a new batch\n\n"
                          "This helps ensure accurate duplicate detection and optimal performance.")
        .arg(DuplicateViewModel::MAXIMUM_LIMIT);
}

QString openPanelRefusal()
{
    return QStringLiteral("Cannot import more than %1 songs.\nPlease select a smaller folder.")
        .arg(DuplicateViewModel::MAXIMUM_LIMIT);
}

} // namespace

DuplicateViewModel::DuplicateViewModel(Desktop &desktop, std::shared_ptr<Pauses> pauses, QList<Color> colors,
                                       QObject *parent)
    : QObject(parent)
    , m_desktop(desktop)
    , m_pauses(std::move(pauses))
    , m_colors(std::move(colors))
{
    Q_ASSERT(!m_colors.isEmpty());
}

DuplicateViewModel::~DuplicateViewModel() = default;

int DuplicateViewModel::duplicateCount() const
{
    const auto add = [](qsizetype sum, const DuplicateGroup &group) { return sum + group.duplicates.size(); };
    return static_cast<int>(
        std::accumulate(m_duplicateGroups.begin(), m_duplicateGroups.end(), qsizetype{0}, add));
}

void DuplicateViewModel::showToast(const QString &message, ToastType type)
{
    set(m_toastMessage, message, &DuplicateViewModel::toastMessageChanged);
    set(m_toastType, type, &DuplicateViewModel::toastTypeChanged);
    setShowToast(true);
    hideToastLater(this);
}

QCoro::Task<> DuplicateViewModel::hideToastLater(QPointer<DuplicateViewModel> self)
{
    const std::shared_ptr<Pauses> pauses = self->m_pauses;
    co_await pauses->wait(3s);
    if (self)
        self->setShowToast(false);
}

bool DuplicateViewModel::importDroppedItems(const QList<QUrl> &urls)
{
    return importWithinLimits(urls, droppedItemsRefusal());
}

bool DuplicateViewModel::importDrop(const QList<QUrl> &urls)
{
    QList<QUrl> started;
    qsizetype importable = 0;
    for (const QUrl &url : urls) {
        if (!url.isLocalFile())
            continue;
        importable += isImportable(url) ? 1 : 0;
        if (importDroppedItems({url}))
            started.append(url);
    }
    if (importable > 1 && !started.isEmpty()) {
        showToast(
            QStringLiteral("Only \u201c%1\u201d is being scanned. Use \u201cAdd Song\u201d to choose several "
                           "items together.")
                .arg(QDir(started.last().toLocalFile()).dirName()),
            ToastType::Info);
    }
    return !started.isEmpty();
}

bool DuplicateViewModel::importChosenItems(const QList<QUrl> &urls)
{
    return importWithinLimits(urls, openPanelRefusal());
}

bool DuplicateViewModel::importWithOpenPanel()
{
    const QPointer<DuplicateViewModel> self(this);
    const quint64 sessionNumber = m_sessionNumber;
    const QList<QUrl> urls = m_desktop.chooseMusic();
    // The application may have been quit while the panel was open.
    if (!self || m_sessionNumber != sessionNumber || urls.isEmpty())
        return false;
    return importChosenItems(urls);
}

bool DuplicateViewModel::importWithinLimits(const QList<QUrl> &urls, const QString &refusal)
{
    // The songs of the session count although a scan replaces them: the limit is on the safe side.
    const qint64 total = saturatingSum(m_songs.size(), estimateSongCount(urls));
    if (total > MAXIMUM_LIMIT) {
        setAlertMessage(refusal);
        setShowAlert(true);
        return false;
    }
    if (total > OPTIMAL_LIMIT) {
        setPendingImportURLs(urls);
        setShowLimitWarning(true);
        return false;
    }
    startScan(urls);
    return true;
}

void DuplicateViewModel::startScan(QList<QUrl> urls)
{
    if (urls.isEmpty())
        return;
    cancelCurrentAnalysisTask();
    const std::stop_source task;
    m_currentAnalysisTask = task;
    const bool isCurrent =
        takeSteps([&task] { return !task.stop_requested(); }, [&] { setPendingImportURLs({}); },
                  [&] { setIsScanning(true); }, [&] { setProgress(0.0); },
                  [&] { setScanMessage(QStringLiteral("Starting scan...")); });
    if (!isCurrent)
        return;
    QMetaObject::invokeMethod(
        this, [this, items = std::move(urls), stop = task.get_token()] { scan(this, items, stop); },
        Qt::QueuedConnection);
}

QCoro::Task<> DuplicateViewModel::scan(QPointer<DuplicateViewModel> self, QList<QUrl> urls,
                                       std::stop_token stop)
{
    const std::shared_ptr<Pauses> pauses = self->m_pauses;
    const auto isCurrent = [&self, &stop] { return self && !stop.stop_requested(); };
    const auto publish = [&isCurrent](auto &&...steps) { return takeSteps(isCurrent, steps...); };
    const auto publishMessage = [&](const QString &message) {
        return publish([&] { self->setScanMessage(message); });
    };
    const auto publishProgress = [&](qint64 processed, qint64 total, const QString &message) {
        const double fraction = static_cast<double>(processed) / static_cast<double>(total);
        return publish([&] { self->setProcessedFiles(processed); }, [&] { self->setTotalFiles(total); },
                       [&] { self->setProgress(fraction); }, [&] { self->setScanMessage(message); });
    };
    const auto publishAlert = [&](const QString &message) {
        return publish([&] { self->setAlertMessage(message); }, [&] { self->setShowAlert(true); });
    };

    if (!publishMessage(QStringLiteral("Step 1/4: Discovering audio files...")))
        co_return;
    // The walk need not wait for the pause to end.
    DiskTask<QStringList> discovery(
        [urls](const std::stop_token &end) { return discoverAudioFiles(urls, end); });
    const std::stop_callback endDiscovery(stop, [&discovery] { discovery.settle({}); });
    co_await pauses->wait(200ms);
    if (!isCurrent())
        co_return;

    const QStringList files = co_await discovery.result();
    if (!isCurrent())
        co_return;
    if (files.isEmpty()) {
        publish([&] { self->setIsScanning(false); });
        publishAlert(QStringLiteral("No audio files found in the selected folder."));
        co_return;
    }

    const qint64 total = files.size();
    if (!publishProgress(0, total, QStringLiteral("Step 1/4: Processing %1 audio files...").arg(total)))
        co_return;
    const std::optional<QList<Song>> songs =
        co_await readSongs(files, pauses, stop, [&publishProgress, total](qint64 processed) {
            publishProgress(
                processed, total,
                QStringLiteral("Step 1/4: Processing audio files (%1 of %2)").arg(processed).arg(total));
        });
    if (!songs || !isCurrent())
        co_return;

    const bool mayAnalyze = publish(
        [&] { self->setSongs(*songs); }, [&] { self->setProgress(0.33); },
        [&] { self->setScanMessage(QStringLiteral("Step 2/4: Preparing for duplicate analysis...")); });
    if (!mayAnalyze)
        co_return;
    if (songs->isEmpty()) {
        publish([&] { self->setIsScanning(false); }, [&] { self->setProgress(0.0); },
                [&] { self->setScanMessage({}); });
        publishAlert(QStringLiteral("No supported audio files found."));
        co_return;
    }
    const bool isAnalyzing =
        publish([&] { self->setScanMessage(QStringLiteral("Step 2/4: Analyzing duplicates...")); },
                [&] { self->setProgress(0.4); });
    if (!isAnalyzing)
        co_return;

    const QList<DuplicateGroup> groups =
        co_await analyzeDuplicates(*songs, pauses, [&publish, &self](const AnalysisProgress &state) {
            publish([&] { self->setProgress(state.fraction); },
                    [&] {
                        if (state.message)
                            self->setScanMessage(*state.message);
                    });
        });
    publish([&] { self->setDuplicateGroups(groups); }, [&] { self->setIsScanning(false); },
            [&] { self->setProgress(1.0); }, [&] { self->setScanMessage({}); });
}

void DuplicateViewModel::togglePlayback(Song song)
{
    const bool wasPlaying = isPreviewOf(song);
    stopPlayback();
    if (wasPlaying)
        return;
    const quint64 number = ++m_previewNumber;
    m_currentlyPlayingSong = song;
    Q_EMIT currentlyPlayingSongChanged();
    const auto start = [this, song = std::move(song), number] {
        if (m_previewNumber == number)
            startPlayback(song);
    };
    QMetaObject::invokeMethod(this, start, Qt::QueuedConnection);
}

void DuplicateViewModel::startPlayback(const Song &song)
{
    m_player = m_desktop.openPreview(song.path);
    Q_EMIT playerChanged();
    if (m_player)
        m_player->play();
}

void DuplicateViewModel::seekPlayback(double x, double width)
{
    if (!m_player || !m_currentlyPlayingSong)
        return;
    if (const auto second = seekTarget(x, width, m_currentlyPlayingSong->duration))
        m_player->seek(*second);
}

void DuplicateViewModel::stopPlayback()
{
    ++m_previewNumber;
    const std::unique_ptr<PreviewPlayer> player = std::move(m_player);
    const std::optional<Song> song = std::exchange(m_currentlyPlayingSong, std::nullopt);
    if (player) {
        player->pause();
        player->releaseItem();
        Q_EMIT playerChanged();
    }
    if (song)
        Q_EMIT currentlyPlayingSongChanged();
}

bool DuplicateViewModel::isPreviewOf(const Song &song) const
{
    return m_currentlyPlayingSong && m_currentlyPlayingSong->id == song.id;
}

void DuplicateViewModel::stopPlaybackOfDuplicates()
{
    const QList<Song> duplicates = duplicatesOf(m_duplicateGroups);
    const auto isPlaying = [this](const Song &song) { return isPreviewOf(song); };
    if (std::any_of(duplicates.begin(), duplicates.end(), isPlaying))
        stopPlayback();
}

void DuplicateViewModel::moveDuplicatesToFolder()
{
    stopPlaybackOfDuplicates();
    const QList<DuplicateGroup> groups = m_duplicateGroups;
    if (duplicatesOf(groups).isEmpty()) {
        showToast(QStringLiteral("No duplicates to move"), ToastType::Info);
        return;
    }

    const QPointer<DuplicateViewModel> self(this);
    const QString parent = m_desktop.chooseFolder(
        QStringLiteral("Select a folder to move duplicate files to"), QStringLiteral("Select Folder"));
    // The answer was given for this result: it may have been cleared or replaced meanwhile.
    if (!self || parent.isEmpty() || !m_duplicateGroups.isSharedWith(groups))
        return;

    auto folder = DuplicatesFolder::create(parent, QDateTime::currentDateTime());
    if (const auto *failure = std::get_if<Failure>(&folder)) {
        showToast(QStringLiteral("Failed to create folder: %1").arg(failure->reason), ToastType::Error);
        return;
    }
    auto &target = std::get<DuplicatesFolder>(folder);
    const CleanUpOutcome outcome = moveDuplicates(groups, target);
    takeDuplicatesOffTheList();
    showOutcome(outcome, QStringLiteral("Moved %1 files to folder"), QStringLiteral("Moved %1 files"));
    m_desktop.copyToClipboard(target.path());
    announceCopiedPath(this);
}

QCoro::Task<> DuplicateViewModel::announceCopiedPath(QPointer<DuplicateViewModel> self)
{
    const std::shared_ptr<Pauses> pauses = self->m_pauses;
    co_await pauses->wait(1s);
    if (self)
        self->showToast(QStringLiteral("Folder path copied to clipboard"), ToastType::Info);
}

void DuplicateViewModel::cleanupAll()
{
    stopPlaybackOfDuplicates();
    const CleanUpOutcome outcome = trashDuplicates(m_duplicateGroups);
    takeDuplicatesOffTheList();
    showOutcome(outcome, QStringLiteral("Moved %1 files to Trash"),
                QStringLiteral("Moved %1 files to Trash"));
}

void DuplicateViewModel::showOutcome(const CleanUpOutcome &outcome, const QString &done,
                                     const QString &partlyDone)
{
    if (outcome.failures.isEmpty()) {
        showToast(QStringLiteral("%1 \u2022 Saved %2")
                      .arg(done.arg(outcome.moved), formattedByteCount(outcome.savedBytes)),
                  ToastType::Success);
    } else {
        showToast(QStringLiteral("%1 \u2022 %2 failed")
                      .arg(partlyDone.arg(outcome.moved))
                      .arg(outcome.failures.size()),
                  ToastType::Error);
    }
}

void DuplicateViewModel::takeDuplicatesOffTheList()
{
    const QList<Song> duplicates = duplicatesOf(m_duplicateGroups);
    const QSet<Song> leaving(duplicates.begin(), duplicates.end());
    QList<Song> rest = m_songs;
    rest.removeIf([&leaving](const Song &song) { return leaving.contains(song); });
    setSongs(rest);
    setDuplicateGroups({});
}

void DuplicateViewModel::deleteSong(Song song)
{
    if (isPreviewOf(song)) {
        // What is still on its way to the loudspeaker is not to be heard either.
        if (m_player)
            m_player->setVolume(0.0);
        stopPlayback();
    }
    const auto takeOffTheList = [this, &song] {
        QList<Song> rest = m_songs;
        if (rest.removeIf([&song](const Song &listed) { return listed.id == song.id; }) > 0)
            setSongs(rest);
    };
    if (isGone(song.path)) {
        takeOffTheList();
        return;
    }
    if (const auto failure = trashSong(song, m_duplicateGroups)) {
        showToast(QStringLiteral("Could not delete file: %1").arg(failure->reason), ToastType::Error);
        return;
    }
    takeOffTheList();
    showToast(QStringLiteral("Moved to Trash: %1").arg(song.name), ToastType::Success);
    setDuplicateGroups(withoutSong(m_duplicateGroups, song.id));
}

void DuplicateViewModel::copyPath(const Song &song)
{
    m_desktop.copyToClipboard(song.path);
}

void DuplicateViewModel::revealSong(const Song &song)
{
    m_desktop.showInFileViewer(song.path);
}

void DuplicateViewModel::clearAll()
{
    ++m_sessionNumber;
    cancelCurrentAnalysisTask();
    const bool isCleared =
        takeSteps([this] { return !m_currentAnalysisTask; }, [&] { stopPlayback(); }, [&] { setSongs({}); },
                  [&] { setDuplicateGroups({}); }, [&] { setProgress(0.0); }, [&] { setProcessedFiles(0); },
                  [&] { setTotalFiles(0); }, [&] { setScanMessage({}); }, [&] { setShowAlert(false); },
                  [&] { setAlertMessage({}); }, [&] { setPendingImportURLs({}); },
                  [&] { setShowLimitWarning(false); }, [&] { setIsScanning(false); });
    // Once more when the reset has settled, for observers that looked at it halfway.
    if (isCleared)
        QMetaObject::invokeMethod(this, &DuplicateViewModel::announceEverything, Qt::QueuedConnection);
}

void DuplicateViewModel::announceEverything()
{
    const QMetaObject &type = staticMetaObject;
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i)
        type.property(i).notifySignal().invoke(this);
}

void DuplicateViewModel::cancelCurrentAnalysisTask()
{
    if (m_currentAnalysisTask)
        m_currentAnalysisTask->request_stop();
    m_currentAnalysisTask.reset();
}

QVariant DuplicateViewModel::currentlyPlayingSongVariant() const
{
    return m_currentlyPlayingSong ? QVariant::fromValue(*m_currentlyPlayingSong) : QVariant();
}

template <typename T>
void DuplicateViewModel::set(T &property, const T &value, Change changed)
{
    if (property == value)
        return;
    property = value;
    Q_EMIT(this->*changed)();
}

void DuplicateViewModel::setSongs(const QList<Song> &songs)
{
    if (m_songs.isEmpty() && songs.isEmpty())
        return;
    m_songs = songs;
    Q_EMIT songsChanged();
}

void DuplicateViewModel::setDuplicateGroups(const QList<DuplicateGroup> &groups)
{
    if (m_duplicateGroups.isEmpty() && groups.isEmpty())
        return;
    m_duplicateGroups = groups;
    Q_EMIT duplicateGroupsChanged();
}

void DuplicateViewModel::setIsScanning(bool isScanning)
{
    set(m_isScanning, isScanning, &DuplicateViewModel::isScanningChanged);
}

void DuplicateViewModel::setProgress(double progress)
{
    set(m_progress, progress, &DuplicateViewModel::progressChanged);
}

void DuplicateViewModel::setProcessedFiles(qint64 count)
{
    set(m_processedFiles, count, &DuplicateViewModel::processedFilesChanged);
}

void DuplicateViewModel::setTotalFiles(qint64 count)
{
    set(m_totalFiles, count, &DuplicateViewModel::totalFilesChanged);
}

void DuplicateViewModel::setAlertMessage(const QString &message)
{
    set(m_alertMessage, message, &DuplicateViewModel::alertMessageChanged);
}

void DuplicateViewModel::setScanMessage(const QString &message)
{
    set(m_scanMessage, message, &DuplicateViewModel::scanMessageChanged);
}

void DuplicateViewModel::setShowAlert(bool isShown)
{
    set(m_showAlert, isShown, &DuplicateViewModel::showAlertChanged);
}

void DuplicateViewModel::setShowLimitWarning(bool isShown)
{
    set(m_showLimitWarning, isShown, &DuplicateViewModel::showLimitWarningChanged);
}

void DuplicateViewModel::setPendingImportURLs(const QList<QUrl> &urls)
{
    set(m_pendingImportURLs, urls, &DuplicateViewModel::pendingImportURLsChanged);
}

void DuplicateViewModel::setShowToast(bool isShown)
{
    set(m_showToast, isShown, &DuplicateViewModel::showToastChanged);
}

} // namespace sonavo
