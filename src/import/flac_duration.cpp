#include "import/flac_duration.h"

#include "import/file_window.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace sonavo {
namespace {

using Bytes = std::span<const std::uint8_t>;

/// What the header of a frame tells.
struct FlacFrame
{
    int samples = 0;
    /// Samples per second, 0 where only the metadata states them.
    int sampleRate = 0;
    /// Of the frame, or of its first sample where the sizes of frames vary.
    qint64 number = 0;
    /// Of the frame behind it.
    qint64 nextNumber = 0;
    std::size_t headerSize = 0;
};

/// Bytes of the longest frame header.
constexpr std::size_t MAX_HEADER_SIZE = 16;

std::uint8_t checksum(Bytes bytes)
{
    constexpr unsigned POLYNOMIAL = 0x07;
    unsigned sum = 0;
    for (const std::uint8_t byte : bytes) {
        sum ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum << 1 ^ ((sum & 0x80) != 0 ? POLYNOMIAL : 0)) & 0xFF;
    }
    return static_cast<std::uint8_t>(sum);
}

/// Reads a number that is coded as UTF-8 codes characters, of at most seven bytes.
/// @return the number and its bytes
std::optional<std::pair<qint64, std::size_t>> codedNumber(Bytes bytes)
{
    const auto size = static_cast<std::size_t>(std::countl_one(bytes[0]));
    if (size == 0)
        return std::pair(qint64{bytes[0]}, std::size_t{1});
    if (size == 1 || size > 7)
        return std::nullopt;
    qint64 number = bytes[0] & (0x7F >> size);
    for (std::size_t i = 1; i < size; ++i) {
        if ((bytes[i] & 0xC0) != 0x80)
            return std::nullopt;
        number = number << 6 | (bytes[i] & 0x3F);
    }
    return std::pair(number, size);
}

/// RFC 9639, 9.1.2.
constexpr std::array<int, 16> RATES{0,     88200, 176400, 192000, 8000, 16000, 22050, 24000,
                                    32000, 44100, 48000,  96000,  0,    0,     0,     0};

/// RFC 9639, 9.1.
std::optional<FlacFrame> parseFlacFrame(const std::array<std::uint8_t, MAX_HEADER_SIZE> &header)
{
    const Bytes bytes = header;
    const int sizeCode = bytes[2] >> 4;
    const int rateCode = bytes[2] & 15;
    if (bytes[0] != 0xFF || (bytes[1] & 0xFE) != 0xF8 || sizeCode == 0 || rateCode == 15 ||
        (bytes[3] >> 4) > 10 || (bytes[3] & 1) != 0)
        return std::nullopt;
    const auto number = codedNumber(bytes.subspan(4));
    if (!number)
        return std::nullopt;

    FlacFrame frame;
    std::size_t offset = 4 + number->second;
    if (sizeCode == 6) {
        frame.samples = bytes[offset] + 1;
        offset += 1;
    } else if (sizeCode == 7) {
        frame.samples = qFromBigEndian<std::uint16_t>(&bytes[offset]) + 1;
        offset += 2;
    } else {
        frame.samples = sizeCode == 1 ? 192 : sizeCode < 6 ? 144 << sizeCode : 1 << sizeCode;
    }
    frame.sampleRate = RATES[static_cast<std::size_t>(rateCode)];
    if (rateCode == 12) {
        frame.sampleRate = bytes[offset] * 1000;
        offset += 1;
    } else if (rateCode > 12) {
        frame.sampleRate = qFromBigEndian<std::uint16_t>(&bytes[offset]) * (rateCode == 14 ? 10 : 1);
        offset += 2;
    }
    if (checksum(bytes.first(offset)) != bytes[offset])
        return std::nullopt;
    const bool hasVariableSizes = (bytes[1] & 1) != 0;
    frame.number = number->first;
    frame.nextNumber = frame.number + (hasVariableSizes ? frame.samples : 1);
    frame.headerSize = offset + 1;
    return frame;
}

/// Adds up frames. Nothing tells how long a frame is, so that each is searched for.
class FlacFrames
{
public:
    /// @param sampleRate for frames that do not state theirs
    FlacFrames(FileWindow &window, qint64 begin, int sampleRate)
        : m_window(window)
        , m_offset(begin)
        , m_sampleRate(sampleRate)
    {}

    /// @return seconds
    double duration()
    {
        constexpr qint64 MAX_SEARCH = 1 << 20;
        qint64 lastFrame = m_offset;
        while (m_offset - lastFrame < MAX_SEARCH) {
            const Bytes bytes = m_window.at(m_offset, MAX_HEADER_SIZE);
            if (bytes.empty())
                break;
            if (const qint64 skipped = distanceToByte(bytes, 0xFF); skipped > 0) {
                m_offset += skipped;
                continue;
            }
            // The last frame can be shorter than the longest header.
            std::array<std::uint8_t, MAX_HEADER_SIZE> header{};
            std::copy_n(bytes.begin(), std::min(bytes.size(), header.size()), header.begin());
            const std::optional<FlacFrame> frame = parseFlacFrame(header);
            if (frame && add(*frame))
                lastFrame = m_offset;
            m_offset += frame ? static_cast<qint64>(frame->headerSize) : 1;
        }
        return static_cast<double>(m_samples) / m_sampleRate;
    }

private:
    /// @return whether it is a frame of the song. One with an unexpected number waits for its successor: its
    /// bytes can be sound that looks like a header.
    bool add(const FlacFrame &frame)
    {
        const int sampleRate = frame.sampleRate != 0 ? frame.sampleRate : m_sampleRate;
        if (m_samples > 0 && sampleRate != m_sampleRate)
            return false;
        if (frame.number != m_nextNumber && (!m_doubtful || frame.number != m_doubtful->nextNumber)) {
            m_doubtful = frame;
            return false;
        }
        if (frame.number != m_nextNumber)
            m_samples += m_doubtful->samples;
        m_samples += frame.samples;
        m_nextNumber = frame.nextNumber;
        m_sampleRate = sampleRate;
        m_doubtful.reset();
        return true;
    }

    FileWindow &m_window;
    qint64 m_offset;
    /// Of all frames, once there is one.
    int m_sampleRate;
    qint64 m_samples = 0;
    qint64 m_nextNumber = 0;
    std::optional<FlacFrame> m_doubtful;
};

/// Passes over the metadata.
/// @return where the first frame can be; nothing where there is no end to the metadata
std::optional<qint64> skipMetadata(FileWindow &window, qint64 offset)
{
    constexpr std::size_t HEADER_SIZE = 4;
    constexpr std::uint8_t LAST = 0x80;
    // Of some kilobytes each at the very least, if a file has more than a dozen.
    constexpr int MAX_BLOCKS = 4096;
    for (int block = 0; block < MAX_BLOCKS; ++block) {
        const Bytes header = window.at(offset, HEADER_SIZE);
        if (header.size() < HEADER_SIZE)
            return std::nullopt;
        const auto word = qFromBigEndian<std::uint32_t>(header.data());
        offset += static_cast<qint64>(HEADER_SIZE) + (word & 0xFF'FFFF);
        if ((header[0] & LAST) != 0)
            return offset;
    }
    return std::nullopt;
}

} // namespace

std::optional<double> flacDuration(FileWindow &window, qint64 begin)
{
    // "fLaC", the header of the first block, its fields up to the length.
    constexpr std::size_t START_SIZE = 26;
    constexpr std::size_t LENGTH_OFFSET = 18;
    constexpr qint64 FIRST_BLOCK = 4;
    const Bytes start = window.at(begin, START_SIZE);
    if (start.size() < START_SIZE || (start[FIRST_BLOCK] & 0x7F) != 0)
        return std::nullopt;
    const auto fields = qFromBigEndian<std::uint64_t>(&start[LENGTH_OFFSET]);
    const auto sampleRate = static_cast<int>(fields >> 44);
    const auto samples = static_cast<qint64>(fields & 0xF'FFFF'FFFF);
    if (sampleRate == 0)
        return 0.0;
    if (samples > 0)
        return static_cast<double>(samples) / sampleRate;
    const std::optional<qint64> frames = skipMetadata(window, begin + FIRST_BLOCK);
    const double duration = frames ? FlacFrames(window, *frames, sampleRate).duration() : 0.0;
    return window.hasFailed() ? std::nullopt : std::optional(duration);
}

} // namespace sonavo
