#pragma once

#include "model/color.h"
#include "model/duplicate_group.h"
#include "model/song.h"

#include <QList>
#include <QString>

/// The analysis written down a second time, as plainly as its rules can be said and with no thought for
/// speed: nothing is prepared, remembered or shared between comparisons. The tests hold the program's own
/// analysis against it.
namespace sonavo::direct {

[[nodiscard]] QString normalizeString(const QString &text);
/// For normalised texts; counts code points.
[[nodiscard]] int levenshteinDistance(const QString &a, const QString &b);
[[nodiscard]] bool songsMatch(const Song &seed, const Song &candidate);
[[nodiscard]] bool artistsCompatible(const Song &duplicate, const Song &original);
/// Buckets are visited in the order in which their keys first appear.
[[nodiscard]] QList<DuplicateGroup> analyzeDuplicates(const QList<Song> &songs);

[[nodiscard]] QString normalizeAllScripts(const QString &text);
[[nodiscard]] QList<DuplicateGroup> findFurther(const QList<Song> &songs);

} // namespace sonavo::direct
