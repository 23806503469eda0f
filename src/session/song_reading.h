#pragma once

#include "model/song.h"

#include <QString>

#include <optional>
#include <stop_token>

namespace sonavo {

/// Reads one audio file into a song: playing time and size from the file, everything else from its path.
/// Artist and title are the parts of the file name before and after its first hyphen; tags inside the file
/// are not read.
///
/// The size is that of the directory entry: a link counts with its own few bytes, so that it never looks like
/// the best copy of the file that it points to. Waits for the disk; any thread may call it.
/// @param path absolute
/// @return nothing when the file cannot be read as audio or `stop` was requested
[[nodiscard]] std::optional<Song> loadSong(const QString &path, const std::stop_token &stop = {});

} // namespace sonavo
