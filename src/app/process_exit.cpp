#include "app/process_exit.h"

#include "app/progress_line.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace sonavo {
namespace {

// Handlers may call only async-signal-safe functions, so they wake the event loop through a pipe.
std::array<int, 2> signalPipe{-1, -1};

constexpr std::array SIGNALS{SIGTERM, SIGINT};
std::array<struct sigaction, SIGNALS.size()> previousActions{};

int forcedStatus = 0;

extern "C" void writeToSignalPipe(int)
{
    const int error = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, sizeof byte);
    errno = error;
}

extern "C" void exitInterrupted(int)
{
    if (::isatty(STDERR_FILENO) == 1) {
        [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, ERASE_LINE.data(), ERASE_LINE.size());
    }
    ::_exit(static_cast<int>(ExitStatus::Interrupted));
}

extern "C" void exitForced(int)
{
    ::_exit(forcedStatus);
}

/// Installs a handler unless the signal is ignored, as shells do for programs in the background.
/// @return the previous action
struct sigaction handleUnlessIgnored(int signal, const struct sigaction &action)
{
    struct sigaction previous = {};
    ::sigaction(signal, &action, &previous);
    if (previous.sa_handler == SIG_IGN)
        ::sigaction(signal, &previous, nullptr);
    return previous;
}

} // namespace

QuitOnSignal::QuitOnSignal(QObject *parent)
    : QObject(parent)
{
    if (::pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [notifier] {
        notifier->setEnabled(false);
        QCoreApplication::quit();
    });
    struct sigaction action = {};
    action.sa_handler = writeToSignalPipe;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < SIGNALS.size(); ++i)
        previousActions[i] = handleUnlessIgnored(SIGNALS[i], action);
}

QuitOnSignal::~QuitOnSignal()
{
    if (signalPipe[0] < 0)
        return;
    for (std::size_t i = 0; i < SIGNALS.size(); ++i)
        ::sigaction(SIGNALS[i], &previousActions[i], nullptr);
    for (int &end : signalPipe) {
        ::close(end);
        end = -1;
    }
}

void exitAtOnceOnInterrupt()
{
    struct sigaction action = {};
    action.sa_handler = exitInterrupted;
    handleUnlessIgnored(SIGINT, action);
}

void forceExitAfter(std::chrono::seconds grace, ExitStatus status)
{
    forcedStatus = static_cast<int>(status);
    struct sigaction action = {};
    action.sa_handler = exitForced;
    ::sigaction(SIGALRM, &action, nullptr);
    ::alarm(static_cast<unsigned>(grace.count()));
}

} // namespace sonavo
