#pragma once

#include <QString>

namespace sonavo {

/// A text that is safe to print on a terminal: control characters, line separators and the characters that
/// change the direction of writing are shown as escapes such as "\n" or "\x1b".
[[nodiscard]] QString escapedForTerminal(const QString &text);

/// Columns that a text takes on a terminal. Needs a locale with UTF-8 (see useUtf8Locale()).
[[nodiscard]] qsizetype terminalWidth(const QString &text);

/// The text with blanks behind it up to a number of columns.
[[nodiscard]] QString paddedToWidth(const QString &text, qsizetype columns);

} // namespace sonavo
