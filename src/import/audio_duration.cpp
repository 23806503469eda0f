#include "import/audio_duration.h"

#include "import/audio_container.h"
#include "model/audio_formats.h"

#include <array>
#include <cstring>

namespace sonavo {
namespace {

/// Seconds, about thirty years. A file that claims to be longer has no known duration.
constexpr double MAX_DURATION = 1e9;

/// Where a file's content begins: behind its ID3v2 tags, whose pictures can take megabytes.
/// See "ID3 tag version 2.4.0 - Main Structure" (M. Nilsson, 2000).
qint64 contentOffset(const RegularFile &file)
{
    constexpr std::uint8_t FOOTER_FLAG = 0x10;
    constexpr qint64 HEADER_SIZE = 10;
    constexpr int MAX_TAGS = 8;
    qint64 offset = 0;
    std::array<std::uint8_t, HEADER_SIZE> header{};
    for (int tag = 0; tag < MAX_TAGS; ++tag) {
        if (file.read(header, offset) != HEADER_SIZE || std::memcmp(header.data(), "ID3", 3) != 0)
            break;
        qint64 size = 0;
        for (const std::size_t digit : {6U, 7U, 8U, 9U})
            size = size << 7 | (header[digit] & 0x7F);
        offset += HEADER_SIZE + size + ((header[5] & FOOTER_FLAG) != 0 ? HEADER_SIZE : 0);
    }
    return offset;
}

bool startsWithMpegFrame(const RegularFile &file)
{
    std::array<std::uint8_t, 2> start{};
    return file.read(start, contentOffset(file)) == static_cast<ssize_t>(start.size()) && start[0] == 0xFF &&
           (start[1] & 0xE0) == 0xE0;
}

/// Trusts the file's extension. Detecting the format takes several times as long as reading a stored length,
/// and only a header that no other format has stores one.
std::optional<double> storedDurationInNamedFormat(const RegularFile &file, const std::stop_token &stop)
{
    const std::optional<AudioFormat> format = audioFormatOf(file.path());
    // The MP3 demuxer searches 64 KB byte by byte when there is no frame at the start.
    if (!format || (format == AudioFormat::Mp3 && !startsWithMpegFrame(file)))
        return std::nullopt;
    const AudioContainer container(file, *format, stop);
    return container.hasAudio() ? container.storedDuration() : std::nullopt;
}

std::optional<double> durationInDetectedFormat(const RegularFile &file, const std::stop_token &stop)
{
    const std::optional<AudioFormat> format = detectAudioFormat(file, contentOffset(file));
    if (!format)
        return std::nullopt;
    AudioContainer container(file, *format, stop);
    if (!container.hasAudio())
        return std::nullopt;
    const std::optional<double> stored = container.storedDuration();
    return stored ? stored : container.countedDuration();
}

} // namespace

std::optional<double> readAudioDuration(const RegularFile &file, const std::stop_token &stop)
{
    if (!file.isOpen())
        return std::nullopt;
    std::optional<double> duration = storedDurationInNamedFormat(file, stop);
    if (!duration)
        duration = durationInDetectedFormat(file, stop);
    if (!duration || stop.stop_requested())
        return std::nullopt;
    return *duration < MAX_DURATION ? *duration : 0.0;
}

} // namespace sonavo
