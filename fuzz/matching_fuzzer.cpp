#include "analysis/clustering.h"
#include "analysis/direct_analysis.h"
#include "analysis/distance.h"
#include "analysis/duplicate_finder.h"
#include "analysis/find_further.h"
#include "analysis/matching.h"
#include "analysis/normalization.h"
#include "fuzz/fuzzer.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace sonavo {
namespace {

/// The direct analysis compares every two songs in every step.
constexpr qsizetype MAX_SONGS = 5;

/// ASCII stands for itself, so that a mutated text is still a text, except for one byte that doubles the text
/// so far: long texts have an arithmetic of their own. Any other byte is followed by a UTF-16 unit, the lower
/// half first; surrogates need not come in pairs. matching.dict has the units that are special.
QString textOf(const QByteArray &line)
{
    constexpr char DOUBLING = 0x7F;
    // UTF-16 units that doubling leads to: above twice the 64 that are compared at once.
    constexpr qsizetype LONGEST_TEXT = 150;
    QString text;
    for (auto byte = line.begin(); byte != line.end(); ++byte) {
        if (*byte == DOUBLING)
            text += text.first(std::clamp<qsizetype>(LONGEST_TEXT - text.size(), 0, text.size()));
        else if (static_cast<uchar>(*byte) < 0x80 || line.end() - byte < 3)
            text += QLatin1Char(*byte);
        else {
            text += QChar(static_cast<uchar>(byte[1]), static_cast<uchar>(byte[2]));
            byte += 2;
        }
    }
    return text;
}

/// Three lines are a song: two bytes for its numbers and its artist, its title, its file name.
QList<Song> songsOf(const QByteArray &bytes)
{
    const QList<QByteArray> lines = bytes.split('\n');
    QList<Song> songs;
    for (qsizetype i = 0; i < lines.size() && songs.size() < MAX_SONGS; i += 3) {
        const QByteArray first = lines[i].leftJustified(2, 'A');
        Song song;
        song.id = QUuid(static_cast<uint>(i) + 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
        // Half seconds, some of them negative, and the next number above each.
        song.duration = (first[0] & 0x7F) * 0.5 - 2.0;
        if ((first[0] & 0x80) != 0)
            song.duration = std::nextafter(song.duration, std::numeric_limits<double>::max());
        song.size = first[1] & 3;
        song.path = (first[1] & 4) != 0 ? QStringLiteral("/again.mp3") : QString::number(i);
        song.artist = textOf(first.sliced(2));
        song.title = textOf(lines.value(i + 1));
        song.name = textOf(lines.value(i + 2));
        songs.append(song);
    }
    return songs;
}

void checkTexts(const QString &a, const QString &b)
{
    const std::string normalA = normalizeString(a);
    const std::string normalB = normalizeString(b);
    const QString directA = direct::normalizeString(a);
    require(normalA == directA.toStdString(), "normalising is its replacements");

    const QString directB = direct::normalizeString(b);
    const auto distance = static_cast<std::size_t>(direct::levenshteinDistance(directA, directB));
    require(levenshteinDistance(normalA, normalB) == distance, "the distance is that of the full table");
    require(levenshteinDistance(normalB, normalA, distance) == distance, "so is that up to a limit");
    require(distance == 0 || levenshteinDistance(normalA, normalB, distance - 1) >= distance,
            "a distance above the limit stays above it");
}

/// The analysis builds this index for large buckets only.
void checkArtistIndex(const PreparedSongs &songs)
{
    std::vector<PreparedSong> bucket;
    for (SongIndex song = 0; song < songs.size(); ++song)
        bucket.push_back(songs[song]);
    ArtistIndex index(songs);
    index.build(bucket);
    ArtistIndex::Query query;
    for (const PreparedSong &song : bucket) {
        std::vector<bool> isFound(bucket.size());
        for (const std::uint32_t artist : index.matchingArtists(song, query)) {
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
    (void)finder.groupNextBatchByArtistAndTitle();
    finder.groupByWholeSeconds();
    const QList<DuplicateGroup> groups = finder.takeGroups();
    const QList<DuplicateGroup> expected = direct::analyzeDuplicates(songs);
    const auto isSame = [](const DuplicateGroup &a, const DuplicateGroup &b) {
        return a.original == b.original && a.duplicates == b.duplicates && a.color == b.color;
    };
    require(std::equal(groups.begin(), groups.end(), expected.begin(), expected.end(), isSame),
            "the groups are those of the direct analysis");

    const QList<DuplicateGroup> further = findFurther(songs, {}, [](double) {}).value();
    const QList<DuplicateGroup> expectedFurther = direct::findFurther(songs);
    require(
        std::equal(further.begin(), further.end(), expectedFurther.begin(), expectedFurther.end(), isSame),
        "the groups of looking further are those of the direct way");
}

} // namespace
} // namespace sonavo

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace sonavo;
    const QList<Song> list =
        songsOf(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    const PreparedSongs songs(list);
    for (SongIndex i = 0; i < songs.size(); ++i) {
        checkTexts(songs.song(i).artist, songs.song(i).title);
        checkTexts(songs.song(i).title, songs.song(i).name);
    }
    checkArtistIndex(songs);
    checkGroups(list);
    return 0;
}
