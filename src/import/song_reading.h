#pragma once

#include "import/known_durations.h"
#include "import/regular_file.h"
#include "model/file_note.h"
#include "model/song.h"

#include <QString>

#include <optional>
#include <stop_token>

namespace sonavo {

/// What only the file itself tells about a song.
struct AudioFileInfo
{
    /// Playing time in seconds, 0.0 where it is unknown.
    double duration = 0.0;
    /// Bytes of the directory entry: a link counts with its own few, so that it never looks like the best
    /// copy of the file that it points to.
    qint64 size = 0;
    /// What the file was when it was opened for that.
    FileNote note = {};
    /// See Sound.
    bool isLossless = false;
};

/// Reads an audio file's playing time and size. Waits for the disk; any thread may call it.
/// @param stop ends the reading before its next read
/// @param counter incremented after every read, if given
/// @param known asked before the file is read, and told what it is, if given
/// @return nothing when the file cannot be read as audio or stop was requested
[[nodiscard]] std::optional<AudioFileInfo> readAudioFile(const QString &path,
                                                         const std::stop_token &stop = {},
                                                         ReadCounter *counter = nullptr,
                                                         KnownDurations *known = nullptr);

/// Makes songs of audio files. Artist and title are the parts of the file name before and after its first
/// hyphen; tags inside a file do not count. Songs that follow each other share the memory of equal artists,
/// folder names and types; name and title share that of their path.
class SongBuilder
{
public:
    /// @param path absolute
    /// @return a song with an id of its own
    [[nodiscard]] Song build(const QString &path, const AudioFileInfo &info);

private:
    QString m_artist;
    QString m_folder;
    QString m_folderName;
    QString m_extension;
    QString m_fileType;
};

/// Reads one audio file into a song: readAudioFile() and SongBuilder in one.
[[nodiscard]] std::optional<Song> loadSong(const QString &path, const std::stop_token &stop = {});

} // namespace sonavo
