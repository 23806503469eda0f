#include "import/frame_count.h"

#include "import/audio_tags.h"
#include "import/file_window.h"

#include <algorithm>

namespace sonavo {
namespace {

std::optional<AudioFrame> frameAt(FileWindow &window, Framing framing, qint64 offset)
{
    return parseFrame(framing, window.at(offset, MAX_FRAME_HEADER_SIZE));
}

/// The frame that starts at an offset and has another one of its stream, or the end, right behind it.
std::optional<AudioFrame> confirmedFrameAt(FileWindow &window, Framing framing, qint64 offset, qint64 end)
{
    const std::optional<AudioFrame> frame = frameAt(window, framing, offset);
    if (!frame || offset + frame->size == end)
        return frame;
    // Both headers at once: else each of many close candidates could cost two reads.
    const auto size = static_cast<std::size_t>(frame->size);
    const std::span<const std::uint8_t> bytes = window.at(offset, size + MAX_FRAME_HEADER_SIZE);
    if (offset + frame->size > end || bytes.size() < size)
        return std::nullopt;
    const std::optional<AudioFrame> next = parseFrame(framing, bytes.subspan(size));
    return next && next->stream == frame->stream ? frame : std::nullopt;
}

/// Walks through the frames of one file.
class FrameWalk
{
public:
    FrameWalk(FileWindow &window, Framing framing, qint64 begin, qint64 end)
        : m_window(window)
        , m_framing(framing)
        , m_offset(begin)
        , m_end(end)
    {}

    std::optional<FrameTime> count()
    {
        do
            countConsecutive();
        while (findNext());
        return m_window.hasFailed() || m_stream == 0 ? std::nullopt : std::optional(m_time);
    }

    /// @return where the first frame is
    std::optional<qint64> find() { return search() ? std::optional(m_offset) : std::nullopt; }

private:
    void countConsecutive()
    {
        while (m_offset < m_end) {
            std::optional<AudioFrame> frame = frameAt(m_window, m_framing, m_offset);
            // A header that differs from the last one can be noise.
            if (frame && frame->stream != m_stream)
                frame = confirmedFrameAt(m_window, m_framing, m_offset, m_end);
            if (!frame)
                return;
            m_stream = frame->stream;
            m_time += FrameTime(*frame, 1);
            m_lastFrame = m_offset;
            m_offset += frame->size;
        }
    }

    /// @return whether there are more frames; it has moved to the next one
    bool findNext()
    {
        // What should have followed the last frame can be inside it, where bytes are missing.
        if (m_offset < m_end && !skipTag() && m_stream != 0)
            m_offset = m_lastFrame + 1;
        return search();
    }

    bool search()
    {
        constexpr qint64 MAX_SEARCH = 1 << 20;
        for (qint64 searched = 0; m_offset < m_end && searched < MAX_SEARCH;) {
            const std::span<const std::uint8_t> bytes = m_window.at(m_offset, 1);
            if (bytes.empty())
                return false;
            if (bytes[0] == 0xFF && confirmedFrameAt(m_window, m_framing, m_offset, m_end))
                return true;
            if (bytes[0] == 'I' && skipTag())
                continue;
            const qint64 distance = distanceToMark();
            m_offset += distance;
            searched += distance;
        }
        return false;
    }

    bool skipTag()
    {
        constexpr int MAX_TAGS = 4096;
        const std::optional<qint64> size =
            m_tags < MAX_TAGS ? tagSizeAt(m_window, m_offset) : std::optional<qint64>();
        if (size) {
            m_offset += *size;
            ++m_tags;
        }
        return size.has_value();
    }

    /// @return bytes, at least 1, in which no frame and no ID3v2 tag starts
    qint64 distanceToMark()
    {
        // A few bytes at a time: those up to a far mark would be searched again for every near one.
        constexpr std::size_t STEP = 256;
        std::span<const std::uint8_t> bytes = m_window.at(m_offset, 2);
        if (bytes.size() < 2)
            return 1;
        bytes = bytes.subspan(1, std::min(bytes.size() - 1, STEP));
        const qint64 frame = distanceToByte(bytes, 0xFF);
        return 1 + distanceToByte(bytes.first(static_cast<std::size_t>(frame)), 'I');
    }

    FileWindow &m_window;
    const Framing m_framing;
    qint64 m_offset;
    const qint64 m_end;
    /// Of the last frame, 0 before the first one.
    std::uint32_t m_stream = 0;
    qint64 m_lastFrame = 0;
    int m_tags = 0;
    FrameTime m_time;
};

} // namespace

bool startsWithFrames(FileWindow &window, Framing framing, qint64 offset, int count)
{
    std::uint32_t stream = 0;
    for (int i = 0; i < count; ++i) {
        const std::optional<AudioFrame> frame = frameAt(window, framing, offset);
        if (!frame || (i > 0 && frame->stream != stream))
            return false;
        stream = frame->stream;
        offset += frame->size;
    }
    return true;
}

std::optional<qint64> findFrame(FileWindow &window, Framing framing, qint64 begin)
{
    return FrameWalk(window, framing, begin, window.fileSize()).find();
}

std::optional<FrameTime> countFrames(FileWindow &window, Framing framing, qint64 begin, qint64 end)
{
    return FrameWalk(window, framing, begin, end).count();
}

} // namespace sonavo
