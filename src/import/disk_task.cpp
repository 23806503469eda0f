#include "import/disk_task.h"

#include <QCoreApplication>

#include <atomic>
#include <future>
#include <thread>

namespace sonavo {
namespace {

/// Threads that are abandoned and replaced now.
std::atomic<int> abandonedThreads = 0;

QThreadPool *createPool()
{
    qAddPostRoutine([] {
        // Work that was asked to stop ends at its next read, unless that read hangs.
        constexpr int TIMEOUT_MS = 1000;
        diskThreads().waitForDone(TIMEOUT_MS);
    });
    return new QThreadPool;
}

} // namespace

QThreadPool &diskThreads()
{
    // Leaked: its destructor would wait for every thread.
    static QThreadPool *const pool = createPool();
    return *pool;
}

bool waitForDisk(std::function<void(ReadCounter &answers)> work, std::chrono::milliseconds timeout)
{
    const auto answers = std::make_shared<ReadCounter>(0);
    std::packaged_task<void()> task([answers, work = std::move(work)] { work(*answers); });
    const std::future<void> end = task.get_future();
    // Not one of diskThreads(), which can have much to do.
    std::thread(std::move(task)).detach();
    AnswerWatch watch;
    while (end.wait_for(timeout / AnswerWatch::LOOKS_PER_TIMEOUT) != std::future_status::ready) {
        if (watch.isHanging(*answers))
            return false;
    }
    return true;
}

void DiskTaskState::start()
{
    const std::lock_guard lock(m_mutex);
    m_hasThread = true;
}

bool DiskTaskState::finish()
{
    const std::lock_guard lock(m_mutex);
    m_hasThread = false;
    if (m_isThreadReplaced) {
        --abandonedThreads;
        diskThreads().reserveThread();
    }
    return !std::exchange(m_isSettled, true);
}

bool DiskTaskState::abandon()
{
    const std::lock_guard lock(m_mutex);
    if (std::exchange(m_isSettled, true))
        return false;
    m_isThreadReplaced = m_hasThread && canReplaceThread();
    if (m_isThreadReplaced) {
        ++abandonedThreads;
        diskThreads().releaseThread();
    }
    return true;
}

bool DiskTaskState::isRunning() const
{
    const std::lock_guard lock(m_mutex);
    return m_hasThread && !m_isSettled;
}

bool DiskTaskState::canReplaceThread()
{
    return abandonedThreads < MAX_ABANDONED_THREADS;
}

} // namespace sonavo
