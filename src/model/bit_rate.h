#pragma once

#include "model/song.h"

#include <optional>

namespace sonavo {

/// Mean rate of a song in kbit/s, from its size and playing time; nothing where that is not known.
[[nodiscard]] inline std::optional<double> kilobitsPerSecond(const Song &song)
{
    constexpr double BITS_PER_BYTE = 8.0;
    constexpr double BITS_PER_KILOBIT = 1000.0;
    if (song.duration <= 0.0)
        return std::nullopt;
    return static_cast<double>(song.size) * BITS_PER_BYTE / song.duration / BITS_PER_KILOBIT;
}

} // namespace sonavo
