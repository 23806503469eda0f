#pragma once

#include "import/regular_file.h"

#include <QString>

#include <optional>
#include <stop_token>

namespace sonavo {

/// Reads the playing time of an audio file: MP3, MPEG-4 audio, WAV, FLAC or raw AAC (ADTS), detected by its
/// content. The length that the container stores is taken where there is one; otherwise the packets are
/// counted. Nothing is estimated from a bit rate.
///
/// MPEG-4: edit lists are honoured. MP3: the encoder's delay does not count where the file states it, up to
/// one frame of padding at the end (26 ms at 44.1 kHz) does. A truncated file keeps the length that it
/// stores.
///
/// Only regular files are opened (through links too), and no other file or address that a file refers to.
/// Waits for the disk; any thread may call it.
/// @param path its extension decides which format is tried first
/// @param stop ends the reading before its next read
/// @param counter incremented after every read, if given
/// @return seconds, zero or more, 0.0 where the length is unknown; nothing when the file cannot be read as
/// audio or stop was requested
[[nodiscard]] std::optional<double> readAudioDuration(const QString &path, const std::stop_token &stop = {},
                                                      ReadCounter *counter = nullptr);

} // namespace sonavo
