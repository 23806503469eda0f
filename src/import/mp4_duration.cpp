#include "import/mp4_duration.h"

#include "import/file_window.h"
#include "model/saturating.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <string_view>
#include <tuple>

namespace sonavo {
namespace {

using Bytes = std::span<const std::uint8_t>;
using BoxType = std::uint32_t;

consteval BoxType boxType(std::string_view name)
{
    BoxType type = 0;
    for (const char character : name)
        type = type << 8 | static_cast<BoxType>(character);
    return type;
}

/// A box without its header.
struct Box
{
    BoxType type = 0;
    qint64 begin = 0;
    qint64 end = 0;
};

/// Reads the fields of a box one after the other, as zeros behind its end.
class BoxFields
{
public:
    BoxFields(FileWindow &window, const Box &box)
        : m_window(window)
        , m_offset(box.begin)
        , m_end(box.end)
    {}

    [[nodiscard]] bool atEnd() const { return m_offset >= m_end; }
    void skip(qint64 bytes) { m_offset += bytes; }
    /// @param bytes 1 to 8
    std::uint64_t number(std::size_t bytes)
    {
        std::uint64_t value = 0;
        const Bytes field = m_offset < m_end ? m_window.at(m_offset, bytes) : Bytes();
        if (field.size() < bytes)
            m_offset = m_end;
        else
            for (const std::uint8_t byte : field.first(bytes))
                value = value << 8 | byte;
        m_offset += static_cast<qint64>(bytes);
        return value;
    }
    std::uint32_t number32() { return static_cast<std::uint32_t>(number(4)); }
    /// The version of a full box, behind which come its flags.
    unsigned version() { return static_cast<unsigned>(number(1)); }
    std::uint32_t flags() { return static_cast<std::uint32_t>(number(3)); }

private:
    FileWindow &m_window;
    qint64 m_offset;
    const qint64 m_end;
};

/// The boxes between two offsets, at most 4096 of them in a row that nobody wants.
class Boxes
{
public:
    Boxes(FileWindow &window, qint64 begin, qint64 end)
        : m_window(window)
        , m_next(begin)
        , m_end(end)
    {}

    std::optional<Box> next()
    {
        constexpr int MAX_UNWANTED = 4096;
        constexpr std::size_t HEADER_SIZE = 8;
        constexpr std::size_t LONG_HEADER_SIZE = 16;
        if (m_next >= m_end || ++m_unwanted > MAX_UNWANTED)
            return std::nullopt;
        const Bytes header = m_window.at(m_next, LONG_HEADER_SIZE);
        if (header.size() < HEADER_SIZE)
            return std::nullopt;
        std::uint64_t size = qFromBigEndian<std::uint32_t>(header.data());
        std::size_t headerSize = HEADER_SIZE;
        const auto left = static_cast<std::uint64_t>(m_end - m_next);
        if (size == 1 && header.size() >= LONG_HEADER_SIZE) {
            size = qFromBigEndian<std::uint64_t>(&header[HEADER_SIZE]);
            headerSize = LONG_HEADER_SIZE;
        } else if (size == 0) {
            size = left;
        }
        if (size < headerSize)
            return std::nullopt;
        const Box box{qFromBigEndian<BoxType>(&header[4]), m_next + static_cast<qint64>(headerSize),
                      m_next + static_cast<qint64>(std::min(size, left))};
        m_next = box.end;
        return box;
    }

    /// Tells that the last box was one that counts.
    void want() { m_unwanted = 0; }

private:
    FileWindow &m_window;
    qint64 m_next;
    const qint64 m_end;
    int m_unwanted = 0;
};

/// Times are in units of the track, unless said otherwise.
struct Track
{
    std::uint32_t id = 0;
    bool isAudio = false;
    /// Units per second.
    qint64 timeScale = 1;
    /// As the header states it, 0 where it does not.
    qint64 statedLength = 0;
    /// Sum over all samples.
    qint64 sampleLength = 0;
    /// What edits play, in units of the movie; nothing without an edit list.
    std::optional<qint64> played;
    /// What edits add as silence, in units of the movie.
    qint64 silence = 0;
};

qint64 limited(std::uint64_t number)
{
    return static_cast<qint64>(
        std::min(number, static_cast<std::uint64_t>(std::numeric_limits<qint64>::max())));
}

/// The time scale and length of "mvhd" and "mdhd".
std::pair<qint64, qint64> scaleAndLength(BoxFields fields)
{
    const std::size_t size = fields.version() == 1 ? 8 : 4;
    fields.skip(3 + 2 * static_cast<qint64>(size));
    const qint64 scale = std::max<qint64>(fields.number32(), 1);
    const std::uint64_t length = fields.number(size);
    // All bits are set where it is unknown.
    const std::uint64_t unknown = size == 8 ? ~std::uint64_t{0} : 0xFFFF'FFFF;
    return {scale, length == unknown ? 0 : limited(length)};
}

std::uint32_t trackId(BoxFields fields)
{
    fields.skip(fields.version() == 1 ? 19 : 11);
    return fields.number32();
}

qint64 sumOfSamples(BoxFields fields)
{
    // Runs of equal samples: some twenty days of the shortest frames, if each is different.
    constexpr std::uint32_t MAX_ENTRIES = 1 << 22;
    fields.skip(4);
    qint64 sum = 0;
    for (std::uint32_t left = std::min(fields.number32(), MAX_ENTRIES); left > 0 && !fields.atEnd(); --left) {
        const std::uint64_t samples = fields.number32();
        sum = saturatingSum(sum, limited(samples * fields.number32()));
    }
    return sum;
}

void readEdits(BoxFields fields, Track &track)
{
    constexpr std::uint32_t MAX_EDITS = 1 << 16;
    const std::size_t size = fields.version() == 1 ? 8 : 4;
    fields.skip(3);
    for (std::uint32_t left = std::min(fields.number32(), MAX_EDITS); left > 0 && !fields.atEnd(); --left) {
        const qint64 length = limited(fields.number(size));
        // A start of -1 stands for silence.
        const bool isSilence = (fields.number(size) >> (8 * size - 1)) != 0;
        fields.skip(4);
        track.silence = saturatingSum(track.silence, isSilence ? length : 0);
        track.played = saturatingSum(track.played.value_or(0), isSilence ? 0 : length);
    }
}

/// Reads the boxes of one file.
class Mp4File
{
public:
    explicit Mp4File(FileWindow &window)
        : m_window(window)
    {}

    std::optional<double> duration(qint64 begin)
    {
        bool hasMovie = false;
        Boxes boxes(m_window, begin, m_window.fileSize());
        // Without "mvex", nothing about the length can follow the movie.
        while (!hasMovie || (m_audio && m_hasFragments)) {
            const std::optional<Box> box = boxes.next();
            if (!box)
                break;
            if (box->type == boxType("moov") && !hasMovie) {
                readMovie(*box);
                hasMovie = true;
            } else if (box->type == boxType("moof") && readFragment(*box)) {
                boxes.want();
            }
        }
        if (!m_audio || m_window.hasFailed())
            return std::nullopt;
        return static_cast<double>(trackLength()) / static_cast<double>(m_audio->timeScale);
    }

private:
    /// @param read is called with each box until it returns false
    template <typename Reader>
    void forEachBox(const Box &parent, Reader read)
    {
        Boxes boxes(m_window, parent.begin, parent.end);
        for (std::optional<Box> box = boxes.next(); box && read(*box);)
            box = boxes.next();
    }

    BoxFields fields(const Box &box) { return BoxFields(m_window, box); }

    void readMovie(const Box &movie)
    {
        std::optional<Box> fragments;
        forEachBox(movie, [&](const Box &box) {
            if (box.type == boxType("mvhd"))
                m_timeScale = scaleAndLength(fields(box)).first;
            else if (box.type == boxType("trak") && !m_audio)
                readTrack(box);
            else if (box.type == boxType("mvex"))
                fragments = box;
            return true;
        });
        m_hasFragments = fragments.has_value();
        if (!m_hasFragments || !m_audio)
            return;
        m_fragmentsEnd = m_audio->sampleLength;
        m_fragmentsLength = m_audio->sampleLength;
        readFragmentDefaults(*fragments);
    }

    void readTrack(const Box &trackBox)
    {
        Track track;
        forEachBox(trackBox, [&](const Box &box) {
            if (box.type == boxType("tkhd"))
                track.id = trackId(fields(box));
            else if (box.type == boxType("mdia"))
                readMedia(box, track);
            else if (box.type == boxType("edts"))
                forEachBox(box, [&](const Box &edits) {
                    if (edits.type == boxType("elst"))
                        readEdits(fields(edits), track);
                    return true;
                });
            return true;
        });
        if (track.isAudio)
            m_audio = track;
    }

    void readMedia(const Box &media, Track &track)
    {
        constexpr qint64 HANDLER_OFFSET = 8;
        forEachBox(media, [&](const Box &box) {
            if (box.type == boxType("mdhd")) {
                std::tie(track.timeScale, track.statedLength) = scaleAndLength(fields(box));
            } else if (box.type == boxType("hdlr")) {
                BoxFields handler = fields(box);
                handler.skip(HANDLER_OFFSET);
                track.isAudio = handler.number32() == boxType("soun");
            } else if (box.type == boxType("minf")) {
                readSampleLength(box, track);
            }
            return true;
        });
    }

    /// Stops at the table: large ones follow it.
    void readSampleLength(const Box &information, Track &track)
    {
        forEachBox(information, [&](const Box &tables) {
            if (tables.type != boxType("stbl"))
                return true;
            forEachBox(tables, [&](const Box &table) {
                if (table.type != boxType("stts"))
                    return true;
                track.sampleLength = sumOfSamples(fields(table));
                return false;
            });
            return false;
        });
    }

    void readFragmentDefaults(const Box &fragments)
    {
        forEachBox(fragments, [&](const Box &box) {
            if (box.type != boxType("trex"))
                return true;
            BoxFields defaults = fields(box);
            defaults.skip(4);
            if (defaults.number32() != m_audio->id)
                return true;
            defaults.skip(4);
            m_sampleLength = defaults.number32();
            return false;
        });
    }

    /// @return whether it made the track longer
    bool readFragment(const Box &fragment)
    {
        const qint64 endBefore = m_fragmentsEnd;
        forEachBox(fragment, [&](const Box &box) {
            if (box.type == boxType("traf"))
                readTrackFragment(box);
            return true;
        });
        return m_fragmentsEnd > endBefore;
    }

    void readTrackFragment(const Box &fragment)
    {
        constexpr std::uint32_t HAS_DATA_OFFSET = 0x1;
        constexpr std::uint32_t HAS_DESCRIPTION = 0x2;
        constexpr std::uint32_t HAS_SAMPLE_LENGTH = 0x8;
        qint64 sampleLength = m_sampleLength;
        qint64 start = m_fragmentsEnd;
        bool isOfTrack = false;
        forEachBox(fragment, [&](const Box &box) {
            if (box.type == boxType("tfhd")) {
                BoxFields header = fields(box);
                header.skip(1);
                const std::uint32_t flags = header.flags();
                isOfTrack = header.number32() == m_audio->id;
                header.skip(((flags & HAS_DATA_OFFSET) != 0 ? 8 : 0) +
                            ((flags & HAS_DESCRIPTION) != 0 ? 4 : 0));
                if ((flags & HAS_SAMPLE_LENGTH) != 0)
                    sampleLength = header.number32();
            } else if (box.type == boxType("tfdt")) {
                BoxFields time = fields(box);
                const std::size_t size = time.version() == 1 ? 8 : 4;
                time.skip(3);
                start = limited(time.number(size));
            } else if (box.type == boxType("trun") && isOfTrack) {
                const qint64 length = runLength(box, sampleLength);
                const qint64 end = saturatingSum(start, length);
                m_fragmentsLength = saturatingSum(m_fragmentsLength, length);
                m_fragmentsStart = std::min(m_fragmentsStart.value_or(start), start);
                m_fragmentsEnd = std::max(m_fragmentsEnd, end);
                start = end;
            }
            return true;
        });
    }

    qint64 runLength(const Box &run, qint64 sampleLength)
    {
        constexpr std::uint32_t HAS_DATA_OFFSET = 0x1;
        constexpr std::uint32_t HAS_FIRST_FLAGS = 0x4;
        constexpr std::uint32_t HAS_SAMPLE_LENGTH = 0x100;
        constexpr int BITS_OF_FIELDS_BEHIND = 3;
        BoxFields samples = fields(run);
        samples.skip(1);
        const std::uint32_t flags = samples.flags();
        const qint64 count = samples.number32();
        if ((flags & HAS_SAMPLE_LENGTH) == 0)
            return count * sampleLength;
        samples.skip(((flags & HAS_DATA_OFFSET) != 0 ? 4 : 0) + ((flags & HAS_FIRST_FLAGS) != 0 ? 4 : 0));
        const std::uint32_t behind = flags / HAS_SAMPLE_LENGTH / 2 & ((1U << BITS_OF_FIELDS_BEHIND) - 1);
        qint64 length = 0;
        for (qint64 sample = 0; sample < count && !samples.atEnd(); ++sample) {
            length += samples.number32();
            samples.skip(4 * std::popcount(behind));
        }
        return length;
    }

    /// From units of the movie to those of the track.
    [[nodiscard]] qint64 inTrackUnits(qint64 length) const
    {
        constexpr double LIMIT = 1e18;
        const double scaled = static_cast<double>(length) * static_cast<double>(m_audio->timeScale) /
                              static_cast<double>(m_timeScale);
        return std::llround(std::min(scaled, LIMIT));
    }

    [[nodiscard]] qint64 trackLength() const
    {
        const Track &track = *m_audio;
        if (m_fragmentsStart) {
            // Fragments that are there twice have one time; a damaged time is not followed by sound.
            const qint64 start = track.sampleLength > 0 ? 0 : *m_fragmentsStart;
            return std::min(m_fragmentsEnd - start, m_fragmentsLength);
        }
        const bool isBoth = track.statedLength > 0 && track.sampleLength > 0;
        const qint64 length = isBoth ? std::min(track.statedLength, track.sampleLength)
                                     : std::max(track.statedLength, track.sampleLength);
        if (!track.played)
            return length;
        const qint64 played = std::min(length, inTrackUnits(*track.played));
        return saturatingSum(inTrackUnits(track.silence), played);
    }

    FileWindow &m_window;
    /// Units of the movie per second.
    qint64 m_timeScale = 1;
    std::optional<Track> m_audio;
    bool m_hasFragments = false;
    /// Of a sample in a fragment that does not state it.
    qint64 m_sampleLength = 0;
    /// When the earliest sample of all fragments starts, and the last one ends.
    std::optional<qint64> m_fragmentsStart;
    qint64 m_fragmentsEnd = 0;
    /// Sum over all samples.
    qint64 m_fragmentsLength = 0;
};

} // namespace

std::optional<double> mp4Duration(FileWindow &window, qint64 begin)
{
    return Mp4File(window).duration(begin);
}

} // namespace sonavo
