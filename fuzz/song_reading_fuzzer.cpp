#include "fuzz/fuzzer.h"
#include "import/audio_duration.h"
#include "import/song_reading.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <sanitizer/allocator_interface.h>
#include <span>
#include <stop_token>

namespace sonavo {
namespace {

/// libavformat is the distribution's and tells the fuzzer nothing about its branches. How much memory it asks
/// for, and after which request before, shows which way it has gone through a file: each such pair counts as
/// a branch. The fuzzer sets the counters to zero before each input.
[[gnu::section("__libfuzzer_extra_counters")]] std::array<std::uint8_t, 1 << 14> requestCounters;

/// Of the thread that reads.
thread_local bool isReading = false;
thread_local std::size_t previousRequest = 0;

void countRequest(const volatile void *, std::size_t size)
{
    if (!isReading)
        return;
    // Or each length of a packet would look like a way of its own.
    constexpr std::size_t LEAST_ROUNDED_SIZE = 256;
    const std::size_t request = size < LEAST_ROUNDED_SIZE ? size : std::bit_floor(size) + 1;
    constexpr std::size_t SPREAD = 2654435761;
    std::uint8_t &counter =
        requestCounters[(previousRequest * 31 + request) * SPREAD / 64 % requestCounters.size()];
    if (counter < UINT8_MAX)
        ++counter;
    previousRequest = request;
}

void ignoreRelease(const volatile void *)
{}

/// One file in memory under a name for each of the formats.
class SongFile
{
public:
    static constexpr std::array<const char *, 5> EXTENSIONS{"mp3", "m4a", "wav", "aac", "flac"};

    SongFile()
        : m_descriptor(::memfd_create("song", MFD_CLOEXEC))
    {
        require(m_descriptor >= 0 && m_folder.isValid(), "there is a place for the file");
        const QString content = QStringLiteral("/proc/%1/fd/%2").arg(::getpid()).arg(m_descriptor);
        for (std::size_t format = 0; format < EXTENSIONS.size(); ++format)
            require(QFile::link(content, path(format)), "the file has a name");
    }
    ~SongFile() { ::close(m_descriptor); }
    Q_DISABLE_COPY_MOVE(SongFile)

    void write(std::span<const std::uint8_t> content)
    {
        require(::ftruncate(m_descriptor, 0) == 0 && ::pwrite(m_descriptor, content.data(), content.size(),
                                                              0) == static_cast<ssize_t>(content.size()),
                "the file can be written");
    }

    [[nodiscard]] QString path(std::size_t format) const
    {
        return m_folder.filePath(QStringLiteral("Artist - Title.") + QLatin1String(EXTENSIONS[format]));
    }

private:
    QTemporaryDir m_folder;
    int m_descriptor;
};

std::optional<double> durationOf(const QString &path)
{
    isReading = true;
    previousRequest = 0;
    const std::optional<double> duration = readAudioDuration(path);
    isReading = false;
    return duration;
}

void checkReading(const QString &path)
{
    const std::optional<double> duration = durationOf(path);
    require(!duration || (std::isfinite(*duration) && *duration >= 0.0 && *duration < 1e9),
            "a duration is a number of seconds that a song can have");

    const std::optional<Song> song = loadSong(path);
    require(song.has_value() == duration.has_value() && (!song || song->duration == *duration),
            "a second reading gives the same");

    static const std::stop_token stopped = [] {
        std::stop_source source;
        source.request_stop();
        return source.get_token();
    }();
    require(!readAudioFile(path, stopped), "a reading that is stopped gives nothing");
}

} // namespace
} // namespace sonavo

/// The first byte chooses the extension, the others are the file.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace sonavo;
    static SongFile file;
    [[maybe_unused]] static const int hooks =
        __sanitizer_install_malloc_and_free_hooks(&countRequest, &ignoreRelease);
    if (size == 0)
        return 0;
    file.write(std::span(data, size).subspan(1));
    checkReading(file.path(data[0] % SongFile::EXTENSIONS.size()));
    return 0;
}
