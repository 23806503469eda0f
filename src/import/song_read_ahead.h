#pragma once

#include "import/song_reading.h"

#include <QFuture>
#include <QList>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <stop_token>

namespace sonavo {

/// Reads files on diskThreads(), a bounded number ahead of the caller, and hands over what was read in the
/// order of the files. A file whose disk does not answer for a while counts as one that cannot be read. Used
/// from one thread that has an event loop. Destroying it, or requesting stop, ends the reading at once.
class SongReadAhead
{
public:
    /// What was read of some files in a row; nothing for a file that cannot be read. Empty once stop is
    /// requested.
    using Facts = QList<std::optional<FileFacts>>;

    /// @param patience how long a disk may take for an answer; one that sleeps wakes in some eight seconds
    SongReadAhead(QStringList files, std::stop_token stop,
                  std::chrono::milliseconds patience = std::chrono::seconds(10));
    ~SongReadAhead();
    Q_DISABLE_COPY_MOVE(SongReadAhead)

    [[nodiscard]] bool hasMore() const;

    /// The facts of the next files, at least one; to be called only while there are more, and when those of
    /// the call before have come.
    [[nodiscard]] QFuture<Facts> next();

private:
    class Batch;

    void startReading();
    void giveUpWhatHangs();

    const QStringList m_files;
    const std::stop_token m_stop;
    qsizetype m_nextFile = 0;
    /// What is read or waits for it. The first one is handed out already when m_isFirstTaken.
    std::list<Batch> m_batches;
    bool m_isFirstTaken = false;
    QTimer m_watch;
    std::stop_callback<std::function<void()>> m_endWithCaller;
};

} // namespace sonavo
