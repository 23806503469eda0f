#pragma once

#include <QtGlobal>

#include <optional>

namespace sonavo {

class FileWindow;

/// The size of a tag that starts at an offset, from its first bytes alone: a picture in it is not read.
///
/// ID3v2 ("ID3 tag version 2.4.0 - Main Structure", M. Nilsson, 2000), APE ("APE Tags Header", Hydrogenaudio)
/// with a header, and ID3v1.
/// @return bytes, at least 1; nothing where there is no tag
[[nodiscard]] std::optional<qint64> tagSizeAt(FileWindow &window, qint64 offset);

/// Skips ID3v2 tags, at most 8 of them.
/// @return where the first other content begins
[[nodiscard]] qint64 skipId3Tags(FileWindow &window);

} // namespace sonavo
