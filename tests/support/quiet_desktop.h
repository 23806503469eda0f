#pragma once

#include "app/headless_desktop.h"

namespace sonavo {

/// A desktop on which nothing is chosen, shown, heard or moved; tests override what they are about.
using QuietDesktop = HeadlessDesktop;

} // namespace sonavo
