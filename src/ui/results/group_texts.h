#pragma once

#include "model/duplicate_group.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace sonavo {

// What the list of duplicates says about groups and songs. All texts are safe to show in one line, except
// that of the tooltip, which has several.

/// "Artist \u2013 Title" of a group's original, or the title alone.
[[nodiscard]] QString subtitleOf(const DuplicateGroup &group);

/// What cleaning a group up frees, in bytes.
[[nodiscard]] qint64 freedBytes(const DuplicateGroup &group);

/// How many characters at the start of their files' paths tell the members of a group not apart: those of the
/// folders that contain them all, except the last one where a file lies in it. Zero where all of them lie in
/// one folder.
[[nodiscard]] qsizetype commonFolderLength(const DuplicateGroup &group);

/// The folder of a song from there on; its name alone where the length is zero.
[[nodiscard]] QString folderText(const Song &song, qsizetype commonLength);

/// "320 kbit/s, lossless": the mean rate as far as size and length are known, and that a lossless song is
/// one.
[[nodiscard]] QString qualityText(const Song &song, bool isLossless);

/// The parts of a description, one after the other.
[[nodiscard]] QString joinedParts(const QStringList &parts);

/// Path, exact size, length with quality, and date of a song's file, in one line each.
/// @param quality see qualityText()
/// @param modified left out when it is not valid
[[nodiscard]] QString detailsText(const Song &song, const QString &quality, const QDateTime &modified);

} // namespace sonavo
