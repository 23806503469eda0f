#include "session/importer.h"

#include "import/audio_discovery.h"
#include "model/saturating.h"
#include "model/visible_controls.h"

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
    set({.isAsking = isAsking, .pendingUrls = m_state.pendingUrls});
}

void Importer::setPendingUrls(const QList<QUrl> &urls)
{
    // Without them there is nothing to ask about.
    set({.isAsking = m_state.isAsking && !urls.isEmpty(), .pendingUrls = urls});
}

bool Importer::importDroppedItems(const QList<QUrl> &urls)
{
    return importWithinLimits(urls, droppedItemsRefusal());
}

bool Importer::importDrop(const QList<QUrl> &urls)
{
    if (m_job.state().isRunning)
        return false;
    QList<QUrl> items = urls;
    items.removeIf([](const QUrl &url) { return !url.isLocalFile(); });
    QList<QUrl> importable = items;
    importable.removeIf([](const QUrl &url) { return !isImportable(url); });
    QList<QUrl> started;
    // A cover beside a folder would end the folder's scan.
    for (const QUrl &url : importable.isEmpty() ? items : importable) {
        if (importDroppedItems({url}))
            started.append(url);
    }
    if (importable.size() > 1 && !started.isEmpty()) {
        m_notices.showToast(
            QStringLiteral("Only \u201c%1\u201d is being scanned. Use \u201cAdd Song\u201d to choose several "
                           "items together.")
                .arg(withVisibleControls(QDir(started.last().toLocalFile()).dirName())),
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
        set({.isAsking = true, .pendingUrls = urls});
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
