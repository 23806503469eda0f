#include "app/termination.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

#include <array>

namespace sonavo {
namespace {

// A signal handler may do little more than write to a pipe.
std::array<int, 2> signalPipe{-1, -1};

extern "C" void noteSignal(int)
{
    const char note = 0;
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &note, sizeof note);
}

void handle(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGTERM, &action, nullptr);
    ::sigaction(SIGINT, &action, nullptr);
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
    handle(noteSignal);
}

Termination::~Termination()
{
    handle(SIG_DFL);
    for (int &end : signalPipe) {
        if (end >= 0)
            ::close(end);
        end = -1;
    }
}

} // namespace sonavo
