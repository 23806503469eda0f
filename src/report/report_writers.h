#pragma once

#include "model/duplicate_group.h"
#include "model/song.h"

#include <QIODevice>
#include <QList>

namespace sonavo {

/// Writes groups as a person reads them: a block of lines for each group and a closing line with totals.
/// Control characters in names are escaped.
/// @return whether everything could be written
[[nodiscard]] bool writeTextReport(QIODevice &device, const QList<Song> &songs,
                                   const QList<DuplicateGroup> &groups);

/// Writes songs and groups as one JSON object. Groups name their songs by position in the list of songs.
/// @return whether everything could be written
[[nodiscard]] bool writeJsonReport(QIODevice &device, const QList<Song> &songs,
                                   const QList<DuplicateGroup> &groups);

} // namespace sonavo
