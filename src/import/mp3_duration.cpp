#include "import/mp3_duration.h"

#include "import/file_window.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace sonavo {
namespace {

/// What the header in an MP3's first frame states, 0 where it does not.
struct Mp3Header
{
    qint64 frames = 0;
    /// Bytes of all frames together.
    qint64 size = 0;
    /// Samples that the encoder has put in front of the song, and the decoder will.
    qint64 delay = 0;
};

/// The start of a frame, with zeros behind the end of the file.
class FrameStart
{
public:
    FrameStart(FileWindow &window, qint64 offset)
    {
        const std::span<const std::uint8_t> bytes = window.at(offset, SIZE);
        std::copy_n(bytes.begin(), std::min(bytes.size(), SIZE), m_bytes.begin());
    }

    [[nodiscard]] std::optional<AudioFrame> frame() const { return parseFrame(Framing::Mpeg, m_bytes); }
    [[nodiscard]] bool hasText(std::size_t offset, std::string_view text) const
    {
        return std::equal(text.begin(), text.end(), m_bytes.begin() + static_cast<std::ptrdiff_t>(offset));
    }
    template <typename Integer>
    [[nodiscard]] Integer number(std::size_t offset) const
    {
        return qFromBigEndian<Integer>(&m_bytes[offset]);
    }

private:
    static constexpr std::size_t SIZE = 192;

    std::array<std::uint8_t, SIZE> m_bytes{};
};

Mp3Header parseXing(const FrameStart &start, std::size_t offset)
{
    constexpr std::uint32_t HAS_FRAMES = 1;
    constexpr std::uint32_t HAS_SIZE = 2;
    constexpr std::uint32_t HAS_CONTENTS = 4;
    constexpr std::uint32_t HAS_QUALITY = 8;
    constexpr std::size_t CONTENTS_SIZE = 100;
    // Of the encoder's name, which the delay follows, and what a decoder adds to it.
    constexpr std::size_t DELAY_OFFSET = 21;
    constexpr qint64 DECODER_DELAY = 529;
    Mp3Header header;
    const auto flags = start.number<std::uint32_t>(offset + 4);
    offset += 8;
    if ((flags & HAS_FRAMES) != 0) {
        header.frames = start.number<std::uint32_t>(offset);
        offset += 4;
    }
    if ((flags & HAS_SIZE) != 0) {
        header.size = start.number<std::uint32_t>(offset);
        offset += 4;
    }
    offset += ((flags & HAS_CONTENTS) != 0 ? CONTENTS_SIZE : 0) + ((flags & HAS_QUALITY) != 0 ? 4 : 0);
    if (start.hasText(offset, "LAME") || start.hasText(offset, "Lavf") || start.hasText(offset, "Lavc"))
        header.delay = (start.number<std::uint32_t>(offset + DELAY_OFFSET) >> 20) + DECODER_DELAY;
    return header;
}

Mp3Header parseHeader(const FrameStart &start, const AudioFrame &frame)
{
    constexpr int SAMPLES_OF_LAYER_III = 1152;
    constexpr int SAMPLES_AT_LOW_RATES = 576;
    constexpr std::size_t VBRI_OFFSET = 36;
    const bool isLow = frame.samples == SAMPLES_AT_LOW_RATES;
    if (!isLow && frame.samples != SAMPLES_OF_LAYER_III)
        return {};
    // Behind the side information of a silent frame.
    const std::size_t xingOffset = isLow ? (frame.isMono ? 13 : 21) : (frame.isMono ? 21 : 36);
    if (start.hasText(xingOffset, "Xing") || start.hasText(xingOffset, "Info"))
        return parseXing(start, xingOffset);
    if (start.hasText(VBRI_OFFSET, "VBRI") && start.number<std::uint16_t>(VBRI_OFFSET + 4) == 1)
        return {start.number<std::uint32_t>(VBRI_OFFSET + 14), start.number<std::uint32_t>(VBRI_OFFSET + 10)};
    return {};
}

/// The frames of an MP3 that should all have one bit rate.
class ConstantRate
{
public:
    ConstantRate(FileWindow &window, qint64 begin, const AudioFrame &first)
        : m_window(window)
        , m_begin(begin)
        , m_first(first)
        , m_meanSize(qint64{first.samples} / 8 * first.bitRate)
    {}

    /// @return the number of frames, nothing where a frame is not where it should be
    std::optional<qint64> count()
    {
        constexpr int PARTS = 6;
        constexpr int LAST_FRAMES = 2;
        const qint64 lastLook = frameNumberAt(m_window.fileSize() - qint64{ID3V1_SIZE}) - LAST_FRAMES;
        for (int part = 0; part < PARTS - 1; ++part) {
            if (!findFrames(lastLook * part / (PARTS - 1)))
                return std::nullopt;
        }
        return countFrom(lastLook);
    }

private:
    static constexpr std::size_t ID3V1_SIZE = 128;

    /// The frame that should be at an offset or start in front of it.
    [[nodiscard]] qint64 frameNumberAt(qint64 offset) const
    {
        return (offset - m_begin) * m_first.sampleRate / m_meanSize;
    }

    [[nodiscard]] std::optional<AudioFrame> frameAt(qint64 offset) const
    {
        const std::optional<AudioFrame> frame =
            parseFrame(Framing::Mpeg, m_window.at(offset, MAX_FRAME_HEADER_SIZE));
        const bool isOfRate = frame && frame->stream == m_first.stream && frame->bitRate == m_first.bitRate;
        return isOfRate ? frame : std::nullopt;
    }

    /// Where the frame of a number starts. Its mean position is rounded, and how is known only in part.
    [[nodiscard]] std::optional<qint64> findFrame(qint64 number) const
    {
        const qint64 mean = number * m_meanSize;
        const qint64 first = m_begin + (mean + m_minRounding) / m_first.sampleRate;
        const qint64 last = m_begin + (mean + m_maxRounding) / m_first.sampleRate;
        for (qint64 offset = first; offset <= last; ++offset) {
            if (frameAt(offset))
                return offset;
        }
        return std::nullopt;
    }

    /// Whether the frame of a number may start at an offset if all are rounded alike.
    bool fits(qint64 number, qint64 offset)
    {
        const qint64 rounding = (offset - m_begin) * m_first.sampleRate - number * m_meanSize;
        m_minRounding = std::max(m_minRounding, rounding);
        m_maxRounding = std::min(m_maxRounding, rounding + m_first.sampleRate - 1);
        return m_minRounding <= m_maxRounding;
    }

    /// Whether a frame and those behind it, as far as they are in memory then, lie where they should.
    bool findFrames(qint64 number)
    {
        const std::optional<qint64> first = findFrame(number);
        if (!first)
            return false;
        constexpr auto HEADER_SIZE = static_cast<qint64>(MAX_FRAME_HEADER_SIZE);
        const qint64 end =
            *first + static_cast<qint64>(m_window.at(*first, MAX_FRAME_HEADER_SIZE).size()) - HEADER_SIZE;
        for (qint64 offset = *first; offset <= end; ++number) {
            const std::optional<AudioFrame> frame = frameAt(offset);
            if (!frame || !fits(number, offset))
                return false;
            offset += frame->size;
        }
        return true;
    }

    static bool isLastTag(std::span<const std::uint8_t> bytes)
    {
        return bytes.size() == ID3V1_SIZE && std::memcmp(bytes.data(), "TAG", 3) == 0;
    }

    /// Looks at every frame from the one of a number on.
    std::optional<qint64> countFrom(qint64 number)
    {
        std::optional<qint64> offset = findFrame(number);
        if (!offset)
            return std::nullopt;
        while (*offset < m_window.fileSize()) {
            const std::optional<AudioFrame> frame = frameAt(*offset);
            if (!frame && isLastTag(m_window.at(*offset, ID3V1_SIZE)))
                break;
            if (!frame || !fits(number, *offset))
                return std::nullopt;
            *offset += frame->size;
            ++number;
        }
        return number;
    }

    FileWindow &m_window;
    const qint64 m_begin;
    const AudioFrame m_first;
    /// Bytes of a frame times its sampling rate, which makes it whole.
    const qint64 m_meanSize;
    /// What is added to a frame's mean position before it is rounded down; in the same unit.
    qint64 m_minRounding = 0;
    qint64 m_maxRounding = m_first.sampleRate - 1;
};

std::optional<FrameTime> constantRateTime(FileWindow &window, qint64 begin)
{
    // Below, all frames are counted as fast; above, numbers would overflow.
    constexpr qint64 MIN_SIZE = 128 * 1024;
    constexpr qint64 MAX_SIZE = qint64{1} << 44;
    constexpr int SAMPLES_OF_LAYER_I = 384;
    const qint64 size = window.fileSize() - begin;
    const std::optional<AudioFrame> first =
        parseFrame(Framing::Mpeg, window.at(begin, MAX_FRAME_HEADER_SIZE));
    if (!first || first->samples == SAMPLES_OF_LAYER_I || size < MIN_SIZE || size > MAX_SIZE)
        return std::nullopt;
    const std::optional<qint64> frames = ConstantRate(window, begin, *first).count();
    return frames ? std::optional(FrameTime(*first, *frames)) : std::nullopt;
}

} // namespace

std::optional<double> storedMp3Duration(FileWindow &window, qint64 begin)
{
    const FrameStart start(window, begin);
    const std::optional<AudioFrame> frame = start.frame();
    if (!frame)
        return std::nullopt;
    const Mp3Header header = parseHeader(start, *frame);
    const qint64 excess = window.fileSize() - begin - header.size;
    const bool isJoined = header.size > 0 && excess - 4 > header.size / 16;
    if (header.frames == 0 || isJoined)
        return std::nullopt;
    const qint64 samples = std::max<qint64>(header.frames * frame->samples - header.delay, 0);
    return static_cast<double>(samples) / frame->sampleRate;
}

std::optional<FrameTime> mp3FrameTime(FileWindow &window, qint64 begin)
{
    const std::optional<qint64> first = findFrame(window, Framing::Mpeg, begin);
    if (!first)
        return std::nullopt;
    const FrameStart start(window, *first);
    const std::optional<AudioFrame> frame = start.frame();
    const Mp3Header header = frame ? parseHeader(start, *frame) : Mp3Header();
    // A frame with a header has no sound.
    begin = *first + (header.frames > 0 || header.size > 0 ? frame->size : 0);
    const std::optional<FrameTime> time = constantRateTime(window, begin);
    return time ? time : countFrames(window, Framing::Mpeg, begin, window.fileSize());
}

} // namespace sonavo
