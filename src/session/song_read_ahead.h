#pragma once

#include "analysis/pauses.h"
#include "model/song.h"
#include "session/song_reading.h"

#include <QCoroTask>
#include <QFuture>
#include <QList>
#include <QStringList>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace sonavo {

/// Reads files on the global thread pool, a bounded number ahead of the caller, and hands over what was read
/// in the order of the files. Used from one thread. Destroying it, or requesting stop, ends the reading at
/// once.
class SongReadAhead
{
public:
    /// What was read of some files in a row. A file that cannot be read, or any once stop is requested, has
    /// nothing.
    using Facts = QList<std::optional<FileFacts>>;

    SongReadAhead(QStringList files, std::stop_token stop);
    ~SongReadAhead();
    Q_DISABLE_COPY_MOVE(SongReadAhead)

    [[nodiscard]] bool hasMore() const { return m_nextFile < m_files.size() || !m_ahead.empty(); }

    /// The facts of the next files, at least one; to be called only while there are more.
    [[nodiscard]] QFuture<Facts> next();

private:
    void startReading();

    const QStringList m_files;
    qsizetype m_nextFile = 0;
    std::deque<QFuture<Facts>> m_ahead;
    std::stop_source m_end;
    std::stop_callback<std::function<void()>> m_endWithCaller;
};

/// Reads files into songs, in order, skipping those that cannot be read, and pauses now and then.
/// @param reportProgress called every 50 files with the number of files handled so far
/// @return the songs; nothing when `stop` was requested meanwhile
[[nodiscard]] QCoro::Task<std::optional<QList<Song>>>
readSongs(QStringList files, std::shared_ptr<Pauses> pauses, std::stop_token stop,
          std::function<void(qint64 processed)> reportProgress);

} // namespace sonavo
