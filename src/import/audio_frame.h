#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace sonavo {

/// What the header of one frame of MPEG audio tells.
struct AudioFrame
{
    /// Bytes from this header to the next one.
    int size = 0;
    /// Samples for each channel.
    int samples = 0;
    /// Samples per second.
    int sampleRate = 0;
    /// Equal in all frames of one stream: version, layer and sampling rate.
    std::uint32_t stream = 0;
    /// Equal in all frames of a stream of constant bit rate: `stream` and the bit rate, in bits per second.
    int bitRate = 0;
    bool isMono = false;
};

/// Ways in which frames of audio follow each other without a container.
enum class Framing
{
    /// MPEG-1, 2 and 2.5 audio, layers I to III.
    Mpeg,
    /// Advanced Audio Coding.
    Adts
};

/// Bytes that parseFrame() looks at.
constexpr std::size_t MAX_FRAME_HEADER_SIZE = 7;

/// Reads the header of a frame.
///
/// Mpeg: ISO/IEC 11172-3, 2.4.1.3 and 2.4.2.3; lower sampling rates: ISO/IEC 13818-3, 2.4.2.3; MPEG 2.5 as
/// Fraunhofer IIS extended them. Frames of a "free" bit rate are not understood.
/// Adts: ISO/IEC 13818-7, 6.2 and 8.2; the bit rate is not told.
/// @param bytes MAX_FRAME_HEADER_SIZE or, at the end of a file, fewer
/// @return nothing where the bytes are no header
[[nodiscard]] std::optional<AudioFrame> parseFrame(Framing framing, std::span<const std::uint8_t> bytes);

} // namespace sonavo
