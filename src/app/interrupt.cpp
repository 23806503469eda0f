#include "app/interrupt.h"

#include "app/exit_status.h"
#include "app/progress_line.h"

#include <csignal>
#include <unistd.h>

namespace sonavo {
namespace {

/// Only what a signal handler may do.
extern "C" void endAtOnce(int)
{
    if (::isatty(STDERR_FILENO) == 1) {
        [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, ERASE_LINE.data(), ERASE_LINE.size());
    }
    ::_exit(static_cast<int>(ExitStatus::Interrupted));
}

} // namespace

void endAtOnceOnInterrupt()
{
    struct sigaction action = {};
    struct sigaction previous = {};
    action.sa_handler = endAtOnce;
    ::sigaction(SIGINT, &action, &previous);
    if (previous.sa_handler == SIG_IGN)
        ::sigaction(SIGINT, &previous, nullptr);
}

} // namespace sonavo
