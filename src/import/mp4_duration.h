#pragma once

#include "import/sound.h"

#include <QtGlobal>

#include <optional>

namespace sonavo {

class FileWindow;

/// The playing time of the first audio track of an MPEG-4 or QuickTime file (ISO/IEC 14496-12), from the
/// boxes that tell it: "mdhd" and "stts", of which the shorter counts, "elst" and, where the movie comes in
/// fragments, their "tfdt" and the durations of the samples in their "trun"; where an index of many fragments
/// ("mfra") fits a handful of them, only of those. Other boxes, such as the sound and pictures, are passed
/// over.
/// Whether it is lossless comes from "stsd", where that stands before "stts", as usual.
///
/// Edit lists: silence counts that they add, and of the sound what they play.
/// @param begin where the first box starts
/// @return nothing where there is no audio track or a read failed
[[nodiscard]] std::optional<Sound> readMp4(FileWindow &window, qint64 begin);

} // namespace sonavo
