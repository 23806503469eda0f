#pragma once

#include <QObject>

#include <chrono>

namespace sonavo {

/// The exit statuses of the program.
enum class ExitStatus : int
{
    Success = 0,
    NothingReported = 1,
    NoWindow = 1,
    UnusableArguments = 2,
    Interrupted = 130,
};

/// Makes SIGTERM and SIGINT quit the application in its ordinary way, through the event loop. A signal that
/// the caller has ignored stays ignored. One at a time; main thread only.
class QuitOnSignal : public QObject
{
    Q_OBJECT

public:
    explicit QuitOnSignal(QObject *parent = nullptr);
    /// Restores the previous signal handlers.
    ~QuitOnSignal() override;
    Q_DISABLE_COPY_MOVE(QuitOnSignal)
};

/// Makes Ctrl-C (SIGINT) erase the progress line and end the process at once with ExitStatus::Interrupted: a
/// report changes nothing that would have to be put in order. Where the caller ignores SIGINT, it stays
/// ignored.
void exitAtOnceOnInterrupt();

/// Ends the process with `status` after `grace`, unless it has ended by then. To be called once, when all
/// work is done: destructors may still wait for a disk, a message bus or a sound server that hangs.
void forceExitAfter(std::chrono::seconds grace, ExitStatus status);

} // namespace sonavo
