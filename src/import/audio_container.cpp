#include "import/audio_container.h"

#include "import/regular_file.h"
#include "model/saturating.h"

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/log.h>
#include <libavutil/mem.h>
}

#include <algorithm>
#include <array>
#include <span>
#include <utility>
#include <vector>

namespace sonavo {
namespace {

constexpr int IO_BUFFER_SIZE = 32 * 1024;
/// Bytes of content by which a format is detected: some 35 MPEG frames of the largest size.
constexpr std::size_t PROBE_SIZE = 64 * 1024;
/// libavformat's probes score 1 for a file name, and for a few frames that random bytes can look like.
constexpr int MIN_PROBE_SCORE = 2;

/// The demuxers of the five formats, the only ones that are ever used, and the library's global settings.
class Demuxers
{
public:
    static const Demuxers &instance()
    {
        static const Demuxers demuxers;
        return demuxers;
    }

    const AVInputFormat *demuxerOf(AudioFormat format) const
    {
        return m_demuxers[static_cast<std::size_t>(format)];
    }

    std::optional<AudioFormat> formatOf(const AVInputFormat *demuxer) const
    {
        const auto *const found = std::find(m_demuxers.begin(), m_demuxers.end(), demuxer);
        if (!demuxer || found == m_demuxers.end())
            return std::nullopt;
        return static_cast<AudioFormat>(found - m_demuxers.begin());
    }

private:
    Demuxers()
    {
        // A few bytes can claim an index of gigabytes; that of a day of music takes some 90 MB.
        constexpr std::size_t MAX_ALLOCATION = 256 << 20;
        av_log_set_level(AV_LOG_QUIET);
        av_max_alloc(MAX_ALLOCATION);
    }

    // In the order of AudioFormat.
    std::array<const AVInputFormat *, 5> m_demuxers{
        av_find_input_format("mp3"), av_find_input_format("mov"),  av_find_input_format("wav"),
        av_find_input_format("aac"), av_find_input_format("flac"),
    };
};

/// The calling thread's I/O buffer. Each thread keeps one: a new buffer for every file would leave gaps in
/// the heap between the songs, which add up to several times the songs' own memory.
class IoBuffer
{
public:
    static unsigned char *take()
    {
        unsigned char *buffer = std::exchange(spare().m_buffer, nullptr);
        return buffer ? buffer : static_cast<unsigned char *>(av_malloc(IO_BUFFER_SIZE));
    }

    /// @param size of the buffer, which the library can have replaced
    static void giveBack(unsigned char *buffer, int size)
    {
        if (size == IO_BUFFER_SIZE)
            std::swap(spare().m_buffer, buffer);
        av_free(buffer);
    }

private:
    IoBuffer() = default;
    ~IoBuffer() { av_free(m_buffer); }
    Q_DISABLE_COPY_MOVE(IoBuffer)

    static IoBuffer &spare()
    {
        thread_local IoBuffer buffer;
        return buffer;
    }

    unsigned char *m_buffer = nullptr;
};

struct PacketDeleter
{
    void operator()(AVPacket *packet) const { av_packet_free(&packet); }
};

int refuseToOpen(AVFormatContext *, AVIOContext **, const char *, int, AVDictionary **)
{
    return AVERROR(EACCES);
}

AVStream *firstAudioStream(std::span<AVStream *> streams)
{
    const auto audio = std::find_if(streams.begin(), streams.end(), [](const AVStream *stream) {
        return stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO;
    });
    return audio != streams.end() ? *audio : nullptr;
}

} // namespace

std::optional<AudioFormat> detectAudioFormat(const RegularFile &file, qint64 contentOffset)
{
    // Kept by the thread for the same reason as its IoBuffer.
    thread_local std::vector<std::uint8_t> content(PROBE_SIZE + AVPROBE_PADDING_SIZE);
    const ssize_t size = file.read(std::span(content).first(PROBE_SIZE), contentOffset);
    if (size <= 0)
        return std::nullopt;
    std::fill_n(content.begin() + size, AVPROBE_PADDING_SIZE, std::uint8_t{0});

    // Sets the log level, before the probes log.
    const Demuxers &demuxers = Demuxers::instance();
    const AVProbeData probe{"", content.data(), static_cast<int>(size), nullptr};
    int score = 0;
    const AVInputFormat *demuxer = av_probe_input_format3(&probe, 1, &score);
    return score >= MIN_PROBE_SCORE ? demuxers.formatOf(demuxer) : std::nullopt;
}

AudioContainer::AudioContainer(const RegularFile &file, AudioFormat format, std::stop_token stop)
    : m_file(file)
    , m_format(format)
    , m_stop(std::move(stop))
{
    const AVInputFormat *demuxer = Demuxers::instance().demuxerOf(format);
    m_io.reset(avio_alloc_context(IoBuffer::take(), IO_BUFFER_SIZE, 0, this, &readPacket, nullptr, &seek));
    AVFormatContext *context = avformat_alloc_context();
    context->pb = m_io.get();
    context->flags |= AVFMT_FLAG_CUSTOM_IO;
    context->io_open = &refuseToOpen;

    AVDictionary *options = nullptr;
    av_dict_set(&options, "format_whitelist", "mp3,mov,wav,aac,flac", 0);
    av_dict_set(&options, "protocol_whitelist", "file", 0);
    // Frees the context when it fails.
    if (avformat_open_input(&context, "", demuxer, &options) == 0)
        m_context.reset(context);
    av_dict_free(&options);
    if (m_context)
        m_audio = firstAudioStream(std::span(m_context->streams, m_context->nb_streams));
}

AudioContainer::~AudioContainer() = default;

std::optional<double> AudioContainer::storedDuration() const
{
    if (m_audio->duration == AV_NOPTS_VALUE || m_audio->duration <= 0)
        return std::nullopt;
    std::int64_t ticks = m_audio->duration;
    const bool hasStart = m_audio->start_time != AV_NOPTS_VALUE && m_audio->start_time > 0;
    // Silence that an edit list adds at the start counts as playing time; an MP3 encoder's delay does not.
    if (hasStart && m_format == AudioFormat::M4a)
        ticks = saturatingSum(ticks, m_audio->start_time);
    else if (hasStart && m_format == AudioFormat::Mp3)
        ticks = std::max<std::int64_t>(ticks - m_audio->start_time, 0);
    return seconds(ticks);
}

std::optional<double> AudioContainer::countedDuration()
{
    // The demuxer of raw AAC leaves the sample rate to the decoder.
    if (m_format == AudioFormat::Aac && avformat_find_stream_info(m_context.get(), nullptr) < 0)
        return std::nullopt;

    const std::unique_ptr<AVPacket, PacketDeleter> packet(av_packet_alloc());
    std::int64_t ticks = 0;
    bool isEmpty = true;
    while (av_read_frame(m_context.get(), packet.get()) >= 0) {
        if (packet->stream_index == m_audio->index) {
            ticks = saturatingSum(ticks, std::max<std::int64_t>(packet->duration, 0));
            isEmpty = false;
        }
        av_packet_unref(packet.get());
    }
    const bool needsFrames = m_format == AudioFormat::Mp3 || m_format == AudioFormat::Aac;
    if (m_hasReadError || (isEmpty && needsFrames))
        return std::nullopt;
    return seconds(ticks);
}

void AudioContainer::IoDeleter::operator()(AVIOContext *io) const
{
    IoBuffer::giveBack(io->buffer, io->buffer_size);
    avio_context_free(&io);
}

void AudioContainer::ContextDeleter::operator()(AVFormatContext *context) const
{
    avformat_close_input(&context);
}

int AudioContainer::readPacket(void *self, std::uint8_t *target, int size)
{
    auto &container = *static_cast<AudioContainer *>(self);
    const ssize_t count =
        container.m_stop.stop_requested()
            ? -1
            : container.m_file.read({target, static_cast<std::size_t>(size)}, container.m_offset);
    if (count < 0) {
        container.m_hasReadError = true;
        return AVERROR(EIO);
    }
    if (count == 0)
        return AVERROR_EOF;
    container.m_offset += count;
    return static_cast<int>(count);
}

std::int64_t AudioContainer::seek(void *self, std::int64_t offset, int whence)
{
    auto &container = *static_cast<AudioContainer *>(self);
    switch (whence & ~AVSEEK_FORCE) {
    case AVSEEK_SIZE:
        return container.m_file.size();
    case SEEK_SET:
        break;
    case SEEK_CUR:
        offset += container.m_offset;
        break;
    case SEEK_END:
        offset += container.m_file.size();
        break;
    default:
        return AVERROR(EINVAL);
    }
    if (offset < 0)
        return AVERROR(EINVAL);
    return container.m_offset = offset;
}

double AudioContainer::seconds(std::int64_t ticks) const
{
    // One rounding only: whole seconds, by which songs are compared, come out whole.
    const AVRational unit = m_audio->time_base;
    return static_cast<double>(ticks) * unit.num / unit.den;
}

} // namespace sonavo
