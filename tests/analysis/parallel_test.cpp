#include "analysis/parallel.h"

#include <QThread>
#include <QThreadPool>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <latch>
#include <vector>

namespace sonavo {
namespace {

TEST(Parallel, DoesEachPieceOnceOnSeveralThreadsWithAStateForEach)
{
    for (const std::size_t count : {std::size_t{0}, std::size_t{1}, std::size_t{7}, std::size_t{100'001}}) {
        std::vector<std::atomic<int>> calls(count);
        EXPECT_TRUE(forEachInParallel(
            count, 8, {}, [] { return QThread::currentThread(); },
            [&](QThread *thread, std::size_t i) {
                calls[i] += thread == QThread::currentThread() ? 1 : 100;
            }));
        EXPECT_TRUE(std::all_of(calls.begin(), calls.end(), [](int n) { return n == 1; })) << count;
    }
    if (computingThreads() < 2)
        GTEST_SKIP() << "there is only one core";
    QThreadPool::globalInstance()->waitForDone();
    std::latch both(2);
    EXPECT_TRUE(forEachInParallel(2, 1, {}, [&](std::size_t) { both.arrive_and_wait(); }));
}

TEST(Parallel, RunsInTheCallersThreadWhenAllOthersAreBusyOrItIsOneOfThem)
{
    std::atomic<int> sum = 0;
    std::latch done(1);
    QThreadPool &pool = *QThreadPool::globalInstance();
    const auto nested = [&] {
        forEachInParallel(100, 1, {},
                          [&](std::size_t) { forEachInParallel(10, 1, {}, [&](std::size_t) { ++sum; }); });
    };
    for (int i = 0; i < pool.maxThreadCount(); ++i)
        pool.start([&] { done.wait(); });
    nested();
    EXPECT_EQ(sum, 1000);
    pool.start(nested);
    done.count_down();
    pool.waitForDone();
    EXPECT_EQ(sum, 2000);
}

TEST(Parallel, TakesNoFurtherPieceOnceItIsStopped)
{
    std::stop_source stop;
    std::atomic<int> calls = 0;
    EXPECT_FALSE(forEachInParallel(1'000'000, 4, stop.get_token(), [&](std::size_t) {
        ++calls;
        stop.request_stop();
    }));
    EXPECT_LE(calls, 4 * static_cast<int>(computingThreads()));
}

} // namespace
} // namespace sonavo
