#include "app/termination.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace sonavo {
namespace {

// A signal handler may do little more than write to a pipe.
std::array<int, 2> signalPipe{-1, -1};

constexpr std::array SIGNALS{SIGTERM, SIGINT};
std::array<struct sigaction, SIGNALS.size()> previous{};

extern "C" void noteSignal(int)
{
    const int error = errno;
    const char note = 0;
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &note, sizeof note);
    errno = error;
}

} // namespace

Termination::Termination(QObject *parent)
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
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < SIGNALS.size(); ++i) {
        ::sigaction(SIGNALS[i], &action, &previous[i]);
        // Who starts a program in the background may have it ignore what interrupts the foreground.
        if (previous[i].sa_handler == SIG_IGN)
            ::sigaction(SIGNALS[i], &previous[i], nullptr);
    }
}

Termination::~Termination()
{
    if (signalPipe[0] < 0)
        return;
    for (std::size_t i = 0; i < SIGNALS.size(); ++i)
        ::sigaction(SIGNALS[i], &previous[i], nullptr);
    for (int &end : signalPipe) {
        ::close(end);
        end = -1;
    }
}

} // namespace sonavo
