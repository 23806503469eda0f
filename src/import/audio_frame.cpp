#include "import/audio_frame.h"

#include <QtEndian>

#include <array>

namespace sonavo {
namespace {

/// Thousands of bits per second. The first and the last index stand for "free" and "forbidden".
using BitRates = std::array<int, 16>;
constexpr BitRates LAYER_1{0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448, 0};
constexpr BitRates LAYER_2{0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384, 0};
constexpr BitRates LAYER_3{0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0};
constexpr BitRates LOW_LAYER_1{0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256, 0};
constexpr BitRates LOW_LAYERS_2_3{0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0};

/// In the order of the two bits that stand for a layer.
constexpr std::array<const BitRates *, 4> BIT_RATES{nullptr, &LAYER_3, &LAYER_2, &LAYER_1};
constexpr std::array<const BitRates *, 4> LOW_BIT_RATES{nullptr, &LOW_LAYERS_2_3, &LOW_LAYERS_2_3,
                                                        &LOW_LAYER_1};
constexpr std::array<int, 4> SAMPLE_RATES{44100, 48000, 32000, 0};
constexpr std::array<int, 16> ADTS_SAMPLE_RATES{96000, 88200, 64000, 48000, 44100, 32000, 24000, 22050,
                                                16000, 12000, 11025, 8000,  7350,  0,     0,     0};

std::optional<AudioFrame> parseMpegFrame(std::uint32_t header)
{
    constexpr std::uint32_t SYNC = 0xFFE0'0000;
    constexpr std::uint32_t STREAM = 0xFFFE'0C00;
    constexpr unsigned VERSION_2_5 = 0;
    constexpr unsigned RESERVED_VERSION = 1;
    constexpr unsigned VERSION_1 = 3;
    constexpr unsigned LAYER_III = 1;
    constexpr unsigned LAYER_I = 3;
    constexpr unsigned MONO = 3;
    const unsigned version = header >> 19 & 3;
    const unsigned layer = header >> 17 & 3;
    if ((header & SYNC) != SYNC || version == RESERVED_VERSION || layer == 0)
        return std::nullopt;
    const bool isLow = version != VERSION_1;
    const int bitRate = (*(isLow ? LOW_BIT_RATES : BIT_RATES)[layer])[header >> 12 & 15] * 1000;
    const int sampleRate = SAMPLE_RATES[header >> 10 & 3] >> (version == VERSION_2_5 ? 2 : isLow ? 1 : 0);
    if (bitRate == 0 || sampleRate == 0)
        return std::nullopt;

    const int padding = static_cast<int>(header >> 9 & 1);
    AudioFrame frame;
    if (layer == LAYER_I) {
        frame.samples = 384;
        frame.size = (12 * bitRate / sampleRate + padding) * 4;
    } else {
        frame.samples = layer == LAYER_III && isLow ? 576 : 1152;
        frame.size = frame.samples / 8 * bitRate / sampleRate + padding;
    }
    frame.sampleRate = sampleRate;
    frame.stream = header & STREAM;
    frame.bitRate = bitRate;
    frame.isMono = (header >> 6 & 3) == MONO;
    return frame;
}

std::optional<AudioFrame> parseAdtsFrame(std::span<const std::uint8_t> bytes)
{
    constexpr std::uint32_t SYNC = 0xFFF6'0000;
    constexpr std::uint32_t SYNC_VALUE = 0xFFF0'0000;
    constexpr std::uint32_t STREAM = 0xFFFE'3C00;
    constexpr std::size_t HEADER_SIZE = 7;
    constexpr std::size_t CHECKSUM_SIZE = 2;
    constexpr int BLOCK_SAMPLES = 1024;
    if (bytes.size() < HEADER_SIZE)
        return std::nullopt;
    const auto header = qFromBigEndian<std::uint32_t>(bytes.data());
    const int sampleRate = ADTS_SAMPLE_RATES[header >> 10 & 15];
    if ((header & SYNC) != SYNC_VALUE || sampleRate == 0)
        return std::nullopt;
    const bool hasChecksum = (header & 0x0001'0000) == 0;
    AudioFrame frame;
    frame.size = (bytes[3] & 3) << 11 | bytes[4] << 3 | bytes[5] >> 5;
    if (static_cast<std::size_t>(frame.size) < HEADER_SIZE + (hasChecksum ? CHECKSUM_SIZE : 0))
        return std::nullopt;
    frame.samples = BLOCK_SAMPLES * ((bytes[6] & 3) + 1);
    frame.sampleRate = sampleRate;
    frame.stream = header & STREAM;
    return frame;
}

} // namespace

std::optional<AudioFrame> parseFrame(Framing framing, std::span<const std::uint8_t> bytes)
{
    constexpr std::size_t MPEG_HEADER_SIZE = 4;
    if (bytes.size() < MPEG_HEADER_SIZE || bytes[0] != 0xFF)
        return std::nullopt;
    return framing == Framing::Adts ? parseAdtsFrame(bytes)
                                    : parseMpegFrame(qFromBigEndian<std::uint32_t>(bytes.data()));
}

} // namespace sonavo
