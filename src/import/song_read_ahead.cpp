#include "import/song_read_ahead.h"

#include "import/disk_task.h"

#include <algorithm>
#include <mutex>

namespace sonavo {
namespace {

/// Files of one task: a small file is read so fast that a task for each would cost more than its reading.
constexpr qsizetype FILES_PER_BATCH = 20;
/// Enough that all cores have work through a pause, few enough that their results take little memory.
constexpr std::size_t MAX_BATCHES = 40;

} // namespace

/// Consecutive files that one task reads one after the other.
class SongReadAhead::Batch
{
public:
    Batch(QStringList files, std::shared_ptr<KnownDurations> known)
        : m_files(std::move(files))
        , m_reading(std::make_shared<Reading>(std::move(known)))
        , m_task([reading = m_reading, list = m_files](const std::stop_token &stop) {
            return reading->readAll(list, stop);
        })
    {}

    [[nodiscard]] QFuture<Results> results() const { return m_task.result(); }
    /// Finishes without results.
    void abandon() { m_task.abandon({}); }
    /// Finishes with the files that are read; the others count as unreadable.
    void abandonUnreadFiles()
    {
        Results results = m_reading->resultsSoFar();
        results.resize(m_files.size());
        m_task.abandon(std::move(results));
    }

    [[nodiscard]] quint64 reads() const { return m_reading->reads; }
    /// To be called at regular intervals.
    [[nodiscard]] bool isHanging() { return m_watch.isHanging(reads(), m_task.isRunning()); }

    /// Finishes with the files that are read and the one that hangs, which counts as unreadable.
    /// @return the files after it; empty when the read returned just now
    [[nodiscard]] QStringList abandonHangingFile()
    {
        Results results = m_reading->resultsSoFar();
        if (results.size() == m_files.size())
            return {};
        results.append(std::nullopt);
        const qsizetype done = results.size();
        return m_task.abandon(std::move(results)) ? m_files.mid(done) : QStringList();
    }

private:
    /// Shared by the thread that reads and the one that checks for progress.
    struct Reading
    {
        explicit Reading(std::shared_ptr<KnownDurations> knownDurations)
            : known(std::move(knownDurations))
        {}

        Results readAll(const QStringList &files, const std::stop_token &stop)
        {
            for (const QString &file : files) {
                if (stop.stop_requested())
                    break;
                const std::optional<AudioFileInfo> info = readAudioFile(file, stop, &reads, known.get());
                const std::lock_guard lock(mutex);
                results.append(info);
                ++reads;
            }
            return resultsSoFar();
        }

        Results resultsSoFar()
        {
            const std::lock_guard lock(mutex);
            return results;
        }

        const std::shared_ptr<KnownDurations> known;
        std::mutex mutex;
        Results results;
        ReadCounter reads = 0;
    };

    const QStringList m_files;
    const std::shared_ptr<Reading> m_reading;
    DiskTask<Results> m_task;
    AnswerWatch m_watch;
};

SongReadAhead::SongReadAhead(QStringList files, std::stop_token stop, std::shared_ptr<KnownDurations> known,
                             std::chrono::milliseconds timeout)
    : m_files(std::move(files))
    , m_stop(std::move(stop))
    , m_known(std::move(known))
    , m_onStop(m_stop, [this] {
        for (Batch &batch : m_batches)
            batch.abandon();
    })
{
    QObject::connect(&m_hangTimer, &QTimer::timeout, &m_hangTimer, [this] { abandonHangingFiles(); });
    m_hangTimer.start(timeout / AnswerWatch::LOOKS_PER_TIMEOUT);
}

SongReadAhead::~SongReadAhead() = default;

bool SongReadAhead::hasMore() const
{
    return m_nextFile < m_files.size() || m_batches.size() > (m_isFirstTaken ? 1 : 0);
}

QFuture<SongReadAhead::Results> SongReadAhead::next()
{
    if (std::exchange(m_isFirstTaken, true))
        m_batches.pop_front();
    startBatches();
    Q_ASSERT(!m_batches.empty());
    return m_batches.front().results();
}

void SongReadAhead::startBatches()
{
    while (m_nextFile < m_files.size() && m_batches.size() < MAX_BATCHES) {
        m_batches.emplace_back(m_files.mid(m_nextFile, FILES_PER_BATCH), m_known);
        if (m_stop.stop_requested())
            m_batches.back().abandon();
        m_nextFile = std::min(m_nextFile + FILES_PER_BATCH, m_files.size());
    }
}

void SongReadAhead::abandonHangingFiles()
{
    if (m_watch.isHanging(readsSoFar(), !DiskTaskState::canReplaceThread())) {
        endReading();
        return;
    }
    for (auto batch = m_batches.begin(); batch != m_batches.end(); ++batch) {
        if (!batch->isHanging() || !DiskTaskState::canReplaceThread())
            continue;
        if (QStringList rest = batch->abandonHangingFile(); !rest.isEmpty())
            m_batches.emplace(std::next(batch), std::move(rest), m_known);
    }
}

quint64 SongReadAhead::readsSoFar() const
{
    quint64 reads = 0;
    for (const Batch &batch : m_batches)
        reads += batch.reads();
    return reads;
}

void SongReadAhead::endReading()
{
    if (m_nextFile < m_files.size())
        m_batches.emplace_back(m_files.mid(std::exchange(m_nextFile, m_files.size())), m_known);
    for (Batch &batch : m_batches)
        batch.abandonUnreadFiles();
}

} // namespace sonavo
