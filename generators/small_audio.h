#pragma once

#include <QByteArray>
#include <QString>

namespace sonavo {

/// An audio file of a few kilobytes with silence in it.
struct SmallAudio
{
    QByteArray content;
    /// Playing time in seconds, as the file states it or its frames add up to.
    double duration = 0.0;
};

/// Makes a small file of about the given playing time. MP3 files hold only their first two seconds, like a
/// download that was cut short; AAC files, which state no playing time, are at most 38 seconds long. Throws
/// std::invalid_argument for an unknown type.
/// @param type extension in upper case: "MP3", "M4A", "WAV", "AAC" or "FLAC"
/// @param seconds at least 1
[[nodiscard]] SmallAudio smallAudio(const QString &type, double seconds);

} // namespace sonavo
