#pragma once

namespace sonavo {

/// The exit statuses of the program.
enum class ExitStatus : int
{
    Success = 0,
    NothingReported = 1,
    NoWindow = 1,
    UnusableArguments = 2,
    Interrupted = 130,
};

} // namespace sonavo
