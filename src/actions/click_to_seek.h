#pragma once

#include <QtGlobal>

#include <optional>

namespace sonavo {

/// The second of a song to which a click on its row seeks: the row's width represents the whole song.
/// @param x where the click was, from the row's left edge; beyond the right edge is the song's end
/// @param width of the row, in the unit of x
/// @param duration of the song in seconds
/// @return whole seconds, truncated; below zero for a click left of the row; nothing when the row has no
///     width
[[nodiscard]] std::optional<qint64> seekTarget(double x, double width, double duration);

} // namespace sonavo
