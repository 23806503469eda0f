#pragma once

#include <QString>

namespace sonavo {

/// The number of columns that a text takes on a terminal. Needs a UTF-8 locale (see useUtf8Locale()).
[[nodiscard]] qsizetype terminalWidth(const QString &text);

/// Pads a text with spaces at its end to a number of columns; a wider text stays as it is.
[[nodiscard]] QString paddedToWidth(const QString &text, qsizetype columns);

} // namespace sonavo
