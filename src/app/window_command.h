#pragma once

#include "app/command_line.h"
#include "app/process_exit.h"

namespace sonavo {

/// Opens the application's window and runs until it is closed. Makes the application object; there must be
/// none.
/// @param argc, argv as main() gets them; must stay valid
[[nodiscard]] ExitStatus runWindow(int &argc, char **argv, const WindowRequest &request);

} // namespace sonavo
