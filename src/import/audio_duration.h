#pragma once

#include <QString>

#include <atomic>
#include <optional>
#include <stop_token>

namespace sonavo {

/// Counts the answers of a disk while something is read from it; when it stands still, the disk hangs.
using ReadingProgress = std::atomic<quint64>;

/// Reads the playing time of an audio file: MP3, MPEG-4 audio, WAV, FLAC or raw AAC (ADTS), whichever its
/// content is. The length that the container stores is taken where there is one, otherwise the file's packets
/// are counted; nothing is estimated from a bit rate. In MPEG-4 an edit list is honoured. In MP3 the delay
/// that the encoder put in front does not count where the file tells it; up to one frame behind the sound (26
/// ms at 44.1 kHz) does. A file that was cut short keeps the length that it stores.
///
/// Only regular files are opened (through links too), only these five formats are understood, and no other
/// file or address that a file refers to is touched. Waits for the disk; any thread may call it.
/// @param path the extension tells what to try first
/// @param stop gives up early
/// @param progress counts what the disk answers, if given
/// @return seconds, zero or more, 0.0 where the length is unknown; nothing when the file cannot be read as
/// audio or `stop` was requested
[[nodiscard]] std::optional<double> readAudioDuration(const QString &path, const std::stop_token &stop = {},
                                                      ReadingProgress *progress = nullptr);

} // namespace sonavo
