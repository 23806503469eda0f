#include "import/audio_duration.h"

#include "import/audio_detection.h"
#include "import/audio_tags.h"
#include "import/file_window.h"
#include "import/flac_duration.h"
#include "import/mp3_duration.h"
#include "import/mp4_duration.h"
#include "import/wave_duration.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace sonavo {
namespace {

/// Seconds, about thirty years. A file that claims to be longer has no known duration.
constexpr double MAX_DURATION = 1e9;

/// MP3 or AAC that starts with more frames in a row than random bytes ever look like.
std::optional<AudioFormat> formatOfFrames(FileWindow &window, qint64 offset)
{
    constexpr int MPEG_FRAMES = 4;
    constexpr int ADTS_FRAMES = 3;
    if (startsWithFrames(window, Framing::Adts, offset, ADTS_FRAMES))
        return AudioFormat::Aac;
    if (startsWithFrames(window, Framing::Mpeg, offset, MPEG_FRAMES))
        return AudioFormat::Mp3;
    return std::nullopt;
}

std::optional<AudioFormat> formatOfContainer(FileWindow &window, qint64 offset)
{
    constexpr std::size_t SIZE = 12;
    const std::span<const std::uint8_t> start = window.at(offset, SIZE);
    const auto hasText = [&](std::size_t position, std::string_view text) {
        return start.size() >= SIZE && std::memcmp(&start[position], text.data(), text.size()) == 0;
    };
    if (hasText(0, "fLaC"))
        return AudioFormat::Flac;
    if (hasText(4, "ftyp"))
        return AudioFormat::M4a;
    if ((hasText(0, "RIFF") || hasText(0, "RF64")) && hasText(8, "WAVE"))
        return AudioFormat::Wav;
    return std::nullopt;
}

/// Passes over zeros, which some programs leave behind a tag that they made shorter.
qint64 skipZeros(FileWindow &window, qint64 offset)
{
    const std::span<const std::uint8_t> bytes = window.at(offset, FileWindow::MAX_SIZE);
    return offset + (std::find_if(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte != 0; }) -
                     bytes.begin());
}

std::optional<Sound> lossy(const std::optional<FrameTime> &time)
{
    return time ? std::optional(Sound{time->seconds(), false}) : std::nullopt;
}

std::optional<Sound> readFlac(FileWindow &window, qint64 offset)
{
    const std::optional<double> duration = flacDuration(window, offset);
    return duration ? std::optional(Sound{*duration, true}) : std::nullopt;
}

std::optional<Sound> readInFormat(FileWindow &window, AudioFormat format, qint64 offset)
{
    switch (format) {
    case AudioFormat::Mp3:
        return lossy(mp3FrameTime(window, offset));
    case AudioFormat::M4a:
        return readMp4(window, offset);
    case AudioFormat::Wav:
        return readWave(window, offset);
    case AudioFormat::Aac:
        return lossy(countFrames(window, Framing::Adts, offset, window.fileSize()));
    case AudioFormat::Flac:
        return readFlac(window, offset);
    }
    return std::nullopt;
}

std::optional<Sound> soundIn(FileWindow &window)
{
    const qint64 offset = skipId3Tags(window);
    if (const std::optional<double> stored = storedMp3Duration(window, offset))
        return Sound{*stored, false};
    // Detection takes several times as long as the rest. It is for what does not start as it should.
    std::optional<AudioFormat> format = formatOfContainer(window, offset);
    if (!format)
        format = formatOfFrames(window, offset);
    if (!format)
        format = formatOfFrames(window, skipZeros(window, offset));
    if (!format)
        format = detectAudioFormat(window, offset);
    return format ? readInFormat(window, *format, offset) : std::nullopt;
}

} // namespace

std::optional<Sound> readSound(const RegularFile &file, const std::stop_token &stop)
{
    if (!file.isOpen())
        return std::nullopt;
    FileWindow window(file, stop);
    std::optional<Sound> sound = soundIn(window);
    if (!sound || stop.stop_requested())
        return std::nullopt;
    if (!(sound->duration < MAX_DURATION))
        sound->duration = 0.0;
    return sound;
}

} // namespace sonavo
