#pragma once

#include <cstdint>

namespace sonavo {

/// Scans a changing folder again and again in one window, cancels, listens, deletes, and looks for what is
/// wrong afterwards. Prints what it finds. Needs a QApplication.
/// @param seed of the random choices
/// @return whether all was well
[[nodiscard]] bool soak(int scans, std::uint64_t seed);

} // namespace sonavo
