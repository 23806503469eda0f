#pragma once

#include "import/disk_task.h"

#include <QFuture>
#include <QList>
#include <QStringList>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <memory>

namespace sonavo {

/// Lists the audio files among files and folders on diskThreads(), by extension alone. No file is opened:
/// whether it is readable audio shows when it is read.
///
/// Folders are walked in the order of a FolderWalk, without the contents of packages; a folder that is given
/// is walked even when it is hidden, a link or a package. What is reached twice is listed twice. A folder
/// whose disk does not answer in time is left out, as one that cannot be read; after several of them the list
/// ends with what was found. Used from one thread with an event loop. Destroying it abandons the walk.
class AudioDiscovery
{
public:
    /// @param urls file URLs, taken in order; others contribute nothing
    /// @param timeout how long a single answer of the disk may take
    explicit AudioDiscovery(const QList<QUrl> &urls,
                            std::chrono::milliseconds timeout = AnswerWatch::TIMEOUT);
    ~AudioDiscovery();
    Q_DISABLE_COPY_MOVE(AudioDiscovery)

    /// Absolute paths.
    [[nodiscard]] QFuture<QStringList> result() const;

    /// How many were found so far. Any thread may ask.
    [[nodiscard]] qint64 foundFiles() const;

    /// Finishes at once with an empty list, unless there is a result already.
    void abandon();

private:
    class Walk;

    void startThread(int number);
    void leaveOutHangingFolder();

    const std::shared_ptr<Walk> m_walk;
    std::unique_ptr<DiskTask<bool>> m_task;
    QTimer m_hangTimer;
    AnswerWatch m_watch;
    int m_hangingFolders = 0;
};

/// Whether an item can be imported: a folder, or a file with an audio extension. Waits for the disk.
[[nodiscard]] bool isImportable(const QUrl &url);

/// A quick estimate of how many files AudioDiscovery would find. At most 101 entries below each given folder
/// are looked at, those inside packages included; after a folder with that many, the whole count so far is
/// multiplied by 10. Waits for the disk; any thread may call it.
/// @param answers incremented after every answer of the disk, if given
/// @return zero or more; saturates at the largest 64-bit number
[[nodiscard]] qint64 estimateSongCount(const QList<QUrl> &urls, ReadCounter *answers = nullptr);

} // namespace sonavo
