#pragma once

#include "app/command_line.h"

namespace sonavo {

/// The exit statuses of the program.
enum class ExitStatus : int
{
    Success = 0,
    NothingScanned = 1,
    UnusableArguments = 2,
    Interrupted = 130,
};

/// Scans the items of a request, shows progress on a terminal, prints the report on standard output and the
/// reason for a missing one on standard error. Runs the event loop until then; Ctrl-C ends it early.
[[nodiscard]] ExitStatus runReport(const ReportRequest &request);

} // namespace sonavo
