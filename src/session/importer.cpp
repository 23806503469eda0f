#include "session/importer.h"

#include "import/audio_discovery.h"
#include "model/saturating.h"
#include "model/translate.h"
#include "model/visible_controls.h"

#include <QDir>
#include <QPointer>

#include <algorithm>
#include <atomic>
#include <functional>
#include <iterator>
#include <memory>
#include <utility>

namespace sonavo {
namespace {

QString droppedItemsRefusal()
{
    return translate("Importer", "Cannot import more than %1 songs in a single session.\n\n"
                                 "For large music libraries, we recommend:\n"
                                 "• Processing your library in batches by genre or folder\n"
                                 "• Using 1000-2000 songs per session for best performance\n"
                                 "• Clearing previous results before starting a new batch\n\n"
                                 "This helps ensure accurate duplicate detection and optimal performance.")
        .arg(Importer::MAXIMUM_LIMIT);
}

QString openPanelRefusal()
{
    return translate("Importer", "Cannot import more than %1 songs.\nPlease select a smaller folder.")
        .arg(Importer::MAXIMUM_LIMIT);
}

/// What is known of an item before it is scanned. One whose disk does not answer may well be importable.
struct DroppedItem
{
    bool isImportable = true;
    qint64 songs = 0;
};

/// Of a disk that does not answer nothing is known. The scan leaves out what hangs.
QList<DroppedItem> lookAt(const QList<QUrl> &urls)
{
    const auto items = std::make_shared<QList<DroppedItem>>();
    const bool hasEnded = waitForDisk([urls, items](ReadCounter &answers) {
        for (const QUrl &url : urls)
            items->append({isImportable(url), estimateSongCount({url}, &answers)});
    });
    return hasEnded ? *items : QList<DroppedItem>(urls.size());
}

/// @return 0 where the disk does not answer
qint64 songCountOf(const QList<QUrl> &urls)
{
    const auto count = std::make_shared<std::atomic<qint64>>(0);
    static_cast<void>(
        waitForDisk([urls, count](ReadCounter &answers) { *count = estimateSongCount(urls, &answers); }));
    return *count;
}

QString nameOf(const QUrl &item)
{
    return nameInText(QDir(item.toLocalFile()).dirName());
}

QString busyText(const QList<QUrl> &urls)
{
    if (urls.size() == 1)
        return translate("Importer", "Files are being moved. Open “%1” again when that is done.")
            .arg(nameOf(urls.first()));
    return translate("Importer", "Files are being moved. Open these %Ln items again when that is done.",
                     nullptr, urls.size());
}

QString replaceQuestion(const QList<QUrl> &urls, int duplicates)
{
    if (urls.size() == 1)
        return translate("Importer", "Scanning “%1” replaces this list, which still has %Ln duplicates.",
                         nullptr, duplicates)
            .arg(nameOf(urls.first()));
    //: %L1 is the number of files and folders, at least 2
    return translate("Importer",
                     "Scanning these %L1 items replaces this list, which still has %Ln duplicates.", nullptr,
                     duplicates)
        .arg(urls.size());
}

} // namespace

Importer::Importer(Desktop &desktop, const Library &library, const FileJob &job, Scan &scan, Notices &notices,
                   QObject *parent)
    : QObject(parent)
    , m_desktop(desktop)
    , m_library(library)
    , m_job(job)
    , m_scan(scan)
    , m_notices(notices)
{}

void Importer::setAsking(bool isAsking)
{
    State state = m_state;
    state.isAsking = isAsking;
    set(std::move(state));
}

void Importer::setPendingUrls(const QList<QUrl> &urls)
{
    State state = m_state;
    state.pendingUrls = urls;
    // Without them there is nothing to ask about.
    state.isAsking = state.isAsking && !urls.isEmpty();
    set(std::move(state));
}

bool Importer::importDroppedItems(const QList<QUrl> &urls)
{
    return !m_job.state().isRunning && importWithinLimits(urls, songCountOf(urls), droppedItemsRefusal());
}

bool Importer::importDrop(const QList<QUrl> &urls)
{
    if (m_job.state().isRunning)
        return false;
    QList<QUrl> local = urls;
    local.removeIf([](const QUrl &url) { return !url.isLocalFile(); });
    const QList<DroppedItem> items = lookAt(local);
    const auto importable =
        std::count_if(items.begin(), items.end(), std::mem_fn(&DroppedItem::isImportable));
    QList<QUrl> started;
    for (qsizetype i = 0; i < local.size(); ++i) {
        // A cover beside a folder would end the folder's scan.
        const bool isPassedOver = importable > 0 && !items[i].isImportable;
        if (!isPassedOver && importWithinLimits({local[i]}, items[i].songs, droppedItemsRefusal()))
            started.append(local[i]);
    }
    if (importable > 1 && !started.isEmpty()) {
        m_notices.showToast(translate("Importer",
                                      "Only “%1” is being scanned. Use “Add Song” to choose several "
                                      "items together.")
                                .arg(nameOf(started.last())),
                            Notices::ToastType::Info);
    }
    return !started.isEmpty();
}

bool Importer::importChosenItems(const QList<QUrl> &urls)
{
    return !m_job.state().isRunning && importWithinLimits(urls, songCountOf(urls), openPanelRefusal());
}

bool Importer::importWithOpenPanel()
{
    if (m_job.state().isRunning)
        return false;
    const QPointer<Importer> self(this);
    const quint64 resetCount = m_resetCount;
    const QList<QUrl> urls = m_desktop.chooseMusic();
    if (!self || m_resetCount != resetCount || urls.isEmpty())
        return false;
    return importChosenItems(urls);
}

bool Importer::openItems(const QList<QUrl> &urls)
{
    if (m_job.state().isRunning) {
        m_notices.showToast(busyText(urls), Notices::ToastType::Info);
        return false;
    }
    set({}); // what was asked before is out of date
    if (m_library.duplicateTotals().count > 0 && !m_scan.state().isRunning)
        set({.isAsking = false, .pendingUrls = {}, .openedUrls = urls});
    else
        importChosenItems(urls);
    return true;
}

QString Importer::openQuestion() const
{
    if (m_state.openedUrls.isEmpty())
        return {};
    return replaceQuestion(m_state.openedUrls, m_library.duplicateTotals().count);
}

bool Importer::acceptOpenedItems()
{
    const QList<QUrl> urls = m_state.openedUrls;
    declineOpenedItems();
    return importChosenItems(urls);
}

void Importer::declineOpenedItems()
{
    State state = m_state;
    state.openedUrls.clear();
    set(std::move(state));
}

bool Importer::importWithinLimits(const QList<QUrl> &urls, qint64 songs, const QString &refusal)
{
    // The songs of the session count although a scan replaces them: the limit is on the safe side.
    const qint64 total = saturatingSum(m_library.songs().size(), songs);
    if (total > MAXIMUM_LIMIT) {
        m_notices.raiseAlert(refusal);
        return false;
    }
    if (total > OPTIMAL_LIMIT) {
        set({.isAsking = true, .pendingUrls = urls, .openedUrls = {}});
        return false;
    }
    startScan(urls);
    return true;
}

void Importer::startScan(QList<QUrl> urls)
{
    if (urls.isEmpty() || m_job.state().isRunning)
        return;
    // Announced only after the scan has started, so that nothing here overrides what a listener does.
    const State before = std::exchange(m_state, State());
    const QPointer<Importer> self(this);
    m_scan.start(std::move(urls));
    if (self && before != m_state)
        Q_EMIT changed(before);
}

void Importer::reset()
{
    ++m_resetCount;
    set({});
}

void Importer::set(State state)
{
    if (state == m_state)
        return;
    const State before = std::exchange(m_state, std::move(state));
    Q_EMIT changed(before);
}

} // namespace sonavo
