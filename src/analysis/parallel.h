#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <stop_token>

namespace sonavo {

/// How many threads compute at a time: one for each core.
[[nodiscard]] std::size_t computingThreads();

/// Calls `takePart(n)` in this thread and at the same time in those of Qt's global pool that are idle, with
/// another n below computingThreads() in each, and returns when all calls have returned. Never waits for a
/// thread that is busy with something else, so any thread may call it, one of the pool as well.
/// @param most calls in all
/// @param takePart is called concurrently, at least once; does not throw
void runInThreads(std::size_t most, const std::function<void(std::size_t)> &takePart);

/// Calls `work(state, i)` once for every i below `count`, on all cores and in no particular order; blocks
/// until all are done or those under way at the time of the stop are. What is computed depends on the number
/// of threads only if `work` lets it: it should write to a place of its own for each i.
/// @param partSize how many numbers in a row a thread takes at a time, at least 1; `stop` is looked at
///     between them. So many should take far longer than a microsecond
/// @param makeState called with a number below computingThreads(), another for each thread that takes part;
///     gives it a state of its own, such as memory to reuse
/// @return false if it was stopped, perhaps before all were done
template <typename MakeState, typename Work>
bool forEachInParallel(std::size_t count, std::size_t partSize, const std::stop_token &stop,
                       MakeState makeState, Work work)
{
    std::atomic<std::size_t> next = 0;
    const auto takePart = [&](std::size_t thread) {
        if (next.load() >= count)
            return;
        auto state = makeState(thread);
        while (!stop.stop_requested()) {
            const std::size_t begin = next.fetch_add(partSize);
            if (begin >= count)
                return;
            const std::size_t end = count - begin < partSize ? count : begin + partSize;
            for (std::size_t i = begin; i < end; ++i)
                work(state, i);
        }
    };
    runInThreads((count + partSize - 1) / partSize, takePart);
    return !stop.stop_requested();
}

/// The same without states: `work(i)`.
template <typename Work>
bool forEachInParallel(std::size_t count, std::size_t partSize, const std::stop_token &stop, Work work)
{
    struct NoState
    {};
    return forEachInParallel(
        count, partSize, stop, [](std::size_t) { return NoState{}; },
        [&work](NoState &, std::size_t i) { work(i); });
}

} // namespace sonavo
