#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <optional>

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

template <typename Work>
[[nodiscard]] std::optional<int> runInChild(const Work &work)
{
    return exitStatusOf(startInChild(work));
}

} // namespace sonavo
