#include "import/disk_task.h"

#include <QCoreApplication>

#include <atomic>

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
