#pragma once

#include "import/mp4_boxes.h"

#include <optional>

namespace sonavo {

/// Adds up the samples that one track of an MPEG-4 file has in fragments of the movie (ISO/IEC 14496-12,
/// 8.8). Times are in units of the track.
class Mp4Fragments
{
public:
    struct Track
    {
        std::uint32_t id = 0;
        /// Sum over all samples in front of the fragments.
        qint64 length = 0;
        /// Of a sample whose fragment does not state its length.
        qint64 sampleLength = 0;
    };

    /// Both must outlive the object.
    Mp4Fragments(FileWindow &window, TableBudget &budget, const Track &track);

    /// Adds a "moof".
    /// @return whether it made the track longer
    bool add(const Box &fragment);

    /// Adds all fragments in front of the last one without reading each of them, if the file ends with an
    /// index ("mfra") that fits a handful of them. To be called when exactly the first one is added.
    /// @param first the first one
    /// @return where the last one starts, which is not added; nothing where every one must be read
    std::optional<qint64> skipToLast(const Box &first);

    /// From the start of the first sample to the end of the last one; nothing without a fragment.
    [[nodiscard]] std::optional<qint64> length() const;

private:
    /// What one fragment holds of the track.
    struct Part
    {
        qint64 start = 0;
        qint64 end = 0;
        /// Sum over its samples.
        qint64 length = 0;
    };
    class Index;

    std::optional<Part> read(const Box &fragment);
    void readTrackFragment(const Box &fragment, std::optional<Part> &part);
    [[nodiscard]] qint64 runLength(const Box &run, qint64 sampleLength);

    FileWindow &m_window;
    TableBudget &m_budget;
    const Track m_track;
    /// When the earliest sample of all fragments starts, and the last one ends.
    std::optional<qint64> m_start;
    qint64 m_end;
    /// Sum over all samples.
    qint64 m_length;
};

} // namespace sonavo
