#pragma once

#include <QString>

namespace sonavo {

/// A text as it can be shown in one line, and printed on a terminal: control characters, line separators and
/// characters that change the writing direction are replaced by escapes such as "\n", "\x1b" or "\u202e".
[[nodiscard]] QString withVisibleControls(const QString &text);

} // namespace sonavo
