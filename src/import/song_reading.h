#pragma once

#include "import/audio_duration.h"
#include "model/song.h"

#include <QString>

#include <optional>
#include <stop_token>

namespace sonavo {

/// What only the file itself tells about a song.
struct FileFacts
{
    /// Seconds.
    double duration = 0.0;
    /// Bytes of the directory entry: a link counts with its own few, so that it never looks like the best
    /// copy of the file that it points to.
    qint64 size = 0;
};

/// Reads an audio file. Waits for the disk; any thread may call it.
/// @param progress counts what the disk answers, if given
/// @return nothing when the file cannot be read as audio or `stop` was requested
[[nodiscard]] std::optional<FileFacts> readFacts(const QString &path, const std::stop_token &stop = {},
                                                 ReadingProgress *progress = nullptr);

/// Makes songs of paths and what was read at them. Artist and title are the parts of the file name before and
/// after its first hyphen; tags inside a file do not count. Neighbours share the memory of equal texts.
class SongMaker
{
public:
    /// @param path absolute
    /// @return a song with an id of its own
    [[nodiscard]] Song songOf(const QString &path, const FileFacts &facts);

private:
    QString m_folder;
    QString m_folderName;
    QString m_fileType;
};

/// Reads one audio file into a song.
[[nodiscard]] std::optional<Song> loadSong(const QString &path, const std::stop_token &stop = {});

} // namespace sonavo
