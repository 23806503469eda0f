#pragma once

#include <QString>

#include <optional>

namespace sonavo {

/// The playing time of an audio file as libavformat tells it, however long that takes: the stored length, or
/// the sum of all packets where none is stored. The plain version of readSound() for undamaged files.
/// @return seconds; nothing where it finds no audio
[[nodiscard]] std::optional<double> libavDuration(const QString &path);

} // namespace sonavo
