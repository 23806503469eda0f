#include "session/song_read_ahead.h"

#include "session/song_reading.h"

#include <QCoroFuture>
#include <QtConcurrentRun>

namespace sonavo {
namespace {

/// Enough that all cores have work through a pause, little enough that a stop leaves nothing to wait for.
constexpr std::size_t MOST_FILES_AHEAD = 512;

constexpr qint64 FILES_PER_REPORT = 50;
constexpr qint64 FILES_PER_PAUSE = 200;
constexpr std::chrono::milliseconds PAUSE{10};

} // namespace

SongReadAhead::SongReadAhead(QStringList files, std::stop_token stop)
    : m_files(std::move(files))
    , m_endWithCaller(std::move(stop), [end = m_end]() mutable { end.request_stop(); })
{}

SongReadAhead::~SongReadAhead()
{
    m_end.request_stop();
}

QFuture<std::optional<Song>> SongReadAhead::next()
{
    startReading();
    Q_ASSERT(!m_ahead.empty());
    QFuture<std::optional<Song>> future = std::move(m_ahead.front());
    m_ahead.pop_front();
    return future;
}

void SongReadAhead::startReading()
{
    while (m_nextFile < m_files.size() && m_ahead.size() < MOST_FILES_AHEAD) {
        m_ahead.push_back(QtConcurrent::run(
            [path = m_files[m_nextFile], stop = m_end.get_token()]() -> std::optional<Song> {
                return stop.stop_requested() ? std::nullopt : loadSong(path, stop);
            }));
        ++m_nextFile;
    }
}

QCoro::Task<std::optional<QList<Song>>> readSongs(QStringList files, std::shared_ptr<Pauses> pauses,
                                                  std::stop_token stop,
                                                  std::function<void(qint64 processed)> reportProgress)
{
    SongReadAhead readAhead(files, stop);
    QList<Song> songs;
    songs.reserve(files.size());
    for (qint64 processed = 1; processed <= files.size(); ++processed) {
        std::optional<Song> song = co_await readAhead.next();
        if (stop.stop_requested())
            co_return std::nullopt;
        if (song)
            songs.append(std::move(*song));

        if (processed % FILES_PER_REPORT == 0)
            reportProgress(processed);
        if (processed % FILES_PER_PAUSE == 0 && !stop.stop_requested())
            co_await pauses->wait(PAUSE);
        if (stop.stop_requested())
            co_return std::nullopt;
    }
    co_return songs;
}

} // namespace sonavo
