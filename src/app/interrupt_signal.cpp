#include "app/interrupt_signal.h"

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

namespace sonavo {
namespace {

std::atomic<int> wakeDescriptor{-1};
static_assert(std::atomic<int>::is_always_lock_free, "A signal handler may not lock");

extern "C" void wakeMainThread(int)
{
    const int savedError = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(wakeDescriptor.load(), &byte, 1);
    errno = savedError;
}

} // namespace

InterruptSignal::InterruptSignal(QObject *parent)
    : QObject(parent)
{
    if (::pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    wakeDescriptor = m_pipe[1];
    auto *notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        Q_EMIT interrupted();
    });

    struct sigaction action = {};
    action.sa_handler = wakeMainThread;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    ::sigaction(SIGINT, &action, &m_previousAction);
}

InterruptSignal::~InterruptSignal()
{
    if (m_pipe[0] < 0)
        return;
    ::sigaction(SIGINT, &m_previousAction, nullptr);
    wakeDescriptor = -1;
    for (const int descriptor : m_pipe)
        ::close(descriptor);
}

} // namespace sonavo
