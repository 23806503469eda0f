#pragma once

#include "app/command_line.h"
#include "app/process_exit.h"

namespace sonavo {

/// Opens the application's window and runs the event loop until it is closed. Creates the QApplication, so
/// none may exist. Says on standard error why no window can be opened.
/// @param argc, argv as passed to main(); must outlive the call
[[nodiscard]] ExitStatus runWindow(int &argc, char **argv, const WindowRequest &request);

} // namespace sonavo
