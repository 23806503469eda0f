#pragma once

#include "testing/system_call_listener.h"

#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <optional>
#include <vector>

namespace sonavo {

/// Starts work in a copy of this process, which ends with what the work returns, 0 to 255.
template <typename Work>
[[nodiscard]] pid_t startInChild(const Work &work)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(work());
    return child;
}

/// Waits for the end of a child.
/// @return nothing when it was killed
[[nodiscard]] inline std::optional<int> exitStatusOf(pid_t child)
{
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
}

/// The exit status of a child that was not allowed to stop its system calls.
constexpr int NOT_ALLOWED = 77;

/// Runs work in a child some of whose system calls are stopped.
/// @param numbers the calls, such as SYS_unlink
/// @param handler has to answer them
template <typename Work>
[[nodiscard]] std::optional<int>
runInChild(const Work &work, const std::vector<unsigned> &numbers,
           const std::function<void(const SystemCallListener &, const seccomp_notif &)> &handler)
{
    return exitStatusOf(startInChild([&] {
        auto *const listener = new SystemCallListener; // for as long as the child lives
        const auto handle = [&, listener](const seccomp_notif &call) { handler(*listener, call); };
        return listener->start(numbers, handle) ? work() : NOT_ALLOWED;
    }));
}

} // namespace sonavo
