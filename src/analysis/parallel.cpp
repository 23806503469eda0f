#include "analysis/parallel.h"

#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <latch>
#include <memory>

namespace sonavo {

std::size_t computingThreads()
{
    // Asked for every small bucket; Qt asks the system each time.
    static const auto count = static_cast<std::size_t>(std::max(QThread::idealThreadCount(), 1));
    return count;
}

void runInThreads(std::size_t most, const std::function<void(std::size_t)> &takePart)
{
    const auto helpers = static_cast<std::ptrdiff_t>(std::min(most, computingThreads())) - 1;
    if (helpers < 1) {
        takePart(0);
        return;
    }
    // Shared, since the last thread may still be leaving it when the wait is over.
    const auto left = std::make_shared<std::latch>(helpers);
    for (std::ptrdiff_t i = 0; i < helpers; ++i) {
        const auto help = [&takePart, left, i] {
            takePart(static_cast<std::size_t>(i) + 1);
            left->count_down();
        };
        // Not start(), which queues what it cannot run at once: a thread of the pool would wait for itself.
        if (!QThreadPool::globalInstance()->tryStart(help))
            left->count_down();
    }
    takePart(0);
    left->wait();
}

} // namespace sonavo
