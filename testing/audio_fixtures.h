#pragma once

#include <QByteArray>
#include <QStringList>

/// Real audio files for tests, made by the ffmpeg program. Whatever goes wrong throws std::runtime_error,
/// which fails the test.
namespace sonavo {

/// An audio file of noise and silence by turns, so that no bit rate tells its length.
/// @param type the file extension
/// @param encoding further options of ffmpeg, separated by spaces, such as "-c:a alac"
[[nodiscard]] QByteArray audioContent(const QString &type, double seconds, const QString &encoding = {});

/// Writes an audio file in the format that the path's extension names.
/// @param sound the source for ffmpeg's aevalsrc: formulas and options
/// @param encoding further options of ffmpeg, separated by spaces
void writeSound(const QString &path, const QString &sound, double seconds, const QString &encoding);

/// @return the path
QString writeFile(const QString &path, const QByteArray &content);

/// Fills a folder with `count` hard links to one song of the sample library: "0.mp3", "1.mp3" and so on.
/// @return their paths in that order
QStringList fillWithSongs(const QString &folder, int count);

} // namespace sonavo
