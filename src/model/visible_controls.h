#pragma once

#include <QString>

namespace sonavo {

/// A text as it can be shown in one line, and printed on a terminal: control characters, line separators and
/// characters that change the writing direction are replaced by escapes such as "\n", "\x1b" or "\u202e".
[[nodiscard]] QString withVisibleControls(const QString &text);

// The same for what stands inside a sentence, whose words it must not bring into another order. In other
// languages than English it is isolated (Unicode Standard Annex #9, 2.4).

/// The name of a file or folder, which is written in the direction of its first letter.
[[nodiscard]] QString nameInText(const QString &name);
/// A path, which is always written from left to right.
[[nodiscard]] QString pathInText(const QString &path);

} // namespace sonavo
