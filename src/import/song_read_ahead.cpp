#include "import/song_read_ahead.h"

#include "import/disk_task.h"

#include <algorithm>
#include <mutex>

namespace sonavo {
namespace {

/// Files of one task of the threads: a small file is read so fast that a task for each would cost
/// too much beside it.
constexpr qsizetype FILES_PER_BATCH = 20;
/// Enough that all cores have work through a pause, little enough to be of no account in memory.
constexpr std::size_t MOST_BATCHES = 40;

/// How often it is looked whether the disks answer, for each span of patience. Not measured by a clock, which
/// goes on when the computer sleeps or the program is halted.
constexpr int LOOKS = 5;

} // namespace

/// Files that one thread reads one after the other.
class SongReadAhead::Batch
{
public:
    explicit Batch(QStringList files)
        : m_files(std::move(files))
        , m_task([reading = m_reading, list = m_files](const std::stop_token &stop) {
            return reading->readAll(list, stop);
        })
    {}

    [[nodiscard]] QFuture<Facts> facts() const { return m_task.result(); }
    void end() { m_task.settle({}); }

    /// To be called now and then.
    /// @return whether the disk has not answered for the last so many calls
    [[nodiscard]] bool hangs(int calls)
    {
        const quint64 answers = m_reading->answers;
        const bool isStill = m_task.isRunning() && answers == m_lastAnswers;
        m_lastAnswers = answers;
        m_stillCalls = isStill ? m_stillCalls + 1 : 0;
        return m_stillCalls >= calls;
    }

    /// Ends with the files that are read and the one that hangs, which counts as unreadable.
    /// @return the files that are left; nothing when the disk came back just now
    [[nodiscard]] QStringList giveUp()
    {
        Facts facts = m_reading->factsSoFar();
        if (facts.size() == m_files.size())
            return {};
        facts.append(std::nullopt);
        const qsizetype done = facts.size();
        return m_task.settle(std::move(facts)) ? m_files.mid(done) : QStringList();
    }

private:
    /// What the thread that reads and the one that watches share.
    struct Reading
    {
        Facts readAll(const QStringList &files, const std::stop_token &stop)
        {
            for (const QString &file : files) {
                if (stop.stop_requested())
                    break;
                const std::optional<FileFacts> read = readFacts(file, stop, &answers);
                const std::lock_guard lock(mutex);
                facts.append(read);
                ++answers;
            }
            return factsSoFar();
        }

        Facts factsSoFar()
        {
            const std::lock_guard lock(mutex);
            return facts;
        }

        std::mutex mutex;
        Facts facts;
        ReadingProgress answers = 0;
    };

    const QStringList m_files;
    const std::shared_ptr<Reading> m_reading = std::make_shared<Reading>();
    DiskTask<Facts> m_task;
    quint64 m_lastAnswers = 0;
    int m_stillCalls = 0;
};

SongReadAhead::SongReadAhead(QStringList files, std::stop_token stop, std::chrono::milliseconds patience)
    : m_files(std::move(files))
    , m_stop(std::move(stop))
    , m_endWithCaller(m_stop, [this] {
        for (Batch &batch : m_batches)
            batch.end();
    })
{
    QObject::connect(&m_watch, &QTimer::timeout, &m_watch, [this] { giveUpWhatHangs(); });
    m_watch.start(patience / LOOKS);
}

SongReadAhead::~SongReadAhead() = default;

bool SongReadAhead::hasMore() const
{
    return m_nextFile < m_files.size() || m_batches.size() > (m_isFirstTaken ? 1 : 0);
}

QFuture<SongReadAhead::Facts> SongReadAhead::next()
{
    if (std::exchange(m_isFirstTaken, true))
        m_batches.pop_front();
    startReading();
    Q_ASSERT(!m_batches.empty());
    return m_batches.front().facts();
}

void SongReadAhead::startReading()
{
    while (m_nextFile < m_files.size() && m_batches.size() < MOST_BATCHES) {
        m_batches.emplace_back(m_files.mid(m_nextFile, FILES_PER_BATCH));
        if (m_stop.stop_requested())
            m_batches.back().end();
        m_nextFile = std::min(m_nextFile + FILES_PER_BATCH, m_files.size());
    }
}

void SongReadAhead::giveUpWhatHangs()
{
    for (auto batch = m_batches.begin(); batch != m_batches.end(); ++batch) {
        if (!batch->hangs(LOOKS) || !DiskTaskState::canHaveSuccessor())
            continue;
        if (QStringList rest = batch->giveUp(); !rest.isEmpty())
            m_batches.emplace(std::next(batch), std::move(rest));
    }
}

} // namespace sonavo
