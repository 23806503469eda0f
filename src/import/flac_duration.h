#pragma once

#include <QtGlobal>

#include <optional>

namespace sonavo {

class FileWindow;

/// The playing time of a FLAC file (RFC 9639): the length that its first metadata block states, or else the
/// sum of its frames. Other metadata, such as pictures, is passed over. A frame counts if its checksum holds,
/// its sampling rate is that of the first one and its number follows the last one's; the song ends where a
/// megabyte holds none.
/// @param begin where "fLaC" stands
/// @return seconds, 0.0 where the length is unknown; nothing where the metadata is damaged or a read failed
[[nodiscard]] std::optional<double> flacDuration(FileWindow &window, qint64 begin);

} // namespace sonavo
