#pragma once

#include <QByteArray>
#include <QString>

namespace sonavo {

/// A file of a few kilobytes that plays silence.
struct SmallAudio
{
    QByteArray content;
    /// Seconds that the file says it plays.
    double duration = 0.0;
};

/// A small file of about the given playing time. MP3 files hold their first two seconds only, like a download
/// that was cut short; AAC files, which do not tell how long they are, are 38 seconds long at most.
/// @param type extension in upper case, of one of the five formats
/// @param seconds at least 1
[[nodiscard]] SmallAudio smallAudio(const QString &type, double seconds);

} // namespace sonavo
