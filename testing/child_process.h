#pragma once

#include "testing/system_call_listener.h"

#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <optional>
#include <vector>

namespace sonavo {

/// The exit status of a child that was not allowed to stop its system calls.
constexpr int NOT_ALLOWED = 77;

/// Runs work in a copy of this process, some of whose system calls are stopped.
/// @param numbers the calls, such as SYS_unlink
/// @param handler has to answer them
/// @return what the work returned, 0 to 255; nothing when the process was killed
[[nodiscard]] inline std::optional<int>
runInChild(const std::function<int()> &work, const std::vector<unsigned> &numbers,
           const std::function<void(const SystemCallListener &, const seccomp_notif &)> &handler)
{
    const pid_t child = ::fork();
    if (child == 0) {
        SystemCallListener listener;
        const auto handle = [&](const seccomp_notif &call) { handler(listener, call); };
        ::_exit(listener.start(numbers, handle) ? work() : NOT_ALLOWED);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
}

} // namespace sonavo
