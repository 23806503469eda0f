#include "import/audio_duration.h"

#include "model/audio_formats.h"
#include "model/saturating.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/log.h>
#include <libavutil/mem.h>
}

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace sonavo {
namespace {

/// Seconds: about thirty years. What claims to be longer has no known duration.
constexpr double LONGEST_DURATION = 1e9;
constexpr int BUFFER_SIZE = 32 * 1024;
/// Bytes of content, tags aside, by which a file is recognised: some 35 MPEG frames of the largest size.
constexpr std::size_t PROBE_SIZE = 64 * 1024;
/// The library's probes give 1 for a name or a few frames that look right, as random bytes can: MP3 and AAC
/// files of less than a tenth of a second without a header are not told from these.
constexpr int LEAST_PROBE_SCORE = 2;

/// The demuxers of the five formats: the only ones that are ever used.
class Demuxers
{
public:
    static const Demuxers &instance()
    {
        static const Demuxers demuxers;
        return demuxers;
    }

    const AVInputFormat *of(AudioFormat format) const { return m_formats[static_cast<std::size_t>(format)]; }

    bool contains(const AVInputFormat *format) const
    {
        return format && std::find(m_formats.begin(), m_formats.end(), format) != m_formats.end();
    }

private:
    Demuxers()
    {
        // A few bytes can claim an index of gigabytes; that of a day of music takes some 90 MB.
        constexpr std::size_t LARGEST_ALLOCATION = 256 << 20;
        av_log_set_level(AV_LOG_QUIET);
        av_max_alloc(LARGEST_ALLOCATION);
    }

    // In the order of AudioFormat.
    std::array<const AVInputFormat *, 5> m_formats{
        av_find_input_format("mp3"), av_find_input_format("mov"),  av_find_input_format("wav"),
        av_find_input_format("aac"), av_find_input_format("flac"),
    };
};

/// A regular file, open for reading. Opening never waits for a writer and never touches a device.
class RegularFile
{
public:
    RegularFile(const QString &path, ReadingProgress *progress)
        : m_progress(progress)
    {
        const QByteArray name = QFile::encodeName(path);
        struct stat status = {};
        if (::stat(name.constData(), &status) != 0 || !S_ISREG(status.st_mode))
            return;
        m_descriptor = ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
        // Another file can have taken the name meanwhile.
        if (m_descriptor >= 0 && (::fstat(m_descriptor, &status) != 0 || !S_ISREG(status.st_mode)))
            close();
        m_size = status.st_size;
    }
    ~RegularFile() { close(); }
    Q_DISABLE_COPY_MOVE(RegularFile)

    bool isOpen() const { return m_descriptor >= 0; }
    qint64 size() const { return m_size; }

    /// @return bytes read, 0 at the end, negative on an error
    ssize_t read(std::span<std::uint8_t> target, qint64 offset) const
    {
        ssize_t count = -1;
        do {
            count = ::pread(m_descriptor, target.data(), target.size(), offset);
        } while (count < 0 && errno == EINTR);
        if (m_progress)
            ++*m_progress;
        return count;
    }

private:
    void close()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
        m_descriptor = -1;
    }

    ReadingProgress *const m_progress;
    int m_descriptor = -1;
    qint64 m_size = 0;
};

/// The thread's buffer for reading containers. Each thread keeps its own: taken from the heap anew for every
/// file, such buffers leave holes between the songs that stay, and these add up to several times the songs'
/// own memory.
class ReadBuffer
{
public:
    static unsigned char *take()
    {
        unsigned char *buffer = std::exchange(spare().m_buffer, nullptr);
        return buffer ? buffer : static_cast<unsigned char *>(av_malloc(BUFFER_SIZE));
    }

    /// @param size the library can have replaced the buffer by one of another size
    static void giveBack(unsigned char *buffer, int size)
    {
        if (size == BUFFER_SIZE)
            std::swap(spare().m_buffer, buffer);
        av_free(buffer);
    }

private:
    ReadBuffer() = default;
    ~ReadBuffer() { av_free(m_buffer); }
    Q_DISABLE_COPY_MOVE(ReadBuffer)

    static ReadBuffer &spare()
    {
        thread_local ReadBuffer buffer;
        return buffer;
    }

    unsigned char *m_buffer = nullptr;
};

/// A file opened as a container of one format, positioned at the start of its packets.
class Container
{
public:
    Container(const RegularFile &file, const AVInputFormat *format, std::stop_token stop)
        : m_file(file)
        , m_stop(std::move(stop))
        , m_format(format)
    {
        m_io.reset(avio_alloc_context(ReadBuffer::take(), BUFFER_SIZE, 0, this, &readPacket, nullptr, &seek));
        AVFormatContext *context = avformat_alloc_context();
        context->pb = m_io.get();
        context->flags |= AVFMT_FLAG_CUSTOM_IO;
        context->io_open = &refuseToOpen;

        AVDictionary *options = nullptr;
        av_dict_set(&options, "format_whitelist", "mp3,mov,wav,aac,flac", 0);
        av_dict_set(&options, "protocol_whitelist", "file", 0);
        // Frees the context when it fails.
        if (avformat_open_input(&context, "", format, &options) == 0)
            m_context.reset(context);
        av_dict_free(&options);
        if (m_context)
            m_audio = firstAudioStream(std::span(m_context->streams, m_context->nb_streams));
    }
    Q_DISABLE_COPY_MOVE(Container)

    bool hasAudio() const { return m_audio != nullptr; }

    /// Seconds, where the container says how long it is and that is not zero.
    std::optional<double> storedDuration() const
    {
        if (m_audio->duration == AV_NOPTS_VALUE || m_audio->duration <= 0)
            return std::nullopt;
        std::int64_t ticks = m_audio->duration;
        const bool hasStart = m_audio->start_time != AV_NOPTS_VALUE && m_audio->start_time > 0;
        // The silence that an edit list puts before the sound is played; the delay of an MP3 encoder is not.
        if (hasStart && isOf(AudioFormat::M4a))
            ticks = saturatingSum(ticks, m_audio->start_time);
        else if (hasStart && isOf(AudioFormat::Mp3))
            ticks = std::max<std::int64_t>(ticks - m_audio->start_time, 0);
        return seconds(ticks);
    }

    /// Seconds by adding up the lengths of all packets.
    std::optional<double> countedDuration()
    {
        // The demuxer of raw AAC leaves the sample rate to the decoder.
        if (isOf(AudioFormat::Aac) && avformat_find_stream_info(m_context.get(), nullptr) < 0)
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
        // Without a header only its frames make a file an audio file.
        const bool hasNoHeader = isOf(AudioFormat::Mp3) || isOf(AudioFormat::Aac);
        if (m_hasReadError || (isEmpty && hasNoHeader))
            return std::nullopt;
        return seconds(ticks);
    }

private:
    struct IoDeleter
    {
        void operator()(AVIOContext *io) const
        {
            ReadBuffer::giveBack(io->buffer, io->buffer_size);
            avio_context_free(&io);
        }
    };
    struct ContextDeleter
    {
        void operator()(AVFormatContext *context) const { avformat_close_input(&context); }
    };
    struct PacketDeleter
    {
        void operator()(AVPacket *packet) const { av_packet_free(&packet); }
    };

    static AVStream *firstAudioStream(std::span<AVStream *> streams)
    {
        const auto audio = std::find_if(streams.begin(), streams.end(), [](const AVStream *stream) {
            return stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO;
        });
        return audio != streams.end() ? *audio : nullptr;
    }

    static int readPacket(void *self, std::uint8_t *target, int size)
    {
        auto &container = *static_cast<Container *>(self);
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

    static std::int64_t seek(void *self, std::int64_t offset, int whence)
    {
        auto &container = *static_cast<Container *>(self);
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

    static int refuseToOpen(AVFormatContext *, AVIOContext **, const char *, int, AVDictionary **)
    {
        return AVERROR(EACCES);
    }

    bool isOf(AudioFormat format) const { return m_format == Demuxers::instance().of(format); }

    double seconds(std::int64_t ticks) const
    {
        // One rounding only: whole seconds, by which songs are compared, come out whole.
        const AVRational unit = m_audio->time_base;
        return static_cast<double>(ticks) * unit.num / unit.den;
    }

    const RegularFile &m_file;
    const std::stop_token m_stop;
    const AVInputFormat *const m_format;
    std::int64_t m_offset = 0;
    bool m_hasReadError = false;
    std::unique_ptr<AVIOContext, IoDeleter> m_io;
    std::unique_ptr<AVFormatContext, ContextDeleter> m_context;
    AVStream *m_audio = nullptr;
};

/// Where a file's content begins: behind the ID3v2 tags in front of it, whose pictures can take megabytes.
/// See "ID3 tag version 2.4.0 - Main Structure" (M. Nilsson, 2000).
qint64 contentOffset(const RegularFile &file)
{
    constexpr std::uint8_t FOOTER_FLAG = 0x10;
    constexpr qint64 HEADER_SIZE = 10;
    constexpr int MOST_TAGS = 8;
    qint64 offset = 0;
    std::array<std::uint8_t, HEADER_SIZE> header{};
    for (int tag = 0; tag < MOST_TAGS; ++tag) {
        if (file.read(header, offset) != HEADER_SIZE || std::memcmp(header.data(), "ID3", 3) != 0)
            break;
        qint64 size = 0;
        for (const std::size_t digit : {6U, 7U, 8U, 9U})
            size = size << 7 | (header[digit] & 0x7F);
        offset += HEADER_SIZE + size + ((header[5] & FOOTER_FLAG) != 0 ? HEADER_SIZE : 0);
    }
    return offset;
}

/// The format that a file's content shows, if it is one of the five.
const AVInputFormat *recognisedFormat(const RegularFile &file)
{
    // Kept by the thread for the same reason as its ReadBuffer.
    thread_local std::vector<std::uint8_t> content(PROBE_SIZE + AVPROBE_PADDING_SIZE);
    const ssize_t size = file.read(std::span(content).first(PROBE_SIZE), contentOffset(file));
    if (size <= 0)
        return nullptr;
    std::fill_n(content.begin() + size, AVPROBE_PADDING_SIZE, std::uint8_t{0});
    const AVProbeData probe{"", content.data(), static_cast<int>(size), nullptr};
    // Made before the probe, which libavformat 7 would comment on standard error otherwise.
    const Demuxers &demuxers = Demuxers::instance();
    int score = 0;
    const AVInputFormat *format = av_probe_input_format3(&probe, 1, &score);
    return score >= LEAST_PROBE_SCORE && demuxers.contains(format) ? format : nullptr;
}

/// Whether an MPEG audio frame begins where the content does.
bool beginsWithMpegFrame(const RegularFile &file)
{
    std::array<std::uint8_t, 2> start{};
    return file.read(start, contentOffset(file)) == static_cast<ssize_t>(start.size()) && start[0] == 0xFF &&
           (start[1] & 0xE0) == 0xE0;
}

/// The named format is tried without looking at the content first, which takes several times as long as
/// reading a stored length: a length is only stored in a header that no other format has.
std::optional<double> storedDurationInNamedFormat(const RegularFile &file, const QString &path,
                                                  const std::stop_token &stop)
{
    const std::optional<AudioFormat> format = audioFormatOf(path);
    // The MP3 demuxer goes through 64 KB byte by byte when there is no frame at the start.
    if (!format || (format == AudioFormat::Mp3 && !beginsWithMpegFrame(file)))
        return std::nullopt;
    const Container container(file, Demuxers::instance().of(*format), stop);
    return container.hasAudio() ? container.storedDuration() : std::nullopt;
}

std::optional<double> durationInRecognisedFormat(const RegularFile &file, const std::stop_token &stop)
{
    const AVInputFormat *format = recognisedFormat(file);
    if (!format)
        return std::nullopt;
    Container container(file, format, stop);
    if (!container.hasAudio())
        return std::nullopt;
    const std::optional<double> stored = container.storedDuration();
    return stored ? stored : container.countedDuration();
}

} // namespace

std::optional<double> readAudioDuration(const QString &path, const std::stop_token &stop,
                                        ReadingProgress *progress)
{
    const RegularFile file(path, progress);
    if (!file.isOpen())
        return std::nullopt;
    std::optional<double> duration = storedDurationInNamedFormat(file, path, stop);
    if (!duration)
        duration = durationInRecognisedFormat(file, stop);
    if (!duration || stop.stop_requested())
        return std::nullopt;
    // Hostile headers can claim more seconds than a song can have.
    return *duration < LONGEST_DURATION ? *duration : 0.0;
}

} // namespace sonavo
