#include "fuzz/fuzzer.h"
#include "import/audio_duration.h"
#include "import/song_reading.h"

#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <cmath>
#include <optional>
#include <stop_token>

namespace sonavo {
namespace {

void checkReading(const QString &path)
{
    ReadCounter reads = 0;
    const RegularFile file(path, &reads);
    const std::optional<Sound> sound = readSound(file);
    require(!sound || (std::isfinite(sound->duration) && sound->duration >= 0.0 && sound->duration < 1e9),
            "a duration is a number of seconds that a song can have");

    require(reads <= 100 + static_cast<quint64>(file.size()) / 256,
            "no part of a file is read over and over");

    const std::optional<Song> song = loadSong(path);
    require(song.has_value() == sound.has_value() && (!song || song->duration == sound->duration),
            "a second reading has the same result");

    std::stop_source stop;
    stop.request_stop();
    require(!loadSong(path, stop.get_token()), "a stopped reading has no result");
}

} // namespace
} // namespace sonavo

/// The first byte tells whether the others are the file, or repeat up to the size from which on not all
/// frames of an MP3 are looked at.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace sonavo;
    constexpr qsizetype LARGE_SIZE = 160 * 1024;
    static const QTemporaryDir folder;
    if (size < 2)
        return 0;
    QFile file(folder.filePath(QStringLiteral("Artist - Title.mp3")));
    QByteArray content(reinterpret_cast<const char *>(data + 1), static_cast<qsizetype>(size - 1));
    if (data[0] == 1)
        content = content.repeated(1 + LARGE_SIZE / content.size());
    require(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(content) == content.size(),
            "the file can be written");
    checkReading(file.fileName());
    return 0;
}
