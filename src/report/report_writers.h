#pragma once

#include "model/duplicate_group.h"
#include "model/song.h"

#include <QIODevice>
#include <QList>

namespace sonavo {

/// Writes groups as text for a terminal: a block of aligned lines for each group and a last line with totals.
/// Control characters in names are escaped.
/// @param device open for writing
/// @return whether everything could be written
[[nodiscard]] bool writeTextReport(QIODevice &device, const QList<Song> &songs,
                                   const QList<DuplicateGroup> &groups);

/// Writes songs and groups as one JSON object. Groups refer to songs by their index in the list of songs.
/// Durations are in seconds, sizes in bytes.
/// @param device open for writing
/// @return whether everything could be written
[[nodiscard]] bool writeJsonReport(QIODevice &device, const QList<Song> &songs,
                                   const QList<DuplicateGroup> &groups);

} // namespace sonavo
