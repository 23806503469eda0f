#include "session/importer.h"

#include "import/audio_discovery.h"
#include "model/saturating.h"
#include "model/translate.h"
#include "model/visible_controls.h"

#include <QCoroFuture>
#include <QDir>

#include <chrono>
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

QString nameOf(const QUrl &item)
{
    return nameInText(QDir(item.toLocalFile()).dirName());
}

QString busyText(const QList<QUrl> &urls)
{
    if (urls.size() == 1)
        return translate("Importer", "Sonavo is busy. Open “%1” again when that is done.")
            .arg(nameOf(urls.first()));
    return translate("Importer", "Sonavo is busy. Open these %Ln items again when that is done.", nullptr,
                     urls.size());
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

/// What is known of an item before it is scanned. One whose disk does not answer may well be importable.
struct Importer::Item
{
    bool isImportable = true;
    qint64 songs = 0;
};

template <typename T>
bool Importer::importAfter(const DiskLook<T> &look, const std::function<bool(const T &)> &import)
{
    // Nearly every disk answers within a frame.
    constexpr std::chrono::milliseconds FRAME(16);
    ++m_importCount;
    if (look.waitFor(FRAME))
        return import(look.result().result());
    importLater(this, look, import);
    return false;
}

template <typename T>
QCoro::Task<> Importer::importLater(QPointer<Importer> self, DiskLook<T> look,
                                    std::function<bool(const T &)> import)
{
    const quint64 number = self->m_importCount;
    const T found = co_await look.result();
    if (self && self->m_importCount == number && !self->m_job.state().isRunning)
        import(found);
}

bool Importer::importDroppedItems(const QList<QUrl> &urls)
{
    return importEstimated(urls, droppedItemsRefusal());
}

bool Importer::importChosenItems(const QList<QUrl> &urls)
{
    return importEstimated(urls, openPanelRefusal());
}

bool Importer::importEstimated(const QList<QUrl> &urls, const QString &refusal)
{
    if (m_job.state().isRunning)
        return false;
    const auto count = [urls](ReadCounter &answers) { return estimateSongCount(urls, &answers); };
    return importAfter<qint64>({count, 0}, [this, urls, refusal](qint64 songs) {
        if (!isWithinLimits(urls, songs, refusal))
            return false;
        startScan(urls);
        return true;
    });
}

bool Importer::importDrop(const QList<QUrl> &urls)
{
    if (m_job.state().isRunning)
        return false;
    QList<QUrl> local = urls;
    local.removeIf([](const QUrl &url) { return !url.isLocalFile(); });
    const auto lookAtEach = [local](ReadCounter &answers) {
        QList<Item> items;
        for (const QUrl &url : local)
            items.append({isImportable(url), estimateSongCount({url}, &answers)});
        return items;
    };
    return importAfter<QList<Item>>({lookAtEach, QList<Item>(local.size())},
                                    [this, local](const auto &items) { return importEach(local, items); });
}

bool Importer::importEach(const QList<QUrl> &urls, const QList<Item> &items)
{
    QList<QUrl> importable;
    for (qsizetype i = 0; i < urls.size(); ++i) {
        if (items[i].isImportable)
            importable.append(urls[i]);
    }
    QList<QUrl> started;
    for (qsizetype i = 0; i < urls.size(); ++i) {
        // A cover beside a folder would end the folder's scan.
        const bool isPassedOver = !importable.isEmpty() && !items[i].isImportable;
        if (isPassedOver || !isWithinLimits({urls[i]}, items[i].songs, droppedItemsRefusal()))
            continue;
        startScan({urls[i]});
        started.append(urls[i]);
    }
    if (importable.size() > 1 && !started.isEmpty()) {
        // The last one is named in the texts.
        importable.removeOne(started.last());
        importable.append(started.last());
        State state = m_state;
        state.droppedUrls = importable;
        set(std::move(state));
        m_notices.showToast(scanAllNote(), Notices::ToastType::Info, scanAllText(),
                            Notices::ToastAction::ScanAll);
    }
    return !started.isEmpty();
}

QString Importer::scanAllText() const
{
    return m_state.droppedUrls.isEmpty()
               ? QString()
               //: Button; the number of files and folders that were dropped, at least 2
               : translate("Importer", "Scan All %L1").arg(m_state.droppedUrls.size());
}

QString Importer::scanAllNote() const
{
    if (m_state.droppedUrls.isEmpty())
        return {};
    //: %L1 is the number of files and folders, at least 2
    return translate("Importer", "Of %L1 items that were dropped, only “%2” is scanned")
        .arg(m_state.droppedUrls.size())
        .arg(nameOf(m_state.droppedUrls.last()));
}

void Importer::scanAllDropped()
{
    importCounted(m_state.droppedUrls, droppedItemsRefusal());
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
    ++m_importCount;
    const bool replacesDuplicates = m_library.duplicateTotals().count > 0 && !m_scan.state().isRunning;
    // What was asked before is out of date.
    State state{.isAsking = false, .pendingUrls = {}};
    state.droppedUrls = m_state.droppedUrls;
    if (replacesDuplicates)
        state.openedUrls = urls;
    set(std::move(state));
    if (!replacesDuplicates)
        importCounted(urls, openPanelRefusal());
    return true;
}

QString Importer::openQuestion() const
{
    if (m_state.openedUrls.isEmpty())
        return {};
    return replaceQuestion(m_state.openedUrls, m_library.duplicateTotals().count);
}

void Importer::acceptOpenedItems()
{
    const QList<QUrl> urls = m_state.openedUrls;
    declineOpenedItems();
    importCounted(urls, openPanelRefusal());
}

void Importer::declineOpenedItems()
{
    State state = m_state;
    state.openedUrls.clear();
    set(std::move(state));
}

bool Importer::isWithinLimits(const QList<QUrl> &urls, qint64 songs, const QString &refusal)
{
    // The songs of the session count although a scan replaces them: the limit is on the safe side.
    const qint64 total = saturatingSum(m_library.songs().size(), songs);
    if (total > MAXIMUM_LIMIT) {
        m_notices.raiseAlert(refusal);
    } else if (total > OPTIMAL_LIMIT) {
        State state{.isAsking = true, .pendingUrls = urls};
        state.droppedUrls = m_state.droppedUrls;
        set(std::move(state));
    }
    return total <= OPTIMAL_LIMIT;
}

void Importer::startScan(QList<QUrl> urls)
{
    beginScan(std::move(urls), {});
}

void Importer::importCounted(const QList<QUrl> &urls, const QString &refusal)
{
    const QPointer<Importer> self(this);
    const auto askOrRefuse = [self, urls, refusal](qint64 files) {
        if (self)
            self->isWithinLimits(urls, files, refusal);
    };
    beginScan(urls, Scan::Limit{OPTIMAL_LIMIT - m_library.songs().size(), askOrRefuse});
}

void Importer::beginScan(QList<QUrl> urls, std::optional<Scan::Limit> limit)
{
    if (urls.isEmpty() || m_job.state().isRunning)
        return;
    ++m_importCount;
    // Announced only after the scan has started, so that nothing here overrides what a listener does.
    const State before = std::exchange(m_state, State());
    const QPointer<Importer> self(this);
    m_scan.start(std::move(urls), std::move(limit));
    if (self && before != m_state)
        announce(before);
}

void Importer::reset()
{
    ++m_resetCount;
    ++m_importCount;
    set({});
}

void Importer::set(State state)
{
    if (state == m_state)
        return;
    announce(std::exchange(m_state, std::move(state)));
}

void Importer::announce(const State &before)
{
    const QPointer<Importer> self(this);
    Q_EMIT changed(before);
    if (self && !before.droppedUrls.isEmpty() && m_state.droppedUrls.isEmpty())
        m_notices.removeToastAction(Notices::ToastAction::ScanAll);
}

} // namespace sonavo
