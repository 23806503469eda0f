#include "analysis/artist_index.h"

#include "analysis/distance.h"
#include "analysis/matching.h"

#include <algorithm>

namespace sonavo {

ArtistIndex::ArtistIndex(const PreparedSongs &songs)
    : m_songs(songs)
    , m_artistNumbers(songs.artistCount())
{}

void ArtistIndex::build(std::span<const PreparedSong> bucket)
{
    constexpr std::uint32_t NONE = UINT32_MAX;
    m_bucket = bucket;
    m_artists.clear();
    for (const PreparedSong &song : bucket)
        m_artistNumbers[song.artistId] = NONE;
    for (BucketPosition i = 0; i < bucket.size(); ++i) {
        std::uint32_t &number = m_artistNumbers[bucket[i].artistId];
        if (number == NONE) {
            number = 0;
            m_artists.push_back({bucket[i].artistBag, bucket[i].artistLength, i});
        }
    }
    std::sort(m_artists.begin(), m_artists.end(),
              [](const Artist &a, const Artist &b) { return a.length < b.length; });
    for (std::uint32_t i = 0; i < m_artists.size(); ++i)
        m_artistNumbers[bucket[m_artists[i].song].artistId] = i;

    // Count, lay out, fill: one array holds the songs of all artists.
    for (const PreparedSong &song : bucket)
        ++m_artists[m_artistNumbers[song.artistId]].end;
    std::uint32_t begin = 0;
    for (Artist &artist : m_artists) {
        const std::uint32_t count = artist.end;
        artist.begin = artist.end = begin;
        begin += count;
    }
    m_entries.resize(bucket.size());
    for (BucketPosition i = 0; i < bucket.size(); ++i)
        m_entries[m_artists[m_artistNumbers[bucket[i].artistId]].end++] = i;
    ++m_buildCount;
}

bool ArtistIndex::match(const Artist &a, const Artist &b) const
{
    const std::size_t limit = largestDistance(std::max(a.length, b.length), MATCH_ARTIST_SIMILARITY);
    return mayBeWithin(limit, a.length, b.length, a.bag, b.bag) &&
           artistsMatch(m_songs, m_bucket[a.song], m_bucket[b.song]);
}

const std::vector<std::uint32_t> &ArtistIndex::matchingArtists(const PreparedSong &song, Query &query) const
{
    // Where many artists are alike, the lists of all of them would grow with the square of their number.
    constexpr std::size_t MOST_KNOWN = 1 << 22;
    if (query.buildCount != m_buildCount) {
        query.buildCount = m_buildCount;
        query.known.clear();
        query.known.resize(m_artists.size());
        query.knownSize = 0;
    }
    const std::uint32_t self = m_artistNumbers[song.artistId];
    std::vector<std::uint32_t> &known = query.known[self];
    if (!known.empty())
        return known;
    const bool isAskedAgain = m_artists[self].end - m_artists[self].begin > 1;
    if (!isAskedAgain || query.knownSize > MOST_KNOWN) {
        findMatching(self, query.last);
        return query.last;
    }
    findMatching(self, known);
    query.knownSize += known.size();
    return known;
}

void ArtistIndex::findMatching(std::uint32_t self, std::vector<std::uint32_t> &matching) const
{
    matching.clear();
    // Outwards from the artist itself until the lengths alone differ too much: each further character adds
    // one to the difference, but less than one to the allowed distance.
    const Artist &artist = m_artists[self];
    matching.push_back(self);
    for (std::uint32_t i = self; i-- > 0;) {
        const Artist &shorter = m_artists[i];
        if (artist.length - shorter.length > largestDistance(artist.length, MATCH_ARTIST_SIMILARITY))
            break;
        if (match(artist, shorter))
            matching.push_back(i);
    }
    for (std::uint32_t i = self + 1; i < m_artists.size(); ++i) {
        const Artist &longer = m_artists[i];
        if (longer.length - artist.length > largestDistance(longer.length, MATCH_ARTIST_SIMILARITY))
            break;
        if (match(artist, longer))
            matching.push_back(i);
    }
}

std::span<const BucketPosition> ArtistIndex::songsOf(std::uint32_t artist) const
{
    const Artist &entry = m_artists[artist];
    return std::span(m_entries).subspan(entry.begin, entry.end - entry.begin);
}

} // namespace sonavo
