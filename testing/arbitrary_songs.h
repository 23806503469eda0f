#pragma once

#include "model/song.h"

#include <QList>
#include <QString>

#include <rapidcheck.h>

#include <ostream>

namespace sonavo {

/// Songs with distinct ids: copies of a few recordings, altered as real copies are (spelling, case, copy
/// marks, file name, duration, size), so that all four steps of an analysis find something to do. Some share
/// a path.
[[nodiscard]] rc::Gen<QList<Song>> library(int mostSongs);

/// A song with a fresh id, path and file name.
[[nodiscard]] Song songOf(const QString &artist, const QString &title, double duration = 180.0);

/// For the message of a failed property.
void showValue(const QList<Song> &songs, std::ostream &out);

} // namespace sonavo
