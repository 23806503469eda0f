#pragma once

#include <QString>

namespace sonavo {

/// A number of bytes as a person reads it in a file manager, in powers of 1000: "Zero KB", "1 byte",
/// "999 bytes", "12 KB", "84.3 MB", "1.25 GB".
///
/// KB are whole, MB have one decimal, GB and above two; trailing zeros are dropped, halves round away from
/// zero, and a value that would print as 1000 moves into the next unit. Independent of the locale.
/// @param bytes zero or more; a negative number is written like its absolute value with a minus sign
[[nodiscard]] QString formattedByteCount(qint64 bytes);

} // namespace sonavo
