#pragma once

#include "model/audio_formats.h"

#include <QtGlobal>

#include <optional>

namespace sonavo {

class FileWindow;

/// Detects a file's audio format by its content, whatever its name, as libavformat does it: of all formats
/// that it knows the likeliest.
/// @param offset of the content behind tags
/// @return nothing for what is none of the five formats, cannot be read, or is MP3 or AAC of less than a
/// tenth of a second, which random bytes can look like
[[nodiscard]] std::optional<AudioFormat> detectAudioFormat(FileWindow &window, qint64 offset);

} // namespace sonavo
