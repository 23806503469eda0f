#pragma once

#include "import/frame_count.h"

namespace sonavo {

/// The playing time that the first frame of an MP3 states in place of sound: in a Xing or "Info" header
/// ("Mp3 Info Tag rev 1 specifications", G. Bouvigne) or a VBRI header (Fraunhofer IIS). The encoder's delay
/// does not count where it is stated.
/// @param begin where the first frame starts
/// @return seconds; nothing where none are stated, or the file is longer than the header says by more than a
/// sixteenth, which songs that were joined are
[[nodiscard]] std::optional<double> storedMp3Duration(FileWindow &window, qint64 begin);

/// The playing time of the frames of an MP3, without reading all of them where their bit rate is constant:
/// then frame n starts n times the mean frame size, rounded by the same rule, behind the first one (ISO/IEC
/// 11172-3, 2.4.2.3 on padding). Frames in six parts of the file are looked at. If all lie where they
/// should, and the last one ends at the end of the file or at an ID3v1 tag, so do those in between. Otherwise
/// countFrames() counts.
/// @param begin where the first frame is searched for
/// @return nothing without a frame or when a read failed
[[nodiscard]] std::optional<FrameTime> mp3FrameTime(FileWindow &window, qint64 begin);

} // namespace sonavo
