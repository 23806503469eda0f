#pragma once

#include "session/release.h"

#include <QCoroFuture>
#include <QCoroTask>
#include <QElapsedTimer>
#include <QFuture>
#include <QObject>
#include <QPointer>
#include <QPromise>
#include <QString>
#include <QThreadPool>
#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>
#include <stop_token>
#include <utility>

namespace sonavo {

/// Moves files, or changes the result, in a thread of its own, one job at a time, and says how far it is.
/// Main thread only.
class FileJob : public QObject
{
    Q_OBJECT

public:
    struct State
    {
        /// From the start of the job until its outcome is published.
        bool isRunning = false;
        /// Whether it has been running long enough to show how far it is.
        bool isShown = false;
        /// As "Moving 1,234 of 4,943 to the Trash".
        QString message;
        /// From 0.0 to 1.0.
        double fraction = 0.0;
        /// See timeLeftText().
        QString timeLeft;
        /// It was asked to stop, and still ends the file at hand.
        bool isStopping = false;

        friend bool operator==(const State &, const State &) = default;
    };

    /// What the work is given.
    struct Control
    {
        /// Asks it to end after the file at hand.
        std::stop_token stop;
        std::function<void(qint64 done)> reportProgress;
    };

    explicit FileJob(QObject *parent = nullptr);
    /// Asks the work to stop and does not wait for it: its outcome is lost.
    ~FileJob() override;
    Q_DISABLE_COPY_MOVE(FileJob)

    [[nodiscard]] const State &state() const { return m_state; }

    /// Does work in the other thread and then publishes its outcome in this one. Only when no job is running.
    /// @param message with %L1 for the number of the file at hand and %L2 for that of all, or without any %
    /// @param files how many, or into how many parts other work is divided
    /// @param work must own what it uses, since it can outlive the session
    /// @param publish the job counts as running until it returns
    template <typename Outcome>
    void run(const QString &message, qint64 files, std::function<Outcome(const Control &)> work,
             std::function<void(const Outcome &)> publish)
    {
        Q_ASSERT(!m_state.isRunning);
        auto control = begin(message, files);
        finishLater(this, startWork(std::move(work), std::move(control)), std::move(publish));
    }

    /// Ends the running work after the file at hand.
    void requestStop();

Q_SIGNALS:
    void changed(const sonavo::FileJob::State &before);

private:
    struct Progress
    {
        std::stop_source stop;
        std::atomic<qint64> done = 0;
    };

    template <typename Outcome>
    static QFuture<Outcome> startWork(std::function<Outcome(const Control &)> work, Control control);
    template <typename Outcome>
    static QCoro::Task<> finishLater(QPointer<FileJob> self, QFuture<Outcome> future,
                                     std::function<void(const Outcome &)> publish);

    [[nodiscard]] Control begin(const QString &message, qint64 files);
    void end();
    void update();
    void set(State state);

    State m_state;
    std::shared_ptr<Progress> m_progress;
    QString m_message;
    qint64 m_files = 0;
    QElapsedTimer m_elapsed;
    QTimer m_timer;
};

/// The thread of all jobs. It is never destroyed; the end of the QCoreApplication waits for it.
[[nodiscard]] QThreadPool &fileJobThread();

template <typename Outcome>
QFuture<Outcome> FileJob::startWork(std::function<Outcome(const Control &)> work, Control control)
{
    const auto promise = std::make_shared<QPromise<Outcome>>();
    promise->start();
    fileJobThread().start([promise, work = std::move(work), control = std::move(control)]() mutable {
        promise->addResult(work(control));
        // What the work holds is released here, not in the thread that waits for the outcome.
        work = nullptr;
        promise->finish();
    });
    return promise->future();
}

template <typename Outcome>
QCoro::Task<> FileJob::finishLater(QPointer<FileJob> self, QFuture<Outcome> future,
                                   std::function<void(const Outcome &)> publish)
{
    Outcome outcome = co_await future;
    if (self)
        publish(outcome);
    if (self)
        self->end();
    releaseLater(std::pair(std::move(outcome), std::move(future)));
}

} // namespace sonavo
