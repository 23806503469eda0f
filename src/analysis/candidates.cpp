#include "analysis/candidates.h"

#include "analysis/distance.h"
#include "analysis/matching.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace sonavo {
namespace {

/// If a seed can have more songs to check than this, indexing the bucket's artists pays off.
constexpr std::size_t ARTIST_INDEX_THRESHOLD = 256;
/// How many artists can be compared in the time that it takes to check one song.
constexpr std::size_t ARTISTS_PER_SONG = 4;

/// If a seed can have more songs to check than this and there are more artists than that, looking for
/// n-grams pays off.
constexpr std::size_t GRAMS_THRESHOLD = 512;
constexpr std::size_t MANY_ARTISTS = 512;

/// The length of the longest texts that can be as similar to one of this length.
std::size_t longestSimilar(std::size_t length, double least)
{
    std::size_t longest = length;
    while (longest + 1 - length <= largestDistance(longest + 1, least))
        ++longest;
    return longest;
}

/// Whether one text may contain the other.
bool mayContain(std::uint64_t bigramsA, std::uint64_t bigramsB)
{
    return (bigramsA & ~bigramsB) == 0 || (bigramsB & ~bigramsA) == 0;
}

} // namespace

CandidateIndex::CandidateIndex(const PreparedSongs &songs)
    : m_songs(songs)
    , m_wordLists(songs.wordCount())
    , m_artists(songs)
    , m_grams(songs)
    , m_fullTexts(songs)
{}

void CandidateIndex::build(std::span<const SongIndex> bucket)
{
    sort(bucket);
    m_artistPairs.clear();
    m_texts.clear();
    m_longestArtist = 0;
    for (const PreparedSong &song : m_bucket) {
        m_artistPairs.push_back(song.artistPairs);
        m_texts.push_back({song.fullPairs, song.titleBigrams, song.nameBigrams});
        m_longestArtist = std::max(m_longestArtist, song.artistLength);
    }
    m_isRemoved.assign(m_bucket.size(), 0);
    listWords();
    std::size_t longest = 0;
    for (const std::uint32_t word : m_bucketWords)
        longest = std::max<std::size_t>(longest, m_wordLists[word].end - m_wordLists[word].begin);
    m_hasArtists = longest > ARTIST_INDEX_THRESHOLD;
    if (m_hasArtists)
        m_artists.build(m_bucket);
    m_hasFullTexts = longest > GRAMS_THRESHOLD && areTextsMoreDistinct();
    if (m_hasFullTexts)
        m_fullTexts.build(m_bucket);
    m_hasGrams = !m_hasFullTexts && longest > GRAMS_THRESHOLD && m_artists.artistCount() > MANY_ARTISTS;
    if (m_hasGrams)
        m_grams.build(m_bucket);
}

void CandidateIndex::sort(std::span<const SongIndex> bucket)
{
    m_order.resize(bucket.size());
    std::iota(m_order.begin(), m_order.end(), BucketPosition{0});
    m_bucket.clear();
    for (const SongIndex song : bucket)
        m_bucket.push_back(m_songs[song]);
    const auto isShorter = [](const PreparedSong &a, const PreparedSong &b) {
        return a.duration < b.duration;
    };
    const auto [shortest, longest] = std::minmax_element(m_bucket.begin(), m_bucket.end(), isShorter);
    m_isSorted = !m_bucket.empty() && longest->duration - shortest->duration > MATCH_DURATION_DIFF;
    if (!m_isSorted)
        return;
    std::vector<BucketPosition> sorted = m_order;
    std::sort(sorted.begin(), sorted.end(), [&](BucketPosition a, BucketPosition b) {
        const double durationA = m_bucket[a].duration;
        const double durationB = m_bucket[b].duration;
        return durationA != durationB ? durationA < durationB : a < b;
    });
    for (BucketPosition i = 0; i < sorted.size(); ++i) {
        m_order[sorted[i]] = i;
        m_bucket[i] = m_songs[bucket[sorted[i]]];
    }
}

void CandidateIndex::listWords()
{
    for (const std::uint32_t word : m_bucketWords)
        m_wordLists[word] = {};
    m_bucketWords.clear();
    // Count, lay out, fill: one array holds all lists.
    for (const PreparedSong &song : m_bucket) {
        for (const std::uint32_t word : m_songs.titleWordsOf(song)) {
            if (m_wordLists[word].end++ == 0)
                m_bucketWords.push_back(word);
        }
    }
    std::uint32_t begin = 0;
    for (const std::uint32_t word : m_bucketWords) {
        const std::uint32_t count = m_wordLists[word].end;
        m_wordLists[word] = {begin, begin};
        begin += count;
    }
    m_entries.resize(begin);
    for (BucketPosition i = 0; i < m_bucket.size(); ++i) {
        for (const std::uint32_t word : m_songs.titleWordsOf(m_bucket[i]))
            m_entries[m_wordLists[word].end++] = i;
    }
}

void CandidateIndex::remove(BucketPosition position)
{
    m_isRemoved[position] = 1;
    if (m_hasGrams)
        m_grams.remove(position);
    if (m_hasFullTexts)
        m_fullTexts.remove(position);
}

void CandidateIndex::findCandidates(std::span<const BucketPosition> seeds, Query &query) const
{
    query.m_candidates.resize(std::max(query.m_candidates.size(), seeds.size()));
    query.m_searches.clear();
    std::vector<std::size_t> searched;
    for (std::size_t i = 0; i < seeds.size(); ++i) {
        Candidates &candidates = query.m_candidates[i];
        candidates.clear();
        if (propose(seeds[i], query, candidates))
            continue;
        const Window window = windowOf(m_bucket[seeds[i]]);
        query.m_searches.push_back({&m_bucket[seeds[i]], window.begin, window.end, &candidates});
        searched.push_back(i);
    }
    if (searched.empty())
        return;
    if (m_hasFullTexts)
        m_fullTexts.findMatching(query.m_searches);
    else
        m_grams.findMatching(query.m_searches);
    for (const std::size_t i : searched)
        dropRepeated(seeds[i], query, query.m_candidates[i]);
}

bool CandidateIndex::propose(BucketPosition seed, Query &query, Candidates &candidates) const
{
    const Window window = windowOf(m_bucket[seed]);
    const std::size_t byWords = countByWords(m_bucket[seed], window);
    if (byWords == 0)
        return true;
    const std::size_t byWindow = window.end - window.begin;
    const std::size_t least = std::min(byWords, byWindow);
    if ((m_hasGrams || m_hasFullTexts) && least > GRAMS_THRESHOLD)
        return false;
    // Finding the matching artists takes a look at every artist.
    if (m_hasArtists && least > m_artists.artistCount() / ARTISTS_PER_SONG &&
        proposeByArtists(seed, window, least, query, candidates))
        return true;
    if (byWindow < byWords)
        proposeWindow(seed, window, candidates);
    else
        proposeByWords(seed, window, query, candidates);
    return true;
}

CandidateIndex::Window CandidateIndex::windowOf(const PreparedSong &seed) const
{
    if (!m_isSorted)
        return {0, static_cast<BucketPosition>(m_bucket.size())};
    // The same differences as in songsMatch(), so that rounding leaves nobody out.
    const auto begin = std::partition_point(m_bucket.begin(), m_bucket.end(), [&](const PreparedSong &song) {
        return seed.duration - song.duration > MATCH_DURATION_DIFF;
    });
    const auto end = std::partition_point(begin, m_bucket.end(), [&](const PreparedSong &song) {
        return song.duration - seed.duration <= MATCH_DURATION_DIFF;
    });
    return {static_cast<BucketPosition>(begin - m_bucket.begin()),
            static_cast<BucketPosition>(end - m_bucket.begin())};
}

bool CandidateIndex::areTextsMoreDistinct() const
{
    constexpr std::size_t SAMPLES = 256;
    // Neighbours play for about as long, and some have copies beside them.
    constexpr std::size_t STEP = 7;
    std::size_t ofSimilarArtists = 0;
    std::size_t ofMatchingTexts = 0;
    for (std::size_t i = 0; i < SAMPLES; ++i) {
        const std::size_t first = i * (m_bucket.size() - STEP) / SAMPLES;
        const PreparedSong &a = m_bucket[first];
        const PreparedSong &b = m_bucket[first + 1 + i % STEP];
        ofSimilarArtists += artistsMatch(m_songs, a, b) ? 1U : 0U;
        ofMatchingTexts += textsMatch(m_songs, a, b) ? 1U : 0U;
    }
    return ofSimilarArtists >= SAMPLES / 8 && ofMatchingTexts <= ofSimilarArtists / 2;
}

std::span<const BucketPosition> CandidateIndex::songsWith(std::uint32_t word, Window window) const
{
    const WordList list = m_wordLists[word];
    const auto songs = std::span(m_entries).subspan(list.begin, list.end - list.begin);
    if (!m_isSorted)
        return songs;
    const auto begin = std::lower_bound(songs.begin(), songs.end(), window.begin);
    return {begin, std::lower_bound(begin, songs.end(), window.end)};
}

std::size_t CandidateIndex::countByWords(const PreparedSong &seed, Window window) const
{
    std::size_t count = 0;
    for (const std::uint32_t word : m_songs.titleWordsOf(seed))
        count += songsWith(word, window).size();
    return count;
}

void CandidateIndex::proposeByWords(BucketPosition seed, Window window, Query &query,
                                    Candidates &candidates) const
{
    query.m_lastSeeds.resize(std::max(query.m_lastSeeds.size(), m_bucket.size()));
    query.m_lastSeeds[seed] = ++query.m_seedCount;
    const std::size_t limit = largestFullDistance(seed);
    for (const std::uint32_t word : m_songs.titleWordsOf(m_bucket[seed])) {
        for (const BucketPosition position : songsWith(word, window)) {
            if (isRemoved(position) || query.m_lastSeeds[position] == query.m_seedCount)
                continue;
            query.m_lastSeeds[position] = query.m_seedCount;
            if (mayBeSimilar(m_texts[seed], m_texts[position], limit))
                candidates.push_back(position);
        }
    }
}

void CandidateIndex::proposeWindow(BucketPosition seed, Window window, Candidates &candidates) const
{
    const std::size_t longest = std::min<std::size_t>(
        m_longestArtist, longestSimilar(m_bucket[seed].artistLength, MATCH_ARTIST_SIMILARITY));
    appendNear(candidates, window.begin,
               std::span(m_artistPairs).subspan(window.begin, window.end - window.begin), m_artistPairs[seed],
               largestDistance(longest, MATCH_ARTIST_SIMILARITY));
    const std::size_t limit = largestFullDistance(seed);
    std::erase_if(candidates, [&](BucketPosition position) {
        return !mayBeSimilar(m_texts[seed], m_texts[position], limit) || isRemoved(position) ||
               position == seed;
    });
}

std::size_t CandidateIndex::largestFullDistance(BucketPosition seed) const
{
    const std::size_t longest = longestSimilar(m_bucket[seed].fullLength, MATCH_TITLE_SIMILARITY);
    return largestDistance(longest, MATCH_TITLE_SIMILARITY);
}

bool CandidateIndex::mayBeSimilar(const TextBits &a, const TextBits &b, std::size_t limit)
{
    return mayContain(a.title, b.title) || mayContain(a.name, b.name) || mayBeWithin(limit, a.full, b.full);
}

void CandidateIndex::dropRepeated(BucketPosition seed, Query &query, Candidates &candidates) const
{
    query.m_lastSeeds.resize(std::max(query.m_lastSeeds.size(), m_bucket.size()));
    query.m_lastSeeds[seed] = ++query.m_seedCount;
    std::erase_if(candidates, [&](BucketPosition position) {
        return isRemoved(position) ||
               std::exchange(query.m_lastSeeds[position], query.m_seedCount) == query.m_seedCount;
    });
}

bool CandidateIndex::proposeByArtists(BucketPosition seed, Window window, std::size_t most, Query &query,
                                      Candidates &candidates) const
{
    const std::size_t limit = largestFullDistance(seed);
    for (const std::uint32_t artist : m_artists.matchingArtists(m_bucket[seed], query.m_artists)) {
        const auto songs = m_artists.songsOf(artist);
        const auto begin = std::lower_bound(songs.begin(), songs.end(), window.begin);
        const auto end = std::lower_bound(begin, songs.end(), window.end);
        for (auto position = begin; position != end; ++position) {
            if (mayBeSimilar(m_texts[seed], m_texts[*position], limit) && !isRemoved(*position) &&
                *position != seed)
                candidates.push_back(*position);
        }
        if (candidates.size() > most) {
            candidates.clear();
            return false;
        }
    }
    return true;
}

} // namespace sonavo
