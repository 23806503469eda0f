#include "testing/system_call_listener.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <linux/filter.h>
#include <utility>

namespace {

/// Whether calls of this process fail once their listener is gone.
std::atomic<bool> hasFilter = false;

} // namespace

/// Asked by LeakSanitizer at the end of a program. It reads a folder of /proc then, for which it needs calls
/// that may fail by now; LLVM 19 aborts where those before pass over it.
extern "C" int __lsan_is_turned_off() // NOLINT(bugprone-reserved-identifier)
{
    return hasFilter ? 1 : 0;
}

namespace sonavo {

bool SystemCallListener::start(const std::vector<unsigned> &numbers, Handler handler)
{
    return testing::UnitTest::GetInstance()->test_to_run_count() <= 1 &&
           stopCalls(numbers, std::move(handler), Stops::OnlyTheseCalls);
}

bool SystemCallListener::stopCalls(const std::vector<unsigned> &numbers, Handler handler, Stops stops)
{
    const unsigned listed = stops == Stops::OnlyTheseCalls ? SECCOMP_RET_USER_NOTIF : SECCOMP_RET_ALLOW;
    const unsigned others = stops == Stops::OnlyTheseCalls ? SECCOMP_RET_ALLOW : SECCOMP_RET_USER_NOTIF;
    std::vector<sock_filter> program{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    for (const unsigned number : numbers) {
        program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, number, 0, 1));
        program.push_back(BPF_STMT(BPF_RET | BPF_K, listed));
    }
    program.push_back(BPF_STMT(BPF_RET | BPF_K, others));
    const sock_fprog filter{static_cast<unsigned short>(program.size()), program.data()};
    // Before the filter, so that it does not hold for this thread.
    m_thread = std::jthread(
        [this, handler = std::move(handler)](const std::stop_token &stop) { listen(stop, handler); });
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    m_listener = static_cast<int>(
        ::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &filter));
    m_listener.notify_one();
    hasFilter = m_listener >= 0;
    return hasFilter;
}

void SystemCallListener::listen(const std::stop_token &stop, const Handler &handler) const
{
    m_listener.wait(NOT_STARTED);
    while (!stop.stop_requested() && m_listener >= 0) {
        constexpr int TIMEOUT_MS = 20;
        pollfd calls{m_listener, POLLIN, 0};
        seccomp_notif call = {};
        if (::poll(&calls, 1, TIMEOUT_MS) == 1 && (calls.revents & POLLIN) != 0 &&
            ::ioctl(m_listener, SECCOMP_IOCTL_NOTIF_RECV, &call) == 0)
            handler(call);
    }
    ::close(m_listener);
}

void SystemCallListener::letThrough(quint64 id) const
{
    answer({id, 0, 0, SECCOMP_USER_NOTIF_FLAG_CONTINUE});
}

void SystemCallListener::fail(quint64 id, int error) const
{
    answer({id, 0, -error, 0});
}

void SystemCallListener::carryOut(const seccomp_notif &call, int error) const
{
    const auto &args = call.data.args;
    const long result = ::syscall(call.data.nr, args[0], args[1], args[2], args[3], args[4], args[5]);
    fail(call.id, result < 0 ? errno : error);
}

void SystemCallListener::answer(const seccomp_notif_resp &response) const
{
    // The caller may be gone.
    static_cast<void>(::ioctl(m_listener, SECCOMP_IOCTL_NOTIF_SEND, &response));
}

std::optional<int>
runInChild(const std::function<int()> &work, const std::vector<unsigned> &numbers,
           const std::function<void(const SystemCallListener &, const seccomp_notif &)> &handler,
           SystemCallListener::Stops stops)
{
    const pid_t child = ::fork();
    if (child == 0) {
        SystemCallListener listener;
        const auto handle = [&](const seccomp_notif &call) { handler(listener, call); };
        ::_exit(listener.stopCalls(numbers, handle, stops) ? work() : NOT_ALLOWED);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
}

} // namespace sonavo
