#pragma once

#include <QStringView>

#include <string>
#include <string_view>
#include <vector>

namespace sonavo {

/// The form in which texts are compared: lower-cased (Unicode), the brackets ( ) [ ] { } removed, and every
/// other run of characters that are not ASCII letters or digits turned into one blank; no blank at either
/// end. "Song (Live) [2019 Remaster]" gives "song live 2019 remaster".
///
/// The result holds only 'a' to 'z', '0' to '9' and single blanks, and may be empty: accented letters and
/// other scripts count as separators. Pure; any thread may call it.
[[nodiscard]] std::string normalizeString(QStringView text);

/// The words of a normalised text: its pieces between blanks, in order, never empty.
/// @return views into `normalized`, which must outlive them
[[nodiscard]] std::vector<std::string_view> wordsOf(std::string_view normalized);

} // namespace sonavo
