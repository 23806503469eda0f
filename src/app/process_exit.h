#pragma once

#include <QObject>

#include <chrono>

namespace sonavo {

/// The program's exit statuses, as --help lists them.
enum class ExitStatus : int
{
    Success = 0,
    NothingReported = 1,
    NoWindow = 1,
    WindowBusy = 1,
    UnusableArguments = 2,
    Interrupted = 130,
};

/// Makes SIGTERM and SIGINT quit the application through the event loop. Signals that the parent process set
/// to be ignored stay ignored. At most one instance at a time; main thread only.
class QuitOnSignal : public QObject
{
    Q_OBJECT

public:
    explicit QuitOnSignal(QObject *parent = nullptr);
    /// Restores the previous signal handlers.
    ~QuitOnSignal() override;
    Q_DISABLE_COPY_MOVE(QuitOnSignal)
};

/// Makes SIGINT (Ctrl-C) erase the progress line and end the process at once with ExitStatus::Interrupted,
/// which is safe for a report since it changes nothing. SIGINT stays ignored if the parent process set it so.
void exitAtOnceOnInterrupt();

/// Ends the process with `status` after `grace`, unless it has ended by then: destructors may still wait for
/// a disk, a message bus or a sound server that hangs. To be called once, when all work is done.
/// @param grace at least 1 s
void forceExitAfter(std::chrono::seconds grace, ExitStatus status);

} // namespace sonavo
