#include "import/audio_duration.h"

#include "import/audio_detection.h"
#include "import/audio_tags.h"
#include "import/file_window.h"
#include "import/flac_duration.h"
#include "import/mp3_duration.h"
#include "import/mp4_duration.h"
#include "import/wave_duration.h"

#include <cstring>
#include <string_view>

namespace sonavo {
namespace {

/// Seconds, about thirty years. A file that claims to be longer has no known duration.
constexpr double MAX_DURATION = 1e9;

/// Detecting a format takes longer than to read it, so its own first bytes are looked at before.
std::optional<AudioFormat> obviousFormat(FileWindow &window, qint64 offset)
{
    // Frames that no random bytes look like.
    constexpr int MPEG_FRAMES = 7;
    constexpr int ADTS_FRAMES = 3;
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
    if (startsWithFrames(window, Framing::Adts, offset, ADTS_FRAMES))
        return AudioFormat::Aac;
    if (startsWithFrames(window, Framing::Mpeg, offset, MPEG_FRAMES))
        return AudioFormat::Mp3;
    return std::nullopt;
}

std::optional<double> secondsOf(const std::optional<FrameTime> &time)
{
    return time ? std::optional(time->seconds()) : std::nullopt;
}

std::optional<double> durationInFormat(FileWindow &window, AudioFormat format, qint64 offset)
{
    switch (format) {
    case AudioFormat::Mp3:
        return secondsOf(mp3FrameTime(window, offset));
    case AudioFormat::M4a:
        return mp4Duration(window, offset);
    case AudioFormat::Wav:
        return waveDuration(window, offset);
    case AudioFormat::Aac:
        return secondsOf(countFrames(window, Framing::Adts, offset, window.fileSize()));
    case AudioFormat::Flac:
        return flacDuration(window, offset);
    }
    return std::nullopt;
}

std::optional<double> durationOf(FileWindow &window)
{
    const qint64 offset = skipId3Tags(window);
    if (const std::optional<double> stored = storedMp3Duration(window, offset))
        return stored;
    std::optional<AudioFormat> format = obviousFormat(window, offset);
    if (!format)
        format = detectAudioFormat(window, offset);
    return format ? durationInFormat(window, *format, offset) : std::nullopt;
}

} // namespace

std::optional<double> readAudioDuration(const RegularFile &file, const std::stop_token &stop)
{
    if (!file.isOpen())
        return std::nullopt;
    FileWindow window(file, stop);
    const std::optional<double> duration = durationOf(window);
    if (!duration || stop.stop_requested())
        return std::nullopt;
    return *duration < MAX_DURATION ? *duration : 0.0;
}

} // namespace sonavo
