#include "analysis/artist_index.h"
#include "analysis/bounded_distance.h"
#include "analysis/bucket_clusterer.h"
#include "analysis/clustering.h"
#include "analysis/direct_analysis.h"
#include "analysis/duplicate_finder.h"
#include "analysis/normalization.h"
#include "analysis/prepared_songs.h"
#include "analysis/similarity.h"
#include "fuzz/fuzzer.h"

#include <QList>
#include <QString>
#include <QUuid>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numeric>
#include <span>
#include <string>
#include <vector>

namespace sonavo {
namespace {

/// The direct analysis compares every two songs in every step.
constexpr qsizetype MOST_SONGS = 5;

/// Reads songs from bytes: two for its numbers, then its artist, title and file name, each up to the end of a
/// line. Bytes of ASCII stand for themselves, so that a mutated text is still a text, but for one that
/// doubles the line so far: long texts have an arithmetic of their own.
class SongReader
{
public:
    explicit SongReader(std::span<const std::uint8_t> bytes)
        : m_bytes(bytes)
    {}

    QList<Song> songs()
    {
        QList<Song> songs;
        while (!m_bytes.empty() && songs.size() < MOST_SONGS)
            songs.append(song(songs.size()));
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

    Song song(qsizetype number)
    {
        Song song;
        song.id = QUuid(static_cast<uint>(number) + 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
        song.duration = duration(byte());
        const std::uint8_t numbers = byte();
        song.size = numbers & 3;
        song.path = (numbers & 4) != 0 ? QStringLiteral("/again.mp3") : QString::number(number);
        song.artist = line();
        song.title = line();
        song.name = line();
        return song;
    }

    /// Half seconds, some of them negative, and the next number above each.
    static double duration(std::uint8_t byte)
    {
        const double halves = (byte & 0x7F) * 0.5 - 2.0;
        return (byte & 0x80) != 0 ? std::nextafter(halves, std::numeric_limits<double>::max()) : halves;
    }

    QString line()
    {
        QString text;
        while (!m_bytes.empty()) {
            const std::uint8_t first = byte();
            if (first == '\n')
                break;
            if (first == DOUBLING)
                text += text.first(std::clamp<qsizetype>(LONGEST_LINE - text.size(), 0, text.size()));
            else
                text += QChar(character(first));
        }
        return text;
    }

    char16_t character(std::uint8_t first)
    {
        // What lower-casing turns into ASCII or into several characters, what composes, blanks that are none
        // in ASCII, halves of characters, and whole ones of two halves when two of them meet.
        static constexpr std::u16string_view SPECIAL = u"\u212A\u0130\u0131\u00DF\u1E9E\u03A3\u03C3\u03C2"
                                                       u"\u00C9\u00E9\u0301\u0307\u0323\u212B\u00C5\u030A"
                                                       u"\u1112\u1161\u11AB\uD55C\uFB01\uFF21\u0085\u00A0"
                                                       u"\u2003\u200D\uFE0F\u041F\u043F\u591C\uFFFD";
        static constexpr char16_t HALVES[] = {0xD801, 0xDC00, 0xDC28, 0xD83C, 0xDDEB, 0xD83D, 0xDE00, 0xDBFF};
        constexpr std::uint8_t FIRST_HALF = 0xB0;
        constexpr std::uint8_t FIRST_OF_THREE = 0xC0;
        if (first < 0x80)
            return first;
        if (first < FIRST_HALF)
            return SPECIAL[(first - 0x80U) % SPECIAL.size()];
        if (first < FIRST_OF_THREE)
            return HALVES[(first - FIRST_HALF) % std::size(HALVES)];
        const unsigned high = byte();
        return static_cast<char16_t>(high << 8 | byte());
    }

    std::span<const std::uint8_t> m_bytes;
};

std::string checkNormalization(const QString &text)
{
    std::string normalized = normalizeString(text);
    require(normalized == direct::normalizeString(text).toStdString(), "normalising is its replacements");
    require(normalizeString(QString::fromStdString(normalized)) == normalized,
            "normalising twice is normalising once");
    QString lowered;
    lowerInto(lowered, text);
    require(lowered == text.toLower(), "lower-casing is Qt's");
    return normalized;
}

void checkLimit(const std::string &a, const std::string &b, std::size_t distance, std::size_t limit)
{
    const std::size_t bounded = boundedDistance(a, b, limit);
    require(distance <= limit ? bounded == distance : bounded > limit,
            "the bounded distance is the distance up to its limit");
    require(distance > limit || mayBeWithin(limit, a.size(), b.size(), characterBag(a), characterBag(b)),
            "lengths and bags rule out no text that is near enough");
}

void checkSimilarity(const std::string &a, const std::string &b, std::size_t distance)
{
    const std::size_t longer = std::max(a.size(), b.size());
    if (longer == 0)
        return;
    const double similarity = calculateSimilarity(a, b);
    require(similarity == 1.0 - static_cast<double>(distance) / static_cast<double>(longer) &&
                similarity >= 0.0,
            "the similarity is the share that stays");
    for (const double threshold : {MATCH_ARTIST_SIMILARITY, MATCH_TITLE_SIMILARITY})
        require((similarity >= threshold) == (distance <= largestDistance(longer, threshold)),
                "the largest distance is the one at the threshold");
}

void checkDistances(const std::string &a, const std::string &b)
{
    const QString wideA = QString::fromStdString(a);
    const QString wideB = QString::fromStdString(b);
    const std::size_t distance = levenshteinDistance(a, b);
    require(distance == static_cast<std::size_t>(direct::levenshteinDistance(wideA, wideB)),
            "the distance is that of the full table");
    require(distance == levenshteinDistance(b, a), "distances are symmetric");
    for (const std::size_t limit : {std::size_t{0}, distance - std::min<std::size_t>(distance, 1), distance,
                                    distance + 1, a.size() + b.size()}) {
        checkLimit(a, b, distance, limit);
        checkLimit(b, a, distance, limit);
    }
    checkSimilarity(a, b, distance);
}

void checkGraphemes(const QString &a, const QString &b)
{
    require(levenshteinDistance(a, b) == levenshteinDistance(b, a), "distances of graphemes are symmetric");
    require(levenshteinDistance(a, a.normalized(QString::NormalizationForm_D)) == 0,
            "canonically equivalent texts are equal");
}

void checkTexts(const QString &a, const QString &b)
{
    // Comparing graphemes takes long.
    constexpr qsizetype MOST_UNITS = 32;
    checkDistances(checkNormalization(a), checkNormalization(b));
    checkGraphemes(a.left(MOST_UNITS), b.left(MOST_UNITS));
    require(oneContainsTheOther(a, b) == oneContainsTheOther(b, a), "containing is symmetric");
}

void checkPair(const Song &a, const Song &b)
{
    const bool isMatch = direct::songsMatch(a, b);
    require(songsMatch(a, b) == isMatch && songsMatch(b, a) == isMatch, "two songs match as the rules say");
    require(artistsCompatible(a, artistWordsOf(b), b) == direct::artistsCompatible(a, b),
            "two artists are compatible as the rules say");
}

QList<QUuid> idsOf(const QList<Song> &songs)
{
    QList<QUuid> ids;
    for (const Song &song : songs)
        ids.append(song.id);
    return ids;
}

void checkClusters(const QList<Song> &songs)
{
    const QList<QList<Song>> expected = direct::clusterSongs(songs);
    require(clusterSongs(songs) == expected, "the clusters are the direct ones");

    const PreparedSongs prepared(songs);
    std::vector<std::size_t> everything(static_cast<std::size_t>(songs.size()));
    std::iota(everything.begin(), everything.end(), std::size_t{0});
    QList<QList<QUuid>> ids;
    for (const auto &cluster : BucketClusterer(songs, prepared).clustersOf(everything)) {
        ids.append(QList<QUuid>());
        for (const std::size_t position : cluster)
            ids.back().append(songs[static_cast<qsizetype>(position)].id);
    }
    QList<QList<QUuid>> expectedIds;
    for (const QList<Song> &cluster : expected)
        expectedIds.append(idsOf(cluster));
    require(ids == expectedIds, "the clusters of a bucket are the direct ones");
}

/// The index serves large buckets only, more songs than there are here.
void checkArtistIndex(const QList<Song> &songs)
{
    const PreparedSongs prepared(songs);
    std::vector<PreparedSong> bucket;
    std::size_t longest = 0;
    for (std::size_t i = 0; i < prepared.size(); ++i) {
        bucket.push_back(prepared[i]);
        longest = std::max(longest, prepared.artist(prepared[i]).size());
    }
    std::vector<std::size_t> limits{0};
    for (std::size_t length = 1; length <= longest; ++length)
        limits.push_back(largestDistance(length, MATCH_ARTIST_SIMILARITY));

    ArtistIndex index(prepared, limits);
    index.build(bucket);
    for (const PreparedSong &song : bucket) {
        std::vector<bool> isFound(bucket.size());
        for (const std::uint32_t artist : index.similarArtists(song)) {
            for (const ArtistIndex::Place place : index.placesOf(artist))
                isFound[place] = true;
        }
        for (std::size_t i = 0; i < bucket.size(); ++i)
            require(isFound[i] == index.areSimilar(song, bucket[i]), "the index finds the similar artists");
    }
}

void checkGroups(const QList<Song> &songs)
{
    DuplicateFinder finder(songs);
    finder.groupByTitle();
    finder.groupByFileName();
    finder.prepareBatches();
    while (finder.groupNextBatchByArtistAndTitle() == DuplicateFinder::Batches::MoreToCome) {
    }
    finder.groupByWholeSeconds();
    const QList<DuplicateGroup> groups = finder.takeGroups();
    const QList<DuplicateGroup> expected = direct::analyzeDuplicates(songs);
    require(std::equal(groups.begin(), groups.end(), expected.begin(), expected.end(),
                       [](const DuplicateGroup &a, const DuplicateGroup &b) {
                           return a.original.id == b.original.id &&
                                  idsOf(a.duplicates) == idsOf(b.duplicates) && a.color == b.color;
                       }),
            "the groups are the direct ones");
}

} // namespace
} // namespace sonavo

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace sonavo;
    const QList<Song> songs = SongReader({data, size}).songs();
    for (qsizetype i = 0; i < songs.size(); ++i) {
        const Song &other = songs[i == 0 ? songs.size() - 1 : i - 1];
        checkTexts(songs[i].artist, other.artist);
        checkTexts(songs[i].title, songs[i].name);
        checkPair(songs[i], other);
    }
    checkClusters(songs);
    checkArtistIndex(songs);
    checkGroups(songs);
    return 0;
}
