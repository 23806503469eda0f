#pragma once

#include <QString>

namespace sonavo {

/// A number of bytes as file managers show it, in powers of 1000: "Zero KB", "1 byte",
/// "999 bytes", "12 KB", "84.3 MB", "1.25 GB".
///
/// KB have no decimals, MB one, GB and above two. Trailing zeros are dropped, halves are rounded away from
/// zero, and a value that would be rounded to 1000 is shown in the next unit. In other languages than
/// English, units, digits and decimal point are theirs.
/// @param bytes a negative number is formatted as its absolute value after a minus sign
[[nodiscard]] QString formattedByteCount(qint64 bytes);

} // namespace sonavo
