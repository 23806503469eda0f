#include "analysis/bucket_clusterer.h"

#include "analysis/bounded_distance.h"
#include "analysis/normalization.h"
#include "analysis/similarity.h"

#include <algorithm>
#include <limits>

namespace sonavo {
namespace {

/// Places to look at for one seed from which on an index by artists pays.
constexpr std::size_t LEAST_FOR_ARTIST_INDEX = 256;
/// Artists that can be looked at in the time that one place takes.
constexpr std::size_t ARTISTS_PER_PLACE = 4;
/// Places in the lists of words, which get shorter as songs are placed, that cost as much as one of an
/// artist.
constexpr std::size_t PLACES_BY_WORD_FOR_ONE_BY_ARTIST = 2;
constexpr std::uint32_t NO_SEED = std::numeric_limits<std::uint32_t>::max();

std::size_t longestArtistAndTitle(const PreparedSongs &songs)
{
    std::size_t longest = 0;
    for (std::size_t i = 0; i < songs.size(); ++i)
        longest = std::max<std::size_t>(longest, songs[i].artistAndTitleLength);
    return longest;
}

std::vector<std::size_t> largestDistances(std::size_t longestText, double threshold)
{
    std::vector<std::size_t> distances{0};
    for (std::size_t length = 1; length <= longestText; ++length)
        distances.push_back(largestDistance(length, threshold));
    return distances;
}

} // namespace

BucketClusterer::BucketClusterer(const QList<Song> &songs, const PreparedSongs &prepared)
    : m_songs(songs)
    , m_prepared(prepared)
    , m_titleLimits(largestDistances(longestArtistAndTitle(prepared), MATCH_TITLE_SIMILARITY))
    , m_wordLists(prepared.wordCount())
    , m_artistIndex(prepared, largestDistances(longestArtistAndTitle(prepared), MATCH_ARTIST_SIMILARITY))
{}

std::vector<BucketClusterer::Positions> BucketClusterer::clustersOf(const Positions &bucket)
{
    std::vector<Positions> clusters;
    makeWordLists(bucket);
    for (Place place = 0; place < bucket.size(); ++place) {
        if (m_isPlaced[place])
            continue;
        m_isPlaced[place] = true;
        gatherCandidates(place);

        Positions cluster;
        for (const Place candidate : m_candidates) {
            if (titlesMatch(bucket, place, candidate)) {
                m_isPlaced[candidate] = true;
                cluster.push_back(bucket[candidate]);
            }
        }
        if (!cluster.empty()) {
            cluster.insert(cluster.begin(), bucket[place]);
            std::sort(cluster.begin() + 1, cluster.end());
            clusters.push_back(std::move(cluster));
        }
    }
    forgetWordLists();
    return clusters;
}

void BucketClusterer::makeWordLists(const Positions &bucket)
{
    m_bucket.clear();
    for (const std::size_t position : bucket)
        m_bucket.push_back(m_prepared[position]);
    m_lowered.assign(bucket.size(), {});
    m_isPlaced.assign(bucket.size(), false);
    m_lastSeed.assign(bucket.size(), NO_SEED);

    // Count, lay out, fill: one array holds all lists.
    for (const PreparedSong &song : m_bucket) {
        for (const std::uint32_t word : m_prepared.titleWords(song)) {
            if (m_wordLists[word].end++ == 0)
                m_usedWords.push_back(word);
        }
    }
    std::uint32_t start = 0;
    for (const std::uint32_t word : m_usedWords) {
        const std::uint32_t size = m_wordLists[word].end;
        m_wordLists[word] = {start, start};
        start += size;
    }
    m_places.resize(start);
    for (Place place = 0; place < m_bucket.size(); ++place) {
        for (const std::uint32_t word : m_prepared.titleWords(m_bucket[place]))
            m_places[m_wordLists[word].end++] = place;
    }
}

void BucketClusterer::forgetWordLists()
{
    for (const std::uint32_t word : m_usedWords)
        m_wordLists[word] = {};
    m_usedWords.clear();
    m_isArtistIndexBuilt = false;
}

void BucketClusterer::gatherCandidates(Place seed)
{
    m_candidates.clear();
    const std::size_t byWords = countByWords(seed);
    if (byWords <= 1)
        return;
    if (!m_isArtistIndexBuilt && byWords > LEAST_FOR_ARTIST_INDEX) {
        m_artistIndex.build(m_bucket);
        m_isArtistIndexBuilt = true;
    }
    // To find the similar artists takes a look at every artist.
    if (m_isArtistIndexBuilt && byWords > m_artistIndex.artistCount() / ARTISTS_PER_PLACE &&
        countByArtists(seed) * PLACES_BY_WORD_FOR_ONE_BY_ARTIST < byWords)
        gatherByArtists(seed);
    else
        gatherByWords(seed);
}

std::size_t BucketClusterer::countByWords(Place seed) const
{
    std::size_t count = 0;
    for (const std::uint32_t word : m_prepared.titleWords(m_bucket[seed]))
        count += m_wordLists[word].end - m_wordLists[word].start;
    return count;
}

std::size_t BucketClusterer::countByArtists(Place seed)
{
    std::size_t count = 0;
    for (const std::uint32_t artist : m_artistIndex.similarArtists(m_bucket[seed]))
        count += m_artistIndex.placesOf(artist).size();
    return count;
}

void BucketClusterer::gatherByWords(Place seed)
{
    const PreparedSong &song = m_bucket[seed];
    for (const std::uint32_t word : m_prepared.titleWords(song)) {
        WordList &list = m_wordLists[word];
        std::uint32_t kept = list.start;
        for (std::uint32_t i = list.start; i < list.end; ++i) {
            const Place place = m_places[i];
            if (m_isPlaced[place])
                continue;
            m_places[kept++] = place;
            if (m_lastSeed[place] != seed) {
                m_lastSeed[place] = seed;
                const PreparedSong &other = m_bucket[place];
                const bool isSameArtist = song.artistNumber == other.artistNumber;
                if (areDurationsClose(song.duration, other.duration) &&
                    (isSameArtist || m_artistIndex.areSimilar(song, other)))
                    m_candidates.push_back(place);
            }
        }
        list.end = kept;
    }
}

void BucketClusterer::gatherByArtists(Place seed)
{
    const PreparedSong &song = m_bucket[seed];
    for (const std::uint32_t artist : m_artistIndex.similarArtists(song)) {
        for (const Place place : m_artistIndex.placesOf(artist)) {
            const PreparedSong &other = m_bucket[place];
            if (!m_isPlaced[place] && areDurationsClose(song.duration, other.duration) &&
                shareTitleWord(song, other))
                m_candidates.push_back(place);
        }
    }
}

bool BucketClusterer::shareTitleWord(const PreparedSong &a, const PreparedSong &b) const
{
    const std::span<const std::uint32_t> wordsA = m_prepared.titleWords(a);
    const std::span<const std::uint32_t> wordsB = m_prepared.titleWords(b);
    return std::find_first_of(wordsA.begin(), wordsA.end(), wordsB.begin(), wordsB.end()) != wordsA.end();
}

bool BucketClusterer::titlesMatch(const Positions &bucket, Place seed, Place candidate)
{
    const PreparedSong &a = m_bucket[seed];
    const PreparedSong &b = m_bucket[candidate];
    return areArtistAndTitleSimilar(seed, candidate) ||
           (a.title.mayContainOrBeIn(b.title) &&
            oneContainsTheOther(loweredTitle(bucket, seed), loweredTitle(bucket, candidate))) ||
           (a.name.mayContainOrBeIn(b.name) &&
            oneContainsTheOther(loweredName(bucket, seed), loweredName(bucket, candidate)));
}

bool BucketClusterer::areArtistAndTitleSimilar(Place seed, Place candidate)
{
    const PreparedSong &a = m_bucket[seed];
    const PreparedSong &b = m_bucket[candidate];
    if (a.artistNumber == b.artistNumber && a.titleNumber == b.titleNumber)
        return true;
    const std::size_t limit = m_titleLimits[std::max(a.artistAndTitleLength, b.artistAndTitleLength)];
    return mayBeWithin(limit, a.artistAndTitleLength, b.artistAndTitleLength, a.bag, b.bag) &&
           boundedDistance(artistAndTitle(a, m_seedText), artistAndTitle(b, m_candidateText), limit) <= limit;
}

const QString &BucketClusterer::loweredTitle(const Positions &bucket, Place place)
{
    QString &lowered = m_lowered[place].title;
    if (lowered.isNull())
        lowerInto(lowered, songAt(bucket[place]).title);
    return lowered;
}

const QString &BucketClusterer::loweredName(const Positions &bucket, Place place)
{
    QString &lowered = m_lowered[place].name;
    if (lowered.isNull())
        lowerInto(lowered, songAt(bucket[place]).name);
    return lowered;
}

std::string_view BucketClusterer::artistAndTitle(const PreparedSong &song, std::string &buffer) const
{
    const std::string_view artist = m_prepared.artist(song);
    const std::string_view title = m_prepared.title(song);
    if (artist.empty())
        return title;
    buffer = artist;
    if (!title.empty())
        buffer += ' ';
    buffer += title;
    return buffer;
}

const Song &BucketClusterer::songAt(std::size_t position) const
{
    return m_songs[static_cast<qsizetype>(position)];
}

} // namespace sonavo
