#pragma once

#include "import/regular_file.h"

#include <QFuture>
#include <QPromise>
#include <QSemaphore>
#include <QThreadPool>

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>
#include <utility>

namespace sonavo {

/// The thread pool for work that waits for disks, with as many threads as there are cores. A read can hang in
/// the kernel, where nothing can end it: its thread is abandoned, and the pool starts another one in its
/// place. The pool is never destroyed; at the end of the application its threads get a second to finish.
/// Any thread may call it.
[[nodiscard]] QThreadPool &diskThreads();

/// Tells a disk that hangs from a slow one, by a count of its answers that is looked at at regular intervals.
/// Looks are counted because a clock keeps running while the computer sleeps or the program is suspended.
class AnswerWatch
{
public:
    /// How long a disk may take for one answer; one that spins up takes some eight seconds.
    static constexpr std::chrono::seconds TIMEOUT{10};
    static constexpr int LOOKS_PER_TIMEOUT = 5;

    /// @param answers so far
    /// @param isWaiting whether an answer is being waited for
    /// @return whether none came during the last LOOKS_PER_TIMEOUT calls
    [[nodiscard]] bool isHanging(quint64 answers, bool isWaiting = true)
    {
        m_looks = isWaiting && answers == m_lastAnswers ? m_looks + 1 : 0;
        m_lastAnswers = answers;
        return m_looks >= LOOKS_PER_TIMEOUT;
    }

private:
    quint64 m_lastAnswers = 0;
    int m_looks = 0;
};

/// Does work that waits for a disk in a thread of its own, and waits for it as long as the disk answers.
/// @param work increments the counter after every answer; can outlive the call
/// @param timeout how long a single answer may take
/// @return whether the work has ended
[[nodiscard]] bool waitForDisk(std::function<void(ReadCounter &answers)> work,
                               std::chrono::milliseconds timeout = AnswerWatch::TIMEOUT);

/// The same for a caller that does something else meanwhile. Copies share the work. Any thread may use it.
/// @tparam T what the work finds
template <typename T>
class DiskLook
{
public:
    /// @param work as for waitForDisk(); must not throw
    /// @param ifHanging found when the disk does not answer
    DiskLook(std::function<T(ReadCounter &answers)> work, T ifHanging,
             std::chrono::milliseconds timeout = AnswerWatch::TIMEOUT)
    {
        m_shared->promise.start();
        std::thread([shared = m_shared, work = std::move(work), ifHanging = std::move(ifHanging), timeout] {
            // Abandoned work still writes to it.
            const auto found = std::make_shared<T>();
            const bool hasEnded =
                waitForDisk([work, found](ReadCounter &answers) { *found = work(answers); }, timeout);
            shared->promise.addResult(hasEnded ? *found : ifHanging);
            shared->promise.finish();
            shared->end.release();
        }).detach();
    }

    [[nodiscard]] QFuture<T> result() const { return m_shared->promise.future(); }

    /// Blocks the calling thread for at most `time`. @return whether there is a result
    [[nodiscard]] bool waitFor(std::chrono::milliseconds time) const
    {
        const bool hasEnded = m_shared->end.tryAcquire(1, static_cast<int>(time.count()));
        m_shared->end.release(hasEnded ? 1 : 0);
        return hasEnded;
    }

private:
    struct Shared
    {
        QPromise<T> promise;
        QSemaphore end;
    };

    const std::shared_ptr<Shared> m_shared = std::make_shared<Shared>();
};

/// The life of a DiskTask: decides whether its thread or its owner sets the result, and replaces threads that
/// are abandoned. Any thread may call it.
class DiskTaskState
{
public:
    /// The most abandoned threads that are replaced at a time. When that many hang, further ones occupy the
    /// pool until their disks answer.
    static constexpr int MAX_ABANDONED_THREADS = 32;

    /// To be called when a thread starts to work on the task.
    void start();
    /// To be called when the thread has a result.
    /// @return whether the thread must set it: false if the task was abandoned before
    [[nodiscard]] bool finish();
    /// To be called when the owner gives up waiting. Replaces the thread that works on the task, if any.
    /// @return whether the owner must set the result: false if the task has finished before
    [[nodiscard]] bool abandon();

    /// Whether a thread is working on the task, and it has not been abandoned.
    [[nodiscard]] bool isRunning() const;
    /// Whether a thread that is abandoned now would be replaced.
    [[nodiscard]] static bool canReplaceThread();

    std::stop_source stop;

private:
    mutable std::mutex m_mutex;
    bool m_hasThread = false;
    bool m_isSettled = false;
    bool m_isThreadReplaced = false;
};

/// Work that waits for the disk, done by one of diskThreads(). Destroying it asks the work to stop and
/// abandons it. Used from one thread.
/// @tparam T the result; a default-constructed one stands for no result
template <typename T>
class DiskTask
{
public:
    /// @param work runs on another thread, possibly longer than the task exists; must not throw
    explicit DiskTask(std::function<T(const std::stop_token &stop)> work)
    {
        m_shared->promise.start();
        diskThreads().start([shared = m_shared, work = std::move(work)] {
            shared->state.start();
            T result = work(shared->state.stop.get_token());
            if (shared->state.finish())
                shared->setResult(std::move(result));
        });
    }
    ~DiskTask() { abandon(T()); }
    Q_DISABLE_COPY_MOVE(DiskTask)

    /// Finishes with the result of the work, or the one that the task was abandoned with.
    [[nodiscard]] QFuture<T> result() const { return m_shared->promise.future(); }

    /// Whether a thread works at it.
    [[nodiscard]] bool isRunning() const { return m_shared->state.isRunning(); }

    /// Finishes at once with the given result, unless there is one already, and asks the work to stop.
    /// @return whether the given result was taken
    bool abandon(T result)
    {
        // Stopped first, the work could still finish in time, with what it had when it was stopped.
        const bool isAbandoned = m_shared->state.abandon();
        m_shared->state.stop.request_stop();
        if (isAbandoned)
            m_shared->setResult(std::move(result));
        return isAbandoned;
    }

private:
    struct Shared
    {
        void setResult(T result)
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
