#pragma once

#include <QString>

namespace sonavo {

/// A number in the digits and with the decimal point of the default locale.
/// @param number in ASCII digits, with a full stop for the decimal point; other characters stay
[[nodiscard]] QString withLocalDigits(QString number);

} // namespace sonavo
