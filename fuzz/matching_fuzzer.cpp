#include "analysis/clustering.h"
#include "analysis/direct_analysis.h"
#include "analysis/distance.h"
#include "analysis/duplicate_finder.h"
#include "analysis/matching.h"
#include "analysis/normalization.h"
#include "fuzz/fuzzer.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <string>

namespace sonavo {
namespace {

/// The direct analysis compares every two songs in every step.
constexpr qsizetype MAX_SONGS = 5;

/// Reads songs from bytes: two for the numbers of each, then its artist, title and file name, one a line.
/// ASCII stands for itself, so that a mutated text is still a text, except for one byte that doubles the line
/// so far: long texts have an arithmetic of their own. Any other byte begins a UTF-16 unit, the lower half
/// first; surrogates need not come in pairs. matching.dict has the characters that are special.
class SongReader
{
public:
    explicit SongReader(std::span<const std::uint8_t> bytes)
        : m_bytes(bytes)
    {}

    QList<Song> songs()
    {
        QList<Song> songs;
        while (!m_bytes.empty() && songs.size() < MAX_SONGS)
            songs.append(song(static_cast<uint>(songs.size())));
        return songs;
    }

private:
    static constexpr std::uint8_t DOUBLING = 0x7F;
    /// UTF-16 units that doubling leads to: above twice the 64 that are compared at once.
    static constexpr qsizetype LONGEST_LINE = 150;

    std::uint8_t byte()
    {
        if (m_bytes.empty())
            return 0;
        const std::uint8_t first = m_bytes.front();
        m_bytes = m_bytes.subspan(1);
        return first;
    }

    Song song(uint number)
    {
        Song song;
        song.id = QUuid(number + 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
        // Half seconds, some of them negative, and the next number above each.
        const std::uint8_t duration = byte();
        song.duration = (duration & 0x7F) * 0.5 - 2.0;
        if ((duration & 0x80) != 0)
            song.duration = std::nextafter(song.duration, std::numeric_limits<double>::max());
        const std::uint8_t flags = byte();
        song.size = flags & 3;
        song.path = (flags & 4) != 0 ? QStringLiteral("/again.mp3") : QString::number(number);
        song.artist = line();
        song.title = line();
        song.name = line();
        return song;
    }

    QString line()
    {
        QString text;
        while (!m_bytes.empty()) {
            const std::uint8_t first = byte();
            if (first == '\n')
                break;
            if (first == DOUBLING) {
                text += text.first(std::clamp<qsizetype>(LONGEST_LINE - text.size(), 0, text.size()));
            } else if (first < 0x80) {
                text += QChar(first);
            } else {
                const std::uint8_t lower = byte();
                text += QChar(lower, byte());
            }
        }
        return text;
    }

    std::span<const std::uint8_t> m_bytes;
};

void checkTexts(const QString &a, const QString &b)
{
    const std::string normalA = normalizeString(a);
    const std::string normalB = normalizeString(b);
    const QString directA = direct::normalizeString(a);
    require(normalA == directA.toStdString(), "normalising is its replacements");

    const auto distance =
        static_cast<std::size_t>(direct::levenshteinDistance(directA, direct::normalizeString(b)));
    require(levenshteinDistance(normalA, normalB) == distance, "the distance is that of the full table");
    require(levenshteinDistance(normalB, normalA, distance) == distance, "so is that up to a limit");
    require(distance == 0 || levenshteinDistance(normalA, normalB, distance - 1) >= distance,
            "a distance above the limit stays above it");
}

void checkPair(const PreparedSongs &songs, SongIndex a, SongIndex b)
{
    require(songsMatch(songs, songs[a], songs[b]) == direct::songsMatch(songs.song(a), songs.song(b)),
            "two songs match as the rule says");
    require(artistsCompatible(songs, songs[a], songs[b]) ==
                direct::artistsCompatible(songs.song(a), songs.song(b)),
            "two artists are compatible as the rule says");
}

/// The analysis builds this index for large buckets only.
void checkArtistIndex(const PreparedSongs &songs)
{
    std::vector<PreparedSong> bucket;
    for (SongIndex song = 0; song < songs.size(); ++song)
        bucket.push_back(songs[song]);
    ArtistIndex index(songs);
    index.build(bucket);
    for (const PreparedSong &song : bucket) {
        std::vector<bool> isFound(bucket.size());
        for (const std::uint32_t artist : index.matchingArtists(song)) {
            for (const BucketPosition position : index.songsOf(artist))
                isFound[position] = true;
        }
        for (std::size_t i = 0; i < bucket.size(); ++i)
            require(isFound[i] == artistsMatch(songs, song, bucket[i]), "the index finds matching artists");
    }
}

void checkGroups(const QList<Song> &songs)
{
    DuplicateFinder finder(songs);
    finder.groupByTitle();
    finder.groupByFileName();
    finder.prepareBatches();
    require(finder.groupNextBatchByArtistAndTitle() == DuplicateFinder::Batches::Done, "there is one batch");
    finder.groupByWholeSeconds();
    const QList<DuplicateGroup> groups = finder.takeGroups();
    const QList<DuplicateGroup> expected = direct::analyzeDuplicates(songs);
    require(std::equal(groups.begin(), groups.end(), expected.begin(), expected.end(),
                       [](const DuplicateGroup &a, const DuplicateGroup &b) {
                           return a.original == b.original && a.duplicates == b.duplicates &&
                                  a.color == b.color;
                       }),
            "the groups are those of the direct analysis");
}

} // namespace
} // namespace sonavo

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace sonavo;
    const QList<Song> list = SongReader({data, size}).songs();
    const PreparedSongs songs(list);
    for (SongIndex i = 0; i < songs.size(); ++i) {
        for (SongIndex other = 0; other < songs.size(); ++other)
            checkPair(songs, i, other);
        checkTexts(songs.song(i).artist, songs.song(i).title);
        checkTexts(songs.song(i).title, songs.song(i).name);
    }
    checkArtistIndex(songs);
    checkGroups(list);
    return 0;
}
