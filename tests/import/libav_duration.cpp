#include "libav_duration.h"

#include <QFile>

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/log.h>
}

#include <memory>

namespace sonavo {
namespace {

std::optional<double> storedDuration(const AVStream &audio, const char *format)
{
    if (audio.duration <= 0)
        return std::nullopt;
    // Silence that an edit list adds at the start is a part of the song; an MP3 encoder's delay is none.
    const std::int64_t start = audio.start_time > 0 ? audio.start_time : 0;
    const std::int64_t sign = qstrncmp(format, "mov", 3) == 0 ? 1 : qstrcmp(format, "mp3") == 0 ? -1 : 0;
    return static_cast<double>(audio.duration + sign * start) * audio.time_base.num / audio.time_base.den;
}

double countedDuration(AVFormatContext &context, const AVStream &audio)
{
    std::int64_t ticks = 0;
    AVPacket *packet = av_packet_alloc();
    for (; av_read_frame(&context, packet) >= 0; av_packet_unref(packet))
        ticks += packet->stream_index == audio.index ? packet->duration : 0;
    av_packet_free(&packet);
    return static_cast<double>(ticks) * audio.time_base.num / audio.time_base.den;
}

} // namespace

std::optional<double> libavDuration(const QString &path)
{
    av_log_set_level(AV_LOG_QUIET);
    AVFormatContext *opened = nullptr;
    if (avformat_open_input(&opened, QFile::encodeName(path).constData(), nullptr, nullptr) < 0)
        return std::nullopt;
    const auto close = [](AVFormatContext *context) { avformat_close_input(&context); };
    const std::unique_ptr<AVFormatContext, decltype(close)> context(opened, close);
    const AVStream *audio = nullptr;
    for (unsigned i = context->nb_streams; i-- > 0;) {
        if (context->streams[i]->codecpar->codec_type == AVMEDIA_TYPE_AUDIO)
            audio = context->streams[i];
    }
    if (!audio)
        return std::nullopt;
    if (const std::optional<double> stored = storedDuration(*audio, context->iformat->name))
        return stored;
    // The demuxer of raw AAC leaves the sample rate to the decoder.
    if (avformat_find_stream_info(context.get(), nullptr) < 0)
        return std::nullopt;
    return countedDuration(*context, *audio);
}

} // namespace sonavo
