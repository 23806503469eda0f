#include "session/song_read_ahead.h"

#include <QCoroFuture>
#include <QtConcurrentRun>

#include <algorithm>

namespace sonavo {
namespace {

/// Files that one task of the thread pool reads: a small file is read so fast that a task for each would cost
/// too much beside it.
constexpr qsizetype FILES_PER_TASK = 20;
/// Enough that all cores have work through a pause, little enough to be of no account in memory.
constexpr std::size_t MOST_TASKS_AHEAD = 40;

constexpr qint64 FILES_PER_REPORT = 50;
constexpr qint64 FILES_PER_PAUSE = 200;
constexpr std::chrono::milliseconds PAUSE{10};

SongReadAhead::Facts readAll(const QStringList &files, const std::stop_token &stop)
{
    SongReadAhead::Facts facts;
    facts.reserve(files.size());
    for (const QString &file : files)
        facts.append(stop.stop_requested() ? std::nullopt : readFacts(file, stop));
    return facts;
}

} // namespace

SongReadAhead::SongReadAhead(QStringList files, std::stop_token stop)
    : m_files(std::move(files))
    , m_endWithCaller(std::move(stop), [end = m_end]() mutable { end.request_stop(); })
{}

SongReadAhead::~SongReadAhead()
{
    m_end.request_stop();
}

QFuture<SongReadAhead::Facts> SongReadAhead::next()
{
    startReading();
    Q_ASSERT(!m_ahead.empty());
    QFuture<Facts> future = std::move(m_ahead.front());
    m_ahead.pop_front();
    return future;
}

void SongReadAhead::startReading()
{
    while (m_nextFile < m_files.size() && m_ahead.size() < MOST_TASKS_AHEAD) {
        m_ahead.push_back(
            QtConcurrent::run(readAll, m_files.mid(m_nextFile, FILES_PER_TASK), m_end.get_token()));
        m_nextFile = std::min(m_nextFile + FILES_PER_TASK, m_files.size());
    }
}

QCoro::Task<std::optional<QList<Song>>> readSongs(QStringList files, std::shared_ptr<Pauses> pauses,
                                                  std::stop_token stop,
                                                  std::function<void(qint64 processed)> reportProgress)
{
    SongReadAhead readAhead(files, stop);
    QList<Song> songs;
    songs.reserve(files.size());
    SongMaker maker;
    qint64 processed = 0;
    while (readAhead.hasMore()) {
        const SongReadAhead::Facts facts = co_await readAhead.next();
        if (stop.stop_requested())
            co_return std::nullopt;
        for (const std::optional<FileFacts> &file : facts) {
            if (file)
                songs.append(maker.songOf(files[processed], *file));
            ++processed;
            if (processed % FILES_PER_REPORT == 0)
                reportProgress(processed);
            if (processed % FILES_PER_PAUSE == 0 && !stop.stop_requested())
                co_await pauses->wait(PAUSE);
            if (stop.stop_requested())
                co_return std::nullopt;
        }
    }
    co_return songs;
}

} // namespace sonavo
