#pragma once

namespace sonavo {

/// What the content of an audio file tells.
struct Sound
{
    /// Playing time in seconds, 0.0 where it is unknown.
    double duration = 0.0;
    /// Whether the samples are kept as they were recorded: FLAC, ALAC and PCM.
    bool isLossless = false;

    friend bool operator==(const Sound &, const Sound &) = default;
};

} // namespace sonavo
