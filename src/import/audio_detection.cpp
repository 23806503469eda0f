#include "import/audio_detection.h"

#include "import/file_window.h"

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/log.h>
}

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>
#include <vector>

namespace sonavo {
namespace {

using DemuxerName = std::pair<const char *, AudioFormat>;

constexpr std::array<DemuxerName, 5> DEMUXERS{{
    {"mp3", AudioFormat::Mp3},
    {"mov,mp4,m4a,3gp,3g2,mj2", AudioFormat::M4a},
    {"wav", AudioFormat::Wav},
    {"aac", AudioFormat::Aac},
    {"flac", AudioFormat::Flac},
}};

/// Version 7 logs while it detects.
void silenceLibrary()
{
    static const bool isSilent = (av_log_set_level(AV_LOG_QUIET), true);
    static_cast<void>(isSilent);
}

} // namespace

std::optional<AudioFormat> detectAudioFormat(FileWindow &window, qint64 offset)
{
    // For a file name, and for a few frames that random bytes can look like, the library's score is 1.
    constexpr int MIN_SCORE = 2;
    silenceLibrary();
    const std::span<const std::uint8_t> content = window.at(offset, FileWindow::MAX_SIZE);
    if (content.empty())
        return std::nullopt;
    thread_local std::vector<std::uint8_t> padded(FileWindow::MAX_SIZE + AVPROBE_PADDING_SIZE);
    const auto end = std::copy(content.begin(), content.end(), padded.begin());
    std::fill_n(end, AVPROBE_PADDING_SIZE, std::uint8_t{0});

    const AVProbeData probe{"", padded.data(), static_cast<int>(content.size()), nullptr};
    int score = 0;
    const AVInputFormat *const demuxer = av_probe_input_format3(&probe, 1, &score);
    if (!demuxer || score < MIN_SCORE)
        return std::nullopt;
    for (const auto &[name, format] : DEMUXERS) {
        if (std::strcmp(name, demuxer->name) == 0)
            return format;
    }
    return std::nullopt;
}

} // namespace sonavo
