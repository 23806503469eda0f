#pragma once

#include "import/disk_task.h"
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

/// Reads audio files on diskThreads(), a bounded number ahead of the caller, and hands over the results in
/// the order of the files. A file whose disk does not answer in time counts as unreadable; once so many hang
/// that no thread is left, so do all that are not read yet. Used from one thread with an event loop.
/// Destroying it, or requesting stop, abandons the reading at once.
class SongReadAhead
{
public:
    /// The results of consecutive files; nothing for a file that cannot be read. Empty once stop is
    /// requested.
    using Results = QList<std::optional<AudioFileInfo>>;

    /// @param known asked before a file is read, and told its playing time; may be null
    /// @param timeout how long a single read may take
    SongReadAhead(QStringList files, std::stop_token stop, std::shared_ptr<KnownDurations> known = {},
                  std::chrono::milliseconds timeout = AnswerWatch::TIMEOUT);
    ~SongReadAhead();
    Q_DISABLE_COPY_MOVE(SongReadAhead)

    [[nodiscard]] bool hasMore() const;

    /// The results of the next files, at least one. To be called only while there are more, and after the
    /// future of the call before has finished.
    [[nodiscard]] QFuture<Results> next();

private:
    class Batch;

    void startBatches();
    void abandonHangingFiles();
    [[nodiscard]] quint64 readsSoFar() const;
    void endReading();

    const QStringList m_files;
    const std::stop_token m_stop;
    const std::shared_ptr<KnownDurations> m_known;
    /// Index of the first file that is in no batch yet.
    qsizetype m_nextFile = 0;
    /// Batches that are read or wait for a thread. The first one is handed out already when m_isFirstTaken.
    std::list<Batch> m_batches;
    bool m_isFirstTaken = false;
    AnswerWatch m_watch;
    QTimer m_hangTimer;
    std::stop_callback<std::function<void()>> m_onStop;
};

} // namespace sonavo
