#include "session/importer.h"

#include "import/audio_discovery.h"
#include "model/saturating.h"

#include <QDir>
#include <QPointer>

#include <utility>

namespace sonavo {
namespace {

QString droppedItemsRefusal()
{
    return QStringLiteral("Cannot import more than %1 songs in a single session.\n\n"
                          "For large music libraries, we recommend:\n"
                          "\u2022 Processing your library in batches by genre or folder\n"
                          "\u2022 Using 1000-2000 songs per session for best performance\n"
                          "\u2022 Clearing previous results before starting a new batch\n\n"
                          "This helps ensure accurate duplicate detection and optimal performance.")
        .arg(Importer::MAXIMUM_LIMIT);
}

QString openPanelRefusal()
{
    return QStringLiteral("Cannot import more than %1 songs.\nPlease select a smaller folder.")
        .arg(Importer::MAXIMUM_LIMIT);
}

QString nameOf(const QList<QUrl> &urls)
{
    return urls.size() == 1 ? QStringLiteral("\u201c%1\u201d").arg(QDir(urls.first().toLocalFile()).dirName())
                            : QStringLiteral("these %L1 items").arg(urls.size());
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
    set(std::move(state));
}

bool Importer::importDroppedItems(const QList<QUrl> &urls)
{
    return importWithinLimits(urls, droppedItemsRefusal());
}

bool Importer::importDrop(const QList<QUrl> &urls)
{
    if (m_job.state().isRunning)
        return false;
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
        m_notices.showToast(
            QStringLiteral("Only \u201c%1\u201d is being scanned. Use \u201cAdd Song\u201d to choose several "
                           "items together.")
                .arg(QDir(started.last().toLocalFile()).dirName()),
            Notices::ToastType::Info);
    }
    return !started.isEmpty();
}

bool Importer::importChosenItems(const QList<QUrl> &urls)
{
    return importWithinLimits(urls, openPanelRefusal());
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
        m_notices.showToast(
            QStringLiteral("Files are being moved. Open %1 again when that is done.").arg(nameOf(urls)),
            Notices::ToastType::Info);
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
    const int count = m_library.duplicateTotals().count;
    return QStringLiteral("Scanning %1 replaces this list, which still has %2.")
        .arg(nameOf(m_state.openedUrls),
             count == 1 ? QStringLiteral("1 duplicate") : QStringLiteral("%L1 duplicates").arg(count));
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

bool Importer::importWithinLimits(const QList<QUrl> &urls, const QString &refusal)
{
    if (m_job.state().isRunning)
        return false;
    // The songs of the session count although a scan replaces them: the limit is on the safe side.
    const qint64 total = saturatingSum(m_library.songs().size(), estimateSongCount(urls));
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
    const State before =
        std::exchange(m_state, {.isAsking = m_state.isAsking, .pendingUrls = {}, .openedUrls = {}});
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
