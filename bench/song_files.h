#pragma once

#include "model/song.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace sonavo {

/// Files of up to 4 MB.
enum class SongKind
{
    Mp3,
    /// Of constant bit rate, without a header that tells the length.
    OldMp3,
    Flac,
    M4a,
    Wav,
    Aac,
};

/// Encodes files of one kind with ffmpeg, all of different lengths. Throws std::runtime_error when that
/// fails.
/// @param folder for the files; must be there
[[nodiscard]] QStringList encodeSongs(SongKind kind, const QString &folder, int count);

/// Links encoded songs to the paths of a library, with the right extensions. Throws std::runtime_error when
/// that fails.
/// @param folder for the encoded songs, on the same disk
/// @param kinds take turns, so that one that is given twice is twice as frequent
/// @return the paths, as many as there are songs in the library
QStringList linkSongs(const QList<Song> &library, const QString &folder, const QList<SongKind> &kinds);

/// 60 % MP3, 20 % FLAC, 12 % M4A, 5 % WAV and 3 % AAC, mixed.
[[nodiscard]] QList<SongKind> allKinds();

} // namespace sonavo
