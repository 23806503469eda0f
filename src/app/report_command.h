#pragma once

#include "app/command_line.h"
#include "app/exit_status.h"

namespace sonavo {

/// Scans the items of a request, shows progress on a terminal, prints the report on standard output and the
/// reason for a missing one on standard error. Runs the event loop until then; Ctrl-C ends it early.
[[nodiscard]] ExitStatus runReport(const ReportRequest &request);

} // namespace sonavo
