#include "fuzz/fuzzer.h"
#include "import/audio_duration.h"
#include "import/song_reading.h"

#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <array>
#include <bit>
#include <cmath>
#include <optional>
#include <sanitizer/allocator_interface.h>
#include <stop_token>

namespace sonavo {
namespace {

/// libavformat is the distribution's, without coverage instrumentation. The sizes that it allocates show
/// which way it went through a file: each pair of consecutive sizes counts as an edge. libFuzzer resets the
/// counters before each input.
[[gnu::section("__libfuzzer_extra_counters")]] std::array<std::uint8_t, 1 << 14> allocationEdges;

thread_local bool isReading = false;
thread_local std::size_t previousSize = 0;

void countAllocation(const volatile void *, std::size_t size)
{
    if (!isReading)
        return;
    // Rounded, or each packet length would be an edge of its own.
    constexpr std::size_t MIN_ROUNDED_SIZE = 256;
    const std::size_t rounded = size < MIN_ROUNDED_SIZE ? size : std::bit_floor(size) + 1;
    constexpr std::size_t HASH_FACTOR = 2654435761;
    std::uint8_t &edge =
        allocationEdges[(previousSize * 31 + rounded) * HASH_FACTOR / 64 % allocationEdges.size()];
    if (edge < UINT8_MAX)
        ++edge;
    previousSize = rounded;
}

void ignoreFree(const volatile void *)
{}

void checkReading(const QString &path)
{
    previousSize = 0;
    isReading = true;
    const std::optional<double> duration = readAudioDuration(RegularFile(path));
    isReading = false;
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
    [[maybe_unused]] static const int hooks =
        __sanitizer_install_malloc_and_free_hooks(&countAllocation, &ignoreFree);
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
