#include "import/wave_duration.h"

#include "import/file_window.h"
#include "import/frame_count.h"
#include "model/saturating.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>

namespace sonavo {
namespace {

using Bytes = std::span<const std::uint8_t>;

template <typename Integer>
Integer number(Bytes bytes, std::size_t offset)
{
    return offset + sizeof(Integer) <= bytes.size() ? qFromLittleEndian<Integer>(&bytes[offset]) : Integer{0};
}

/// As "fmt " numbers them.
enum class Codec
{
    Pcm = 1,
    MsAdpcm = 2,
    FloatPcm = 3,
    ALaw = 6,
    MuLaw = 7,
    ImaAdpcm = 0x11,
    Mpeg = 0x50,
    Mp3 = 0x55,
    Extensible = 0xFFFE
};

/// What the "fmt " chunk states. Zeros where it is cut off.
struct WaveFormat
{
    Codec codec = Codec::Pcm;
    int channels = 0;
    qint64 sampleRate = 0;
    /// Bytes of a second, on average.
    qint64 byteRate = 0;
    /// Bytes of a sample of all channels, or of a compressed block.
    int blockSize = 0;
    int bitsPerSample = 0;
    /// Samples of a compressed block, where its codec states them.
    int blockSamples = 0;
};

WaveFormat parseFormat(Bytes chunk)
{
    constexpr std::size_t EXTENSION_OFFSET = 18;
    constexpr std::size_t SUBFORMAT_OFFSET = 24;
    WaveFormat format;
    format.codec = static_cast<Codec>(number<std::uint16_t>(chunk, 0));
    format.channels = number<std::uint16_t>(chunk, 2);
    format.sampleRate = number<std::uint32_t>(chunk, 4);
    format.byteRate = number<std::uint32_t>(chunk, 8);
    format.blockSize = number<std::uint16_t>(chunk, 12);
    format.bitsPerSample = number<std::uint16_t>(chunk, 14);
    if (format.codec == Codec::Extensible)
        format.codec = static_cast<Codec>(number<std::uint16_t>(chunk, SUBFORMAT_OFFSET));
    else if (format.codec == Codec::MsAdpcm || format.codec == Codec::ImaAdpcm)
        format.blockSamples = number<std::uint16_t>(chunk, EXTENSION_OFFSET);
    return format;
}

/// What the chunks of a file tell.
class WaveFile
{
public:
    WaveFile(FileWindow &window, qint64 begin)
        : m_window(window)
    {
        constexpr std::size_t HEADER_SIZE = 8;
        constexpr qint64 FIRST_CHUNK = 12;
        constexpr int MAX_CHUNKS = 4096;
        qint64 offset = begin + FIRST_CHUNK;
        for (int chunk = 0; chunk < MAX_CHUNKS && !isComplete(); ++chunk) {
            const Bytes header = m_window.at(offset, HEADER_SIZE);
            if (header.size() < HEADER_SIZE)
                return;
            const qint64 content = offset + qint64{HEADER_SIZE};
            const qint64 size = readChunk(header, content);
            // Chunks start at even offsets.
            offset = content + size + (size & 1);
        }
    }

    [[nodiscard]] std::optional<double> duration() const
    {
        if (!m_format || m_dataOffset == 0 || m_format->channels == 0 || m_window.hasFailed())
            return std::nullopt;
        const qint64 samples = hasFixedSize() ? uncompressedSamples() : compressedSamples();
        if (samples == 0 && (m_format->codec == Codec::Mp3 || m_format->codec == Codec::Mpeg))
            return mpegDuration();
        if (samples == 0 || m_format->sampleRate == 0)
            return averageDuration();
        return static_cast<double>(samples) / static_cast<double>(m_format->sampleRate);
    }

    [[nodiscard]] bool isLossless() const
    {
        return m_format && (m_format->codec == Codec::Pcm || m_format->codec == Codec::FloatPcm);
    }

private:
    [[nodiscard]] bool isComplete() const
    {
        return m_format && m_dataOffset > 0 && (hasFixedSize() || m_samples > 0);
    }

    /// @return size of the chunk's content in bytes
    qint64 readChunk(Bytes header, qint64 content)
    {
        constexpr std::size_t MAX_FORMAT_SIZE = 40;
        constexpr std::size_t LONG_SIZES_SIZE = 24;
        constexpr std::uint32_t UNKNOWN = 0xFFFF'FFFF;
        const auto isChunk = [type = std::array{header[0], header[1], header[2], header[3]}](const char *id) {
            return std::memcmp(type.data(), id, type.size()) == 0;
        };
        const auto size = number<std::uint32_t>(header, 4);
        if (isChunk("fmt ")) {
            const Bytes format = m_window.at(content, MAX_FORMAT_SIZE);
            m_format = parseFormat(format.first(std::min<std::size_t>(size, format.size())));
        } else if (isChunk("fact") && m_samples == 0) {
            m_samples = number<std::uint32_t>(m_window.at(content, 4), 0);
        } else if (isChunk("ds64")) {
            const Bytes sizes = m_window.at(content, LONG_SIZES_SIZE);
            m_longSize = number<qint64>(sizes, 8);
            m_samples = std::max<qint64>(number<qint64>(sizes, 16), 0);
        } else if (isChunk("data") && m_dataOffset == 0) {
            m_dataOffset = content;
            m_dataSize = size == UNKNOWN ? m_longSize : size;
            // As programs leave it that write to a pipe, or crash.
            if (m_dataSize <= 0 || m_dataSize > m_window.fileSize() - content)
                return m_window.fileSize();
            return m_dataSize;
        }
        return size;
    }

    [[nodiscard]] bool hasFixedSize() const
    {
        const Codec codec = m_format->codec;
        return codec == Codec::Pcm || codec == Codec::FloatPcm || codec == Codec::ALaw ||
               codec == Codec::MuLaw;
    }

    [[nodiscard]] bool isCutOff() const
    {
        return m_dataSize <= 0 || m_dataSize > m_window.fileSize() - m_dataOffset;
    }
    /// Bytes of sound that the file holds.
    [[nodiscard]] qint64 dataSize() const
    {
        return isCutOff() ? m_window.fileSize() - m_dataOffset : m_dataSize;
    }

    [[nodiscard]] qint64 uncompressedSamples() const
    {
        constexpr int MAX_SAMPLE_SIZE = 8;
        const int channels = m_format->channels;
        int sampleSize = channels * ((m_format->bitsPerSample + 7) / 8);
        // 24 bits may be stored in 32.
        if (m_format->blockSize % channels == 0 && m_format->blockSize <= channels * MAX_SAMPLE_SIZE)
            sampleSize = std::max(sampleSize, m_format->blockSize);
        if (isCutOff() && statedSamples() > 0)
            return statedSamples();
        return sampleSize > 0 ? dataSize() / sampleSize : 0;
    }

    [[nodiscard]] qint64 compressedSamples() const
    {
        if (statedSamples() > 0)
            return statedSamples();
        return m_format->blockSize > 0 ? dataSize() / m_format->blockSize * m_format->blockSamples : 0;
    }

    /// The number of samples that a chunk states, 0 where it states none, or fewer than the data is for.
    [[nodiscard]] qint64 statedSamples() const
    {
        const qint64 bits = m_dataSize > 0 ? saturatingProduct(m_dataSize / m_format->channels, 8) : 0;
        return m_samples > 0 && bits / m_samples <= m_format->bitsPerSample + 1 ? m_samples : 0;
    }

    [[nodiscard]] double averageDuration() const
    {
        return m_format->byteRate == 0
                   ? 0.0
                   : static_cast<double>(dataSize()) / static_cast<double>(m_format->byteRate);
    }

    [[nodiscard]] std::optional<double> mpegDuration() const
    {
        const std::optional<FrameTime> time =
            countFrames(m_window, Framing::Mpeg, m_dataOffset, m_dataOffset + dataSize());
        if (m_window.hasFailed())
            return std::nullopt;
        return time ? time->seconds() : 0.0;
    }

    FileWindow &m_window;
    std::optional<WaveFormat> m_format;
    /// 0 before it is found.
    qint64 m_dataOffset = 0;
    /// As stated in bytes, 0 where it is not.
    qint64 m_dataSize = 0;
    qint64 m_longSize = 0;
    /// For each channel, 0 where they are not stated.
    qint64 m_samples = 0;
};

} // namespace

std::optional<Sound> readWave(FileWindow &window, qint64 begin)
{
    const WaveFile file(window, begin);
    const std::optional<double> duration = file.duration();
    return duration ? std::optional(Sound{*duration, file.isLossless()}) : std::nullopt;
}

} // namespace sonavo
