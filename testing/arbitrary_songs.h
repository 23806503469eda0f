#pragma once

#include "model/song.h"

#include <QList>
#include <QString>

#include <rapidcheck.h>

#include <optional>
#include <ostream>
#include <string>

namespace sonavo {

/// Any Unicode text without lone surrogates, rich in brackets and in letters that lower-casing brings into
/// ASCII.
[[nodiscard]] rc::Gen<QString> anyText();

/// Songs with distinct ids: copies of a few recordings, altered as real copies are (spelling, case, copy
/// marks, file name, duration, size), so that all four steps of an analysis find something to do. Some share
/// a path.
[[nodiscard]] rc::Gen<QList<Song>> library(int mostSongs);

/// A song with a fresh id, a path of its own, and unless one is given a file name of its own.
[[nodiscard]] Song songOf(const QString &artist, const QString &title, double duration = 180.0,
                          const std::optional<QString> &name = {}, qint64 size = 4'000'000);

/// The places of `chosen` in `songs`, such as "3 0 1".
[[nodiscard]] std::string placesOf(const QList<Song> &chosen, const QList<Song> &songs);

/// For the messages of failed properties.
void showValue(const QList<Song> &songs, std::ostream &out);

} // namespace sonavo
