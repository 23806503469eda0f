#pragma once

#include "import/regular_file.h"
#include "import/sound.h"

#include <optional>
#include <stop_token>

namespace sonavo {

/// Reads what the content of an audio file tells: MP3, MPEG-4 audio, WAV, FLAC or raw AAC (ADTS), whatever
/// its extension. The length that the container stores is taken where there is one; otherwise the frames are
/// counted, or computed where looks across an MP3 find that all of them have one bit rate.
///
/// Reads a few pages where a length is stored or computed, and at most a megabyte behind the last frame where
/// frames are counted; memory is 64 KB for each thread. MPEG-4: edit lists are honoured. MP3: the encoder's
/// delay does not count where the file states it, up to one frame of padding at the end (26 ms at 44.1 kHz)
/// does. A truncated file keeps the length that it stores.
///
/// No other file or address that a file refers to is opened. Waits for the disk; any thread may call it.
/// @param stop ends the reading before its next read
/// @return nothing when the file is not open, cannot be read as audio or stop was requested
[[nodiscard]] std::optional<Sound> readSound(const RegularFile &file, const std::stop_token &stop = {});

} // namespace sonavo
