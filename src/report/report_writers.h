#pragma once

#include "model/duplicate_group.h"
#include "model/song.h"

#include <QIODevice>
#include <QList>
#include <QSet>
#include <QUuid>

#include <optional>

namespace sonavo {

/// Of groups that were found by looking further, the duplicates that the four passes do not find (see
/// foundOnlyFurther()); nothing for groups of the four passes.
using OnlyFurther = std::optional<QSet<QUuid>>;

/// Writes groups as text for a terminal: a block of aligned lines for each group and a last line with totals.
/// Control characters in names are escaped. Duplicates that were found only further have a mark of their own.
/// @param device open for writing
/// @return whether everything could be written
[[nodiscard]] bool writeTextReport(QIODevice &device, const QList<Song> &songs,
                                   const QList<DuplicateGroup> &groups, const OnlyFurther &onlyFurther = {});

/// Writes songs and groups as one JSON object. Groups refer to songs by their index in the list of songs.
/// Durations are in seconds, sizes in bytes.
/// @param device open for writing
/// @return whether everything could be written
[[nodiscard]] bool writeJsonReport(QIODevice &device, const QList<Song> &songs,
                                   const QList<DuplicateGroup> &groups, const OnlyFurther &onlyFurther = {});

/// Writes the songs of groups as comma-separated values in UTF-8 (RFC 4180), after a line of titles one line
/// for each song: number of its group, from 1; "original" or "duplicate"; path; bytes; seconds; kbit/s, empty
/// where the length is not known. No value is a formula to a spreadsheet.
/// @param device open for writing
/// @return whether everything could be written
[[nodiscard]] bool writeCsvReport(QIODevice &device, const QList<DuplicateGroup> &groups);

} // namespace sonavo
