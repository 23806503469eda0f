#include "fuzz/fuzzer.h"
#include "import/audio_duration.h"
#include "import/song_reading.h"

#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <array>
#include <cmath>
#include <optional>
#include <stop_token>

namespace sonavo {
namespace {

void checkReading(const QString &path)
{
    const std::optional<double> duration = readAudioDuration(path);
    require(!duration || (std::isfinite(*duration) && *duration >= 0.0 && *duration < 1e9),
            "a duration is a number of seconds that a song can have");

    const std::optional<Song> song = loadSong(path);
    require(song.has_value() == duration.has_value() && (!song || song->duration == *duration),
            "a second reading has the same result");

    std::stop_source stop;
    stop.request_stop();
    require(!loadSong(path, stop.get_token()), "a stopped reading has no result");
}

} // namespace
} // namespace sonavo

/// The first byte chooses the extension, the others are the file.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace sonavo;
    static const QTemporaryDir folder;
    static constexpr std::array EXTENSIONS{"mp3", "m4a", "wav", "aac", "flac"};
    if (size == 0)
        return 0;
    const char *extension = EXTENSIONS[data[0] % EXTENSIONS.size()];
    QFile file(folder.filePath(QStringLiteral("Artist - Title.") + QLatin1String(extension)));
    const auto length = static_cast<qint64>(size - 1);
    require(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                file.write(reinterpret_cast<const char *>(data + 1), length) == length,
            "the file can be written");
    checkReading(file.fileName());
    return 0;
}
