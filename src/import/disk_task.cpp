#include "import/disk_task.h"

#include <QCoreApplication>

#include <atomic>

namespace sonavo {
namespace {

std::atomic<int> leftBehind = 0;

QThreadPool *startThreads()
{
    qAddPostRoutine([] {
        // What was asked to stop ends with its next read, unless that one hangs.
        constexpr int PATIENCE_MS = 1000;
        diskThreads().waitForDone(PATIENCE_MS);
    });
    return new QThreadPool;
}

} // namespace

QThreadPool &diskThreads()
{
    // Its destructor would wait for every thread.
    static QThreadPool *const threads = startThreads();
    return *threads;
}

void DiskTaskState::begin()
{
    const std::lock_guard lock(m_mutex);
    m_hasThread = true;
}

bool DiskTaskState::end()
{
    const std::lock_guard lock(m_mutex);
    m_hasThread = false;
    if (m_hasSuccessor) {
        --leftBehind;
        diskThreads().reserveThread();
    }
    return !std::exchange(m_isSettled, true);
}

bool DiskTaskState::leave()
{
    const std::lock_guard lock(m_mutex);
    if (std::exchange(m_isSettled, true))
        return false;
    m_hasSuccessor = m_hasThread && canHaveSuccessor();
    if (m_hasSuccessor) {
        ++leftBehind;
        diskThreads().releaseThread();
    }
    return true;
}

bool DiskTaskState::isRunning() const
{
    const std::lock_guard lock(m_mutex);
    return m_hasThread && !m_isSettled;
}

bool DiskTaskState::canHaveSuccessor()
{
    return leftBehind < MOST_LEFT_BEHIND;
}

} // namespace sonavo
