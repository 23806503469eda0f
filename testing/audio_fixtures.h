#pragma once

#include <QByteArray>
#include <QString>

/// Real audio files for tests, made by the ffmpeg program. Whatever goes wrong throws std::runtime_error,
/// which fails the test.
namespace sonavo {

/// An audio file: noise and silence by turns, so that no bit rate tells its length. Made once and remembered.
/// @param type the file extension
/// @param encoding further options of ffmpeg, separated by blanks, such as "-c:a alac"
[[nodiscard]] QByteArray audioContent(const QString &type, double seconds, const QString &encoding = {});

/// The same as written into a pipe, where a length cannot be filled in at the end.
/// @param format the name of ffmpeg's muxer
[[nodiscard]] QByteArray pipedAudioContent(const QString &format, double seconds);

/// Writes an audio file in the format that the path's extension names.
/// @param sound what ffmpeg's aevalsrc makes a sound of: formulas and options
/// @param encoding further options of ffmpeg, separated by blanks
void writeSound(const QString &path, const QString &sound, double seconds, const QString &encoding);

/// The length of an MP3 or raw AAC file by the number of frames that ffprobe counts in it.
[[nodiscard]] double frameSeconds(const QString &path);

void writeFile(const QString &path, const QByteArray &content);
[[nodiscard]] QByteArray contentOf(const QString &path);

/// Writes an audio file in the format that the path's extension names.
void writeAudio(const QString &path, double seconds = 0.2, const QString &encoding = {});

/// Makes a folder of as many links to one song of the sample library: "0.mp3", "1.mp3" and so on.
void fillWithSongs(const QString &folder, int count);

} // namespace sonavo
