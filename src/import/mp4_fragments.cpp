#include "import/mp4_fragments.h"

#include "import/file_window.h"
#include "model/saturating.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace sonavo {

/// The index of random access, "mfra": where fragments of the track start in time and in the file.
class Mp4Fragments::Index
{
public:
    struct Entry
    {
        qint64 time = 0;
        /// In bytes.
        qint64 offset = 0;
    };

    Index(FileWindow &window, std::uint32_t track)
        : m_window(window)
    {
        // "mfro" is the last box of the file and of "mfra", whose size it states.
        constexpr qint64 MFRO_SIZE = 16;
        const qint64 end = window.fileSize();
        const std::optional<Box> size = Boxes(window, end - MFRO_SIZE, end).next();
        if (!size || size->type != boxType("mfro"))
            return;
        BoxFields fields(window, *size);
        fields.skip(4);
        const std::optional<Box> index =
            Boxes(window, std::max(end - fields.number32(), qint64{0}), end).next();
        if (!index || index->type != boxType("mfra") || index->end != end)
            return;
        forEachBox(window, *index,
                   [&](const Box &box) { return box.type != boxType("tfra") || !readTable(box, track); });
    }

    [[nodiscard]] qint64 size() const { return m_size; }
    [[nodiscard]] Entry operator[](qint64 number) const
    {
        BoxFields fields(m_window, {0, m_table + number * m_entrySize, m_table + m_size * m_entrySize});
        const qint64 time = fields.time(m_timeSize);
        return {time, fields.time(m_timeSize)};
    }

private:
    /// @return whether it is the table of the track
    bool readTable(const Box &box, std::uint32_t track)
    {
        constexpr qint64 HEADER_SIZE = 16;
        BoxFields fields(m_window, box);
        m_timeSize = fields.version() == 1 ? 8 : 4;
        fields.skip(3);
        if (fields.number32() != track)
            return false;
        // The sizes of three numbers that nobody needs, of two bits each.
        const std::uint32_t sizes = fields.number32();
        m_entrySize =
            2 * static_cast<qint64>(m_timeSize) + 3 + (sizes >> 4 & 3) + (sizes >> 2 & 3) + (sizes & 3);
        m_table = box.begin + HEADER_SIZE;
        const qint64 stated = fields.number32();
        m_size = stated == fields.entriesLeft(m_entrySize) ? stated : 0;
        return true;
    }

    FileWindow &m_window;
    qint64 m_table = 0;
    qint64 m_size = 0;
    qint64 m_entrySize = 0;
    std::size_t m_timeSize = 0;
};

Mp4Fragments::Mp4Fragments(FileWindow &window, TableBudget &budget, const Track &track)
    : m_window(window)
    , m_budget(budget)
    , m_track(track)
    , m_end(track.length)
    , m_length(track.length)
{}

bool Mp4Fragments::add(const Box &fragment)
{
    const std::optional<Part> part = read(fragment);
    if (!part)
        return false;
    m_length = saturatingSum(m_length, part->length);
    m_start = std::min(m_start.value_or(part->start), part->start);
    return part->end > std::exchange(m_end, std::max(m_end, part->end));
}

std::optional<qint64> Mp4Fragments::skipToLast(const Box &first)
{
    // Below, reading every one is as fast.
    constexpr qint64 MIN_SIZE = 20;
    constexpr qint64 LOOKS = 4;
    constexpr qint64 HEADER_SIZE = 8;
    const Index index(m_window, m_track.id);
    if (index.size() < MIN_SIZE || index[0].offset != first.begin - HEADER_SIZE)
        return std::nullopt;
    // The index can state other times than the fragments, all by the encoder's delay.
    std::optional<qint64> delay;
    Part last;
    qint64 offset = 0;
    for (qint64 look = 1; look <= LOOKS; ++look) {
        const qint64 number = (index.size() - 1) * look / LOOKS;
        const Index::Entry entry = index[number];
        const std::optional<Box> box = Boxes(m_window, entry.offset, m_window.fileSize()).next();
        const std::optional<Part> part = box && box->type == boxType("moof") ? read(*box) : std::nullopt;
        if (!part || part->length != part->end - part->start || entry.offset <= offset)
            return std::nullopt;
        const qint64 difference = part->start - entry.time;
        const bool isFollowed = look == LOOKS || part->end - index[number + 1].time == difference;
        if (difference != delay.value_or(difference) || !isFollowed)
            return std::nullopt;
        delay = difference;
        offset = entry.offset;
        last = *part;
    }
    if (last.start < m_end)
        return std::nullopt;
    m_length = saturatingSum(m_length, last.start - m_end);
    m_end = last.start;
    return offset;
}

std::optional<qint64> Mp4Fragments::length() const
{
    if (!m_start)
        return std::nullopt;
    // Fragments that are there twice have one time; a damaged time is not followed by sound.
    return std::min(m_end - (m_track.length > 0 ? 0 : *m_start), m_length);
}

std::optional<Mp4Fragments::Part> Mp4Fragments::read(const Box &fragment)
{
    std::optional<Part> part;
    forEachBox(m_window, fragment, [&](const Box &box) {
        if (box.type == boxType("traf"))
            readTrackFragment(box, part);
        return true;
    });
    return part;
}

void Mp4Fragments::readTrackFragment(const Box &fragment, std::optional<Part> &part)
{
    constexpr std::uint32_t HAS_DATA_OFFSET = 0x1;
    constexpr std::uint32_t HAS_DESCRIPTION = 0x2;
    constexpr std::uint32_t HAS_SAMPLE_LENGTH = 0x8;
    qint64 sampleLength = m_track.sampleLength;
    qint64 start = part ? part->end : m_end;
    bool isOfTrack = false;
    forEachBox(m_window, fragment, [&](const Box &box) {
        BoxFields fields(m_window, box);
        if (box.type == boxType("tfhd")) {
            fields.skip(1);
            const std::uint32_t flags = fields.flags();
            isOfTrack = fields.number32() == m_track.id;
            fields.skip(((flags & HAS_DATA_OFFSET) != 0 ? 8 : 0) + ((flags & HAS_DESCRIPTION) != 0 ? 4 : 0));
            if ((flags & HAS_SAMPLE_LENGTH) != 0)
                sampleLength = fields.number32();
        } else if (box.type == boxType("tfdt")) {
            const std::size_t size = fields.version() == 1 ? 8 : 4;
            fields.skip(3);
            start = fields.time(size);
        } else if (box.type == boxType("trun") && isOfTrack) {
            const qint64 length = runLength(box, sampleLength);
            part = part.value_or(Part{start, start, 0});
            part->length = saturatingSum(part->length, length);
            part->start = std::min(part->start, start);
            start = saturatingSum(start, length);
            part->end = std::max(part->end, start);
        }
        return true;
    });
}

qint64 Mp4Fragments::runLength(const Box &run, qint64 sampleLength)
{
    constexpr std::uint32_t HAS_DATA_OFFSET = 0x1;
    constexpr std::uint32_t HAS_FIRST_FLAGS = 0x4;
    constexpr std::uint32_t HAS_SAMPLE_LENGTH = 0x100;
    constexpr std::uint32_t SAMPLE_FIELDS = 0xF00;
    BoxFields samples(m_window, run);
    samples.skip(1);
    const std::uint32_t flags = samples.flags();
    const qint64 count = samples.number32();
    if ((flags & HAS_SAMPLE_LENGTH) == 0)
        return sampleLength > 0 ? saturatingProduct(count, sampleLength) : 0;
    samples.skip(((flags & HAS_DATA_OFFSET) != 0 ? 4 : 0) + ((flags & HAS_FIRST_FLAGS) != 0 ? 4 : 0));
    const qint64 size = 4 * std::popcount(flags & SAMPLE_FIELDS);
    qint64 length = 0;
    for (qint64 left = m_budget.take(std::min(count, samples.entriesLeft(size))); left > 0; --left) {
        length += samples.number32();
        samples.skip(size - 4);
    }
    return length;
}

} // namespace sonavo
