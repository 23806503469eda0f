#include "session/background.h"

#include <QCoroFuture>
#include <QPromise>
#include <QThreadPool>

#include <memory>
#include <utility>

namespace sonavo {

QCoro::Task<> runInBackground(std::function<void()> work)
{
    const auto promise = std::make_shared<QPromise<void>>();
    promise->start();
    QThreadPool::globalInstance()->start([promise, work = std::move(work)]() mutable {
        work();
        // What the work holds is released here, not in the thread that waits.
        work = nullptr;
        promise->finish();
    });
    co_await promise->future();
}

} // namespace sonavo
