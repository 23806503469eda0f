#pragma once

#include "model/song.h"

#include <QList>

namespace sonavo {

enum class LibraryFiles
{
    /// Each song is a file of its own.
    Separate,
    /// Playing times are rounded to about whole seconds; songs of the same type and playing time are hard
    /// links to one file.
    Linked,
};

/// Writes a library to disk as small audio files (see smallAudio()) at the paths of its songs, where nothing
/// may be yet. Throws std::runtime_error when a file cannot be written.
/// @return the songs with the size in bytes and the playing time in seconds of their files
QList<Song> writeLibrary(QList<Song> songs, LibraryFiles files);

} // namespace sonavo
