#include "analysis/candidates.h"

namespace sonavo {
namespace {

/// If a seed has more songs to check than this, indexing the bucket's artists pays off.
constexpr std::size_t ARTIST_INDEX_THRESHOLD = 256;
/// How many artists can be compared in the time that it takes to check one song.
constexpr std::size_t ARTISTS_PER_SONG = 4;
/// How many word-list entries cost as much as one entry of an artist; word lists shrink as they are read.
constexpr std::size_t WORD_ENTRIES_PER_ARTIST_ENTRY = 2;

} // namespace

CandidateIndex::CandidateIndex(const PreparedSongs &songs)
    : m_songs(songs)
    , m_wordLists(songs.wordCount())
    , m_artists(songs)
{}

void CandidateIndex::build(std::span<const SongIndex> bucket)
{
    for (const std::uint32_t word : m_bucketWords)
        m_wordLists[word] = {};
    m_bucketWords.clear();
    m_hasArtists = false;
    m_bucket.clear();
    for (const SongIndex song : bucket)
        m_bucket.push_back(m_songs[song]);
    m_isRemoved.assign(m_bucket.size(), false);
    m_lastQuery.assign(m_bucket.size(), 0);
    m_query = 0;

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

std::span<const BucketPosition> CandidateIndex::candidatesFor(BucketPosition seed)
{
    m_candidates.clear();
    const std::size_t byWords = countByWords(m_bucket[seed]);
    if (byWords == 0)
        return {};
    if (!m_hasArtists && byWords > ARTIST_INDEX_THRESHOLD) {
        m_artists.build(m_bucket);
        m_hasArtists = true;
    }
    // Finding the matching artists takes a look at every artist.
    if (m_hasArtists && byWords > m_artists.artistCount() / ARTISTS_PER_SONG &&
        countByArtists(m_bucket[seed]) * WORD_ENTRIES_PER_ARTIST_ENTRY < byWords)
        proposeByArtists(seed);
    else
        proposeByWords(seed);
    return m_candidates;
}

std::size_t CandidateIndex::countByWords(const PreparedSong &seed) const
{
    std::size_t count = 0;
    for (const std::uint32_t word : m_songs.titleWordsOf(seed))
        count += m_wordLists[word].end - m_wordLists[word].begin;
    return count;
}

std::size_t CandidateIndex::countByArtists(const PreparedSong &seed)
{
    std::size_t count = 0;
    for (const std::uint32_t artist : m_artists.matchingArtists(seed))
        count += m_artists.songsOf(artist).size();
    return count;
}

void CandidateIndex::proposeByWords(BucketPosition seed)
{
    m_lastQuery[seed] = ++m_query;
    for (const std::uint32_t word : m_songs.titleWordsOf(m_bucket[seed])) {
        WordList &list = m_wordLists[word];
        std::uint32_t kept = list.begin;
        for (std::uint32_t i = list.begin; i < list.end; ++i) {
            const BucketPosition position = m_entries[i];
            if (m_isRemoved[position])
                continue;
            m_entries[kept++] = position;
            if (m_lastQuery[position] != m_query) {
                m_lastQuery[position] = m_query;
                m_candidates.push_back(position);
            }
        }
        list.end = kept;
    }
}

void CandidateIndex::proposeByArtists(BucketPosition seed)
{
    for (const std::uint32_t artist : m_artists.matchingArtists(m_bucket[seed])) {
        for (const BucketPosition position : m_artists.songsOf(artist)) {
            if (!m_isRemoved[position] && position != seed)
                m_candidates.push_back(position);
        }
    }
}

} // namespace sonavo
