#include "session/scan.h"

#include "analysis/analyze_duplicates.h"
#include "import/audio_discovery.h"
#include "model/translate.h"
#include "session/background.h"
#include "session/read_songs.h"
#include "session/release.h"

#include <QCoroFuture>
#include <QTimer>

#include <tuple>
#include <utility>

namespace sonavo {

using namespace std::chrono_literals;

namespace {

/// Walks the folders while a pause lets the views show that a scan has begun.
QCoro::Task<QStringList> discoverFiles(QList<QUrl> urls, std::shared_ptr<Pauses> pauses, std::stop_token stop,
                                       std::function<void(qint64 found)> showFound)
{
    constexpr std::chrono::milliseconds INTERVAL = 250ms;
    AudioDiscovery discovery(urls);
    const std::stop_callback abandonDiscovery(stop, [&discovery] { discovery.abandon(); });
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { showFound(discovery.foundFiles()); });
    timer.start(INTERVAL);
    co_await pauses->wait(200ms);
    co_return co_await discovery.result();
}

/// The others are not needed yet: only songs in groups can be cleaned up.
FileNotes notesOfMembers(const QList<DuplicateGroup> &groups, const ReadSongs &read)
{
    FileNotes notes;
    for (const DuplicateGroup &group : groups) {
        notes.insert(group.original.id, {});
        for (const Song &song : group.duplicates)
            notes.insert(song.id, {});
    }
    for (qsizetype i = 0; i < read.songs.size(); ++i) {
        if (const auto note = notes.find(read.songs[i].id); note != notes.end())
            *note = read.notes[i];
    }
    return notes;
}

} // namespace

/// One run of the scan. It publishes nothing once it is cancelled or the Scan is destroyed. A listener can do
/// either at any change, so each step returns whether the run may continue.
class Scan::Run
{
public:
    Run(Scan *scan, std::stop_token stop)
        : m_scan(scan)
        , m_stop(std::move(stop))
    {}

    [[nodiscard]] bool isCurrent() const { return m_scan && !m_stop.stop_requested(); }
    [[nodiscard]] const std::stop_token &stop() const { return m_stop; }

    /// @param change modifies a copy of the current state, which is then published
    template <typename Change>
    bool update(const Change &change) const
    {
        if (!isCurrent())
            return false;
        State state = m_scan->m_state;
        change(state);
        m_scan->set(std::move(state));
        return isCurrent();
    }
    bool showStep(double progress, const QString &message) const
    {
        return update([&](State &state) {
            state.progress = progress;
            state.message = message;
        });
    }
    bool showFiles(qint64 processed, qint64 total, const QString &message) const
    {
        return update([&](State &state) {
            state.processedFiles = processed;
            state.totalFiles = total;
            state.foundFiles = 0;
            state.progress = static_cast<double>(processed) / static_cast<double>(total);
            state.message = message;
        });
    }
    void publishSongs(const ReadSongs &read) const
    {
        if (isCurrent())
            m_scan->m_library.setSongs(read.songs, read.notes, read.lossless);
    }
    void publishGroups(const QList<DuplicateGroup> &groups, const FileNotes &notes) const
    {
        if (!isCurrent())
            return;
        m_scan->m_library.setNotes(notes);
        m_scan->m_library.setDuplicateGroups(groups);
    }
    /// Ends the scan and leaves its progress and message unchanged.
    bool end() const
    {
        return update([](State &state) { state.isRunning = false; });
    }
    bool end(double progress) const
    {
        return update([progress](State &state) {
            state.isRunning = false;
            state.progress = progress;
            state.message.clear();
        });
    }
    void raiseAlert(const QString &message) const { m_scan->m_notices.raiseAlert(message); }

private:
    QPointer<Scan> m_scan;
    std::stop_token m_stop;
};

Scan::Scan(Library &library, Notices &notices, std::shared_ptr<Pauses> pauses,
           std::shared_ptr<KnownDurations> known, QObject *parent)
    : QObject(parent)
    , m_library(library)
    , m_notices(notices)
    , m_pauses(std::move(pauses))
    , m_known(std::move(known))
{}

Scan::~Scan()
{
    m_stop.request_stop();
}

void Scan::start(QList<QUrl> urls, std::optional<Limit> limit)
{
    m_stop.request_stop();
    m_stop = std::stop_source();
    const Run run(this, m_stop.get_token());
    QMetaObject::invokeMethod(
        this,
        [run, items = std::move(urls), limit = std::move(limit), known = m_known, pauses = m_pauses] {
            scan(run, items, limit, known, pauses);
        },
        Qt::QueuedConnection);
    run.update([](State &state) {
        state.isRunning = true;
        state.progress = 0.0;
        state.foundFiles = 0;
        state.message = translate("Scan", "Starting scan...");
    });
}

void Scan::reset()
{
    m_stop.request_stop();
    set({});
}

QCoro::Task<> Scan::scan(Run run, QList<QUrl> urls, std::optional<Limit> limit,
                         std::shared_ptr<KnownDurations> known, std::shared_ptr<Pauses> pauses)
{
    if (!run.showStep(0.0, translate("Scan", "Step 1/4: Discovering audio files...")))
        co_return;
    const auto showFound = [&run](qint64 found) {
        run.update([found](State &state) { state.foundFiles = found; });
    };
    QStringList files = co_await discoverFiles(urls, pauses, run.stop(), showFound);
    if (!run.isCurrent())
        co_return;
    if (files.isEmpty()) {
        if (run.end())
            run.raiseAlert(translate("Scan", "No audio files found in the selected folder."));
        co_return;
    }

    const qint64 total = files.size();
    if (limit && total > limit->files) {
        if (run.end(0.0))
            limit->onExceeded(total);
        co_return;
    }
    if (!run.showFiles(0, total, translate("Scan", "Step 1/4: Processing %n audio files...", nullptr, total)))
        co_return;
    const auto showProgress = [&run, total](qint64 processed) {
        run.showFiles(
            processed, total,
            translate("Scan", "Step 1/4: Processing audio files (%1 of %2)").arg(processed).arg(total));
    };
    std::optional<ReadSongs> read =
        co_await readSongs(std::exchange(files, {}), known, pauses, run.stop(), showProgress);
    if (!read)
        co_return;
    run.publishSongs(*read);
    if (!run.showStep(0.33, translate("Scan", "Step 2/4: Preparing for duplicate analysis...")))
        co_return;
    if (read->songs.isEmpty()) {
        if (run.end(0.0))
            run.raiseAlert(translate("Scan", "No supported audio files found."));
        co_return;
    }
    if (!run.showStep(0.4, translate("Scan", "Step 2/4: Analyzing duplicates...")))
        co_return;

    const auto showAnalysis = [&run](const AnalysisProgress &analysis) {
        run.update([&analysis](State &state) {
            state.progress = analysis.fraction;
            state.message = analysis.message.value_or(state.message);
        });
    };
    QList<DuplicateGroup> groups =
        co_await analyzeDuplicates(read->songs, pauses, runInBackground, run.stop(), showAnalysis);
    FileNotes notes;
    co_await runInBackground([&] {
        notes = notesOfMembers(groups, *read);
        if (known && !run.stop().stop_requested())
            known->forgetUnused();
    });
    run.publishGroups(groups, notes);
    run.end(1.0);
    // A cancelled scan is the last to hold them.
    releaseLater(std::tuple(std::move(groups), std::move(notes), std::move(read)));
}

void Scan::set(State state)
{
    if (state == m_state)
        return;
    const State before = std::exchange(m_state, std::move(state));
    Q_EMIT changed(before);
}

} // namespace sonavo
