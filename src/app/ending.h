#pragma once

#include "app/exit_status.h"

#include <chrono>

namespace sonavo {

/// Ends the process with `status` after `patience`, unless it has ended until then. To be called when all
/// work is done: what is still to be destroyed can wait for a disk, a message bus or a sound server that
/// hangs. Once a process.
void endWithin(std::chrono::seconds patience, ExitStatus status);

} // namespace sonavo
