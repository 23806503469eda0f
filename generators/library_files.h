#pragma once

#include "model/song.h"

#include <QList>

namespace sonavo {

enum class LibraryFiles
{
    /// Every song is a file of its own.
    Separate,
    /// Songs of the same type and whole second are links to one file.
    Linked,
};

/// Writes a library to disk as small audio files (see smallAudio()) at the paths of its songs, which must be
/// new. Throws std::runtime_error when the disk refuses.
/// @return the songs with the size and the playing time of their files
QList<Song> writeLibrary(QList<Song> songs, LibraryFiles files);

} // namespace sonavo
