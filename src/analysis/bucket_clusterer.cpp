#include "analysis/bucket_clusterer.h"

#include "analysis/bounded_distance.h"
#include "analysis/normalization.h"
#include "analysis/similarity.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace sonavo {
namespace {

constexpr std::uint32_t NO_SEED = std::numeric_limits<std::uint32_t>::max();

std::vector<std::size_t> largestDistances(std::size_t longestText, double threshold)
{
    std::vector<std::size_t> distances{0};
    for (std::size_t length = 1; length <= longestText; ++length)
        distances.push_back(largestDistance(length, threshold));
    return distances;
}

/// Whether the distance of two texts, judged by their lengths and bags alone, may be within the limit.
bool mayBeWithin(std::size_t limit, std::size_t lengthA, std::size_t lengthB, std::uint64_t bagA,
                 std::uint64_t bagB)
{
    const std::size_t difference = lengthA > lengthB ? lengthA - lengthB : lengthB - lengthA;
    return difference <= limit && static_cast<std::size_t>(std::popcount(bagA ^ bagB)) <= 2 * limit;
}

bool oneContainsTheOther(const QString &a, const QString &b)
{
    return a.size() >= b.size() ? a.contains(b) : b.contains(a);
}

} // namespace

BucketClusterer::BucketClusterer(const QList<Song> &songs, const PreparedSongs &prepared)
    : m_songs(songs)
    , m_prepared(prepared)
    , m_wordLists(prepared.wordCount())
{
    std::size_t longest = 0;
    for (std::size_t i = 0; i < prepared.size(); ++i)
        longest = std::max<std::size_t>(longest, prepared[i].artistAndTitleLength);
    m_titleLimits = largestDistances(longest, MATCH_TITLE_SIMILARITY);
    m_artistLimits = largestDistances(longest, MATCH_ARTIST_SIMILARITY);
}

std::vector<BucketClusterer::Positions> BucketClusterer::clustersOf(const Positions &bucket)
{
    std::vector<Positions> clusters;
    makeWordLists(bucket);
    for (Place place = 0; place < bucket.size(); ++place) {
        if (m_isPlaced[place])
            continue;
        m_isPlaced[place] = true;
        gatherCandidates(place);
        if (m_candidates.empty())
            continue;

        Seed seed{bucket[place], m_bucket[place]};
        Positions cluster{seed.position};
        for (const Place candidate : m_candidates) {
            if (matches(seed, bucket[candidate], m_bucket[candidate])) {
                m_isPlaced[candidate] = true;
                cluster.push_back(bucket[candidate]);
            }
        }
        if (cluster.size() > 1) {
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
}

void BucketClusterer::gatherCandidates(Place seed)
{
    m_candidates.clear();
    for (const std::uint32_t word : m_prepared.titleWords(m_bucket[seed])) {
        WordList &list = m_wordLists[word];
        std::uint32_t kept = list.start;
        for (std::uint32_t i = list.start; i < list.end; ++i) {
            const Place place = m_places[i];
            if (m_isPlaced[place])
                continue;
            m_places[kept++] = place;
            if (m_lastSeed[place] != seed) {
                m_lastSeed[place] = seed;
                m_candidates.push_back(place);
            }
        }
        list.end = kept;
    }
}

bool BucketClusterer::matches(Seed &seed, std::size_t position, const PreparedSong &candidate)
{
    return std::abs(seed.song.duration - candidate.duration) <= MATCH_DURATION_DIFF &&
           artistsMatch(seed.song, candidate) && titlesMatch(seed, position, candidate);
}

bool BucketClusterer::artistsMatch(const PreparedSong &seed, const PreparedSong &candidate) const
{
    if (seed.artistNumber == candidate.artistNumber)
        return true;
    const std::string_view a = m_prepared.artist(seed);
    const std::string_view b = m_prepared.artist(candidate);
    const std::size_t limit = m_artistLimits[std::max(a.size(), b.size())];
    return mayBeWithin(limit, a.size(), b.size(), m_prepared.artistBag(seed),
                       m_prepared.artistBag(candidate)) &&
           boundedDistance(a, b, limit) <= limit;
}

bool BucketClusterer::titlesMatch(Seed &seed, std::size_t position, const PreparedSong &candidate)
{
    if (areArtistAndTitleSimilar(seed, candidate))
        return true;

    const auto loweredOnce = [](std::optional<QString> &lowered, const QString &text) -> const QString & {
        if (!lowered)
            lowerInto(lowered.emplace(), text);
        return *lowered;
    };
    if (seed.song.title.mayContainOrBeIn(candidate.title)) {
        lowerInto(m_lowered, songAt(position).title);
        if (oneContainsTheOther(loweredOnce(seed.loweredTitle, songAt(seed.position).title), m_lowered))
            return true;
    }
    if (seed.song.name.mayContainOrBeIn(candidate.name)) {
        lowerInto(m_lowered, songAt(position).name);
        if (oneContainsTheOther(loweredOnce(seed.loweredName, songAt(seed.position).name), m_lowered))
            return true;
    }
    return false;
}

bool BucketClusterer::areArtistAndTitleSimilar(Seed &seed, const PreparedSong &candidate)
{
    if (seed.song.artistNumber == candidate.artistNumber && seed.song.titleNumber == candidate.titleNumber)
        return true;
    const std::size_t seedLength = seed.song.artistAndTitleLength;
    const std::size_t candidateLength = candidate.artistAndTitleLength;
    const std::size_t limit = m_titleLimits[std::max(seedLength, candidateLength)];
    if (!mayBeWithin(limit, seedLength, candidateLength, seed.song.bag, candidate.bag))
        return false;
    if (seed.artistAndTitle.empty())
        joinArtistAndTitle(seed.artistAndTitle, seed.song);
    joinArtistAndTitle(m_artistAndTitle, candidate);
    return boundedDistance(seed.artistAndTitle, m_artistAndTitle, limit) <= limit;
}

void BucketClusterer::joinArtistAndTitle(std::string &result, const PreparedSong &song) const
{
    result = m_prepared.artist(song);
    const std::string_view title = m_prepared.title(song);
    if (!result.empty() && !title.empty())
        result += ' ';
    result += title;
}

const Song &BucketClusterer::songAt(std::size_t position) const
{
    return m_songs[static_cast<qsizetype>(position)];
}

} // namespace sonavo
