#pragma once

#include <QFuture>
#include <QPromise>
#include <QThreadPool>

#include <functional>
#include <memory>
#include <mutex>
#include <stop_token>
#include <utility>

namespace sonavo {

/// The threads that wait for disks, as many as there are cores. A read can hang in the kernel, where nothing
/// ends it: such a thread is left behind, and another one takes its place. They are never destroyed; the end
/// of the application waits a second for them, no longer. Any thread may call it.
[[nodiscard]] QThreadPool &diskThreads();

/// How far a task came; decides who settles it.
class DiskTaskState
{
public:
    /// Threads that can have a successor at a time. With more of them hanging, their disks are waited for.
    static constexpr int MOST_LEFT_BEHIND = 32;

    /// A thread begins with the task.
    void begin();
    /// The thread has a result.
    /// @return whether it is still wanted
    [[nodiscard]] bool end();
    /// The result is no longer waited for; a thread that works at it gets a successor.
    /// @return whether the task had not been settled before
    [[nodiscard]] bool leave();

    /// Whether a thread works at a result that is wanted.
    [[nodiscard]] bool isRunning() const;
    /// Whether a thread that is left behind now would get a successor.
    [[nodiscard]] static bool canHaveSuccessor();

    std::stop_source stop;

private:
    mutable std::mutex m_mutex;
    bool m_hasThread = false;
    bool m_isSettled = false;
    bool m_hasSuccessor = false;
};

/// Work that waits for the disk, done by one of diskThreads(). Destroying it asks the work to stop and leaves
/// it behind. Used from one thread.
/// @tparam T what the work gives; T() stands for nothing
template <typename T>
class DiskTask
{
public:
    explicit DiskTask(std::function<T(const std::stop_token &stop)> work)
    {
        m_shared->promise.start();
        diskThreads().start([shared = m_shared, work = std::move(work)] {
            shared->state.begin();
            T result = work(shared->state.stop.get_token());
            if (shared->state.end())
                shared->settle(std::move(result));
        });
    }
    ~DiskTask() { settle(T()); }
    Q_DISABLE_COPY_MOVE(DiskTask)

    /// Finishes with what the work gives, or what it was settled with.
    [[nodiscard]] QFuture<T> result() const { return m_shared->promise.future(); }

    /// Whether a thread works at it.
    [[nodiscard]] bool isRunning() const { return m_shared->state.isRunning(); }

    /// Asks the work to stop and goes on without it, whatever it waits for; unless there is a result already.
    /// @return whether `result` is the result
    bool settle(T result)
    {
        // Stopped first, the work could still end in time, with a result that lacks what it was stopped in.
        const bool isFirst = m_shared->state.leave();
        m_shared->state.stop.request_stop();
        if (isFirst)
            m_shared->settle(std::move(result));
        return isFirst;
    }

private:
    struct Shared
    {
        void settle(T result)
        {
            promise.addResult(std::move(result));
            promise.finish();
        }

        DiskTaskState state;
        QPromise<T> promise;
    };

    const std::shared_ptr<Shared> m_shared = std::make_shared<Shared>();
};

} // namespace sonavo
