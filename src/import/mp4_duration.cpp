#include "import/mp4_duration.h"

#include "import/file_window.h"
#include "import/mp4_boxes.h"
#include "import/mp4_fragments.h"
#include "model/saturating.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <tuple>
#include <utility>

namespace sonavo {
namespace {

/// Times are in units of the track, unless said otherwise.
struct Track
{
    std::uint32_t id = 0;
    bool isAudio = false;
    bool isLossless = false;
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

/// The time scale and length of "mvhd" and "mdhd".
std::pair<qint64, qint64> scaleAndLength(BoxFields fields)
{
    const std::size_t size = fields.version() == 1 ? 8 : 4;
    fields.skip(3 + 2 * static_cast<qint64>(size));
    const qint64 scale = std::max<qint64>(fields.number32(), 1);
    // All bits are set where it is unknown.
    constexpr qint64 UNKNOWN = std::numeric_limits<qint64>::max();
    const qint64 length = fields.time(size);
    return {scale, length == (size == 8 ? UNKNOWN : 0xFFFF'FFFF) ? 0 : length};
}

std::uint32_t trackId(BoxFields fields)
{
    fields.skip(fields.version() == 1 ? 19 : 11);
    return fields.number32();
}

/// @param fields of a description of samples, of which the first one counts
bool isLossless(BoxFields fields)
{
    constexpr qint64 CODEC_OFFSET = 12;
    fields.skip(CODEC_OFFSET);
    const BoxType codec = fields.number32();
    return codec == boxType("alac") || codec == boxType("fLaC");
}

qint64 sumOfSamples(BoxFields fields, TableBudget &budget)
{
    constexpr qint64 ENTRY_SIZE = 8;
    fields.skip(4);
    const qint64 count = fields.number32();
    qint64 sum = 0;
    for (qint64 left = budget.take(std::min(count, fields.entriesLeft(ENTRY_SIZE))); left > 0; --left) {
        const qint64 samples = fields.number32();
        const qint64 length = fields.number32();
        sum = saturatingSum(sum, length > 0 ? saturatingProduct(samples, length) : 0);
    }
    return sum;
}

void readEdits(BoxFields fields, TableBudget &budget, Track &track)
{
    const std::size_t size = fields.version() == 1 ? 8 : 4;
    const qint64 entrySize = 2 * static_cast<qint64>(size) + 4;
    fields.skip(3);
    const qint64 count = fields.number32();
    for (qint64 left = budget.take(std::min(count, fields.entriesLeft(entrySize))); left > 0; --left) {
        qint64 length = fields.time(size);
        // A start of -1 stands for silence.
        const bool isSilence = (fields.number(size) >> (8 * size - 1)) != 0;
        fields.skip(4);
        // All that is there, as writers of fragments leave it.
        if (length == 0 && !isSilence)
            length = std::numeric_limits<qint64>::max();
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

    std::optional<Sound> read(qint64 begin)
    {
        bool hasMovie = false;
        Boxes boxes(m_window, begin, m_window.fileSize());
        // Without "mvex", nothing about the length can follow the movie.
        while (!hasMovie || m_fragments) {
            const std::optional<Box> box = boxes.next();
            if (!box)
                break;
            if (box->type == boxType("moov") && !hasMovie) {
                readMovie(*box);
                hasMovie = true;
            } else if (box->type == boxType("moof") && m_fragments) {
                readFragment(*box, boxes);
            }
        }
        if (!m_audio || m_window.hasFailed())
            return std::nullopt;
        return Sound{static_cast<double>(trackLength()) / static_cast<double>(m_audio->timeScale),
                     m_audio->isLossless};
    }

private:
    BoxFields fields(const Box &box) { return BoxFields(m_window, box); }

    void readMovie(const Box &movie)
    {
        std::optional<Box> fragments;
        forEachBox(m_window, movie, [&](const Box &box) {
            if (box.type == boxType("mvhd"))
                m_timeScale = scaleAndLength(fields(box)).first;
            else if (box.type == boxType("trak") && !m_audio)
                readTrack(box);
            else if (box.type == boxType("mvex"))
                fragments = box;
            return true;
        });
        if (fragments && m_audio)
            m_fragments.emplace(
                m_window, m_budget,
                Mp4Fragments::Track{m_audio->id, m_audio->sampleLength, sampleLengthIn(*fragments)});
    }

    void readTrack(const Box &trackBox)
    {
        Track track;
        forEachBox(m_window, trackBox, [&](const Box &box) {
            if (box.type == boxType("tkhd"))
                track.id = trackId(fields(box));
            else if (box.type == boxType("mdia"))
                readMedia(box, track);
            else if (box.type == boxType("edts"))
                forEachBox(m_window, box, [&](const Box &edits) {
                    if (edits.type == boxType("elst"))
                        readEdits(fields(edits), m_budget, track);
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
        forEachBox(m_window, media, [&](const Box &box) {
            if (box.type == boxType("mdhd")) {
                std::tie(track.timeScale, track.statedLength) = scaleAndLength(fields(box));
            } else if (box.type == boxType("hdlr")) {
                BoxFields handler = fields(box);
                handler.skip(HANDLER_OFFSET);
                track.isAudio = handler.number32() == boxType("soun");
            } else if (box.type == boxType("minf")) {
                readSampleTables(box, track);
            }
            return true;
        });
    }

    /// Stops at the lengths: large tables follow them.
    void readSampleTables(const Box &information, Track &track)
    {
        forEachBox(m_window, information, [&](const Box &tables) {
            if (tables.type != boxType("stbl"))
                return true;
            forEachBox(m_window, tables, [&](const Box &table) {
                if (table.type == boxType("stsd"))
                    track.isLossless = isLossless(fields(table));
                if (table.type != boxType("stts"))
                    return true;
                track.sampleLength = sumOfSamples(fields(table), m_budget);
                return false;
            });
            return false;
        });
    }

    /// Of a sample in a fragment that does not state it.
    qint64 sampleLengthIn(const Box &fragments)
    {
        qint64 length = 0;
        forEachBox(m_window, fragments, [&](const Box &box) {
            if (box.type != boxType("trex"))
                return true;
            BoxFields defaults = fields(box);
            defaults.skip(4);
            if (defaults.number32() != m_audio->id)
                return true;
            defaults.skip(4);
            length = defaults.number32();
            return false;
        });
        return length;
    }

    void readFragment(const Box &fragment, Boxes &boxes)
    {
        const bool isFirst = !m_fragments->length();
        if (!m_fragments->add(fragment))
            return;
        boxes.want();
        if (const std::optional<qint64> last =
                isFirst ? m_fragments->skipToLast(fragment) : std::optional<qint64>())
            boxes.goTo(*last);
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
        if (const std::optional<qint64> length = m_fragments ? m_fragments->length() : std::nullopt)
            return *length;
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
    TableBudget m_budget;
    /// Where the movie can come in fragments.
    std::optional<Mp4Fragments> m_fragments;
};

} // namespace

std::optional<Sound> readMp4(FileWindow &window, qint64 begin)
{
    return Mp4File(window).read(begin);
}

} // namespace sonavo
