#pragma once

#include "import/sound.h"

#include <QtGlobal>

#include <optional>

namespace sonavo {

class FileWindow;

/// The playing time of a WAVE file, and whether its samples are not compressed, from its chunks' headers
/// ("Multimedia Programming Interface and Data Specifications 1.0", IBM and Microsoft, 1991; files above 4
/// GB: EBU Tech 3306).
///
/// Samples of a fixed size are computed from the size of the data that the file states and holds. Data that
/// is cut off, or whose size is not stated, reaches to the end of the file. Compressed sound has a chunk that
/// counts the samples. Without it, blocks that tell their samples and MPEG frames are counted, and for other
/// sound the average bytes of a second tell the length.
/// @param begin where "RIFF" or "RF64" stands
/// @return nothing where there is no sound or a read failed
[[nodiscard]] std::optional<Sound> readWave(FileWindow &window, qint64 begin);

} // namespace sonavo
