#pragma once

#include "import/audio_frame.h"

#include <QtGlobal>

#include <optional>

namespace sonavo {

class FileWindow;

/// Playing time of frames, in a unit that all sampling rates of MPEG audio and of AAC divide. So sums are
/// exact, and whole seconds, by which songs are compared, come out whole.
class FrameTime
{
public:
    FrameTime() = default;
    FrameTime(const AudioFrame &frame, qint64 count)
        : m_ticks(count * frame.samples * (TICKS_PER_SECOND / frame.sampleRate))
    {}
    FrameTime &operator+=(const FrameTime &other)
    {
        m_ticks += other.m_ticks;
        return *this;
    }
    [[nodiscard]] double seconds() const { return static_cast<double>(m_ticks) / TICKS_PER_SECOND; }

private:
    /// Least common multiple of the sampling rates.
    static constexpr qint64 TICKS_PER_SECOND = 28'224'000;

    qint64 m_ticks = 0;
};

/// Whether at least `count` frames of one stream follow each other at an offset.
[[nodiscard]] bool startsWithFrames(FileWindow &window, Framing framing, qint64 offset, int count);

/// Searches a megabyte for a frame that has another one of its stream, or the end of the file, right behind
/// it. Tags are passed over.
/// @return its offset
[[nodiscard]] std::optional<qint64> findFrame(FileWindow &window, Framing framing, qint64 begin);

/// The playing time of all frames, by walking from header to header. A last frame that is cut off counts.
/// Tags are passed over. Anything else is searched for the next frame that has another one behind it; when a
/// megabyte holds none, the song has ended.
/// @param begin where the first frame is expected
/// @param end where the frames end, at most the end of the file
/// @return nothing without a single frame, or when a read failed
[[nodiscard]] std::optional<FrameTime> countFrames(FileWindow &window, Framing framing, qint64 begin,
                                                   qint64 end);

} // namespace sonavo
