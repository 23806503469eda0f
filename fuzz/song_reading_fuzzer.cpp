#include "fuzz/fuzzer.h"
#include "import/audio_duration.h"
#include "import/song_reading.h"

#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <cmath>
#include <optional>
#include <sanitizer/allocator_interface.h>
#include <span>
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

/// One file in memory, with a name for each of the formats.
class SongFile
{
public:
    static constexpr std::array<const char *, 5> EXTENSIONS{"mp3", "m4a", "wav", "aac", "flac"};

    SongFile()
    {
        require(m_descriptor >= 0 && m_folder.isValid(), "the file can be created");
        const QString target = QStringLiteral("/proc/%1/fd/%2").arg(::getpid()).arg(m_descriptor);
        for (std::size_t format = 0; format < EXTENSIONS.size(); ++format)
            require(QFile::link(target, path(format)), "the file can be named");
    }
    ~SongFile() { ::close(m_descriptor); }
    Q_DISABLE_COPY_MOVE(SongFile)

    void write(std::span<const std::uint8_t> content) const
    {
        const bool isWritten =
            ::ftruncate(m_descriptor, 0) == 0 &&
            ::pwrite(m_descriptor, content.data(), content.size(), 0) == static_cast<ssize_t>(content.size());
        require(isWritten, "the file can be written");
    }

    [[nodiscard]] QString path(std::size_t format) const
    {
        return m_folder.filePath(QStringLiteral("Artist - Title.") + QLatin1String(EXTENSIONS[format]));
    }

private:
    const QTemporaryDir m_folder;
    const int m_descriptor = ::memfd_create("song", MFD_CLOEXEC);
};

void checkReading(const QString &path)
{
    previousSize = 0;
    isReading = true;
    const std::optional<double> duration = readAudioDuration(path);
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
    static const SongFile file;
    [[maybe_unused]] static const int hooks =
        __sanitizer_install_malloc_and_free_hooks(&countAllocation, &ignoreFree);
    if (size == 0)
        return 0;
    file.write(std::span(data, size).subspan(1));
    checkReading(file.path(data[0] % SongFile::EXTENSIONS.size()));
    return 0;
}
