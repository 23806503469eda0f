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
            m_artists.push_back({bucket[i].artistLength, i});
        }
    }
    std::sort(m_artists.begin(), m_artists.end(),
              [](const Artist &a, const Artist &b) { return a.length < b.length; });
    m_pairs.clear();
    m_lengthBegins.clear();
    for (std::uint32_t i = 0; i < m_artists.size(); ++i) {
        const PreparedSong &song = bucket[m_artists[i].song];
        m_artistNumbers[song.artistId] = i;
        m_pairs.push_back(song.artistPairs);
        if (i == 0 || m_artists[i - 1].length != song.artistLength)
            m_lengthBegins.push_back(i);
    }
    m_lengthBegins.push_back(static_cast<std::uint32_t>(m_artists.size()));

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

const std::vector<std::uint32_t> &ArtistIndex::matchingArtists(const PreparedSong &song, Query &query) const
{
    // Where many artists are alike, the lists of all of them would grow with the square of their number.
    constexpr std::size_t MOST_KNOWN = 1 << 22;
    if (query.m_buildCount != m_buildCount) {
        query.m_buildCount = m_buildCount;
        query.m_known.clear();
        query.m_known.resize(m_artists.size());
        query.m_knownSize = 0;
    }
    const std::uint32_t self = m_artistNumbers[song.artistId];
    std::vector<std::uint32_t> &known = query.m_known[self];
    if (!known.empty())
        return known;
    const bool isAskedAgain = m_artists[self].end - m_artists[self].begin > 1;
    if (!isAskedAgain || query.m_knownSize > MOST_KNOWN) {
        findMatching(self, query.m_last);
        return query.m_last;
    }
    findMatching(self, known);
    query.m_knownSize += known.size();
    return known;
}

void ArtistIndex::findMatching(std::uint32_t self, std::vector<std::uint32_t> &matching) const
{
    matching.clear();
    const std::size_t length = m_artists[self].length;
    const std::uint64_t pairs = m_pairs[self];
    for (std::size_t i = 0; i + 1 < m_lengthBegins.size(); ++i) {
        const std::uint32_t begin = m_lengthBegins[i];
        const std::size_t other = m_artists[begin].length;
        const std::size_t limit = largestDistance(std::max(length, other), MATCH_ARTIST_SIMILARITY);
        if (std::max(length, other) - std::min(length, other) <= limit)
            appendNear(matching, begin, std::span(m_pairs).subspan(begin, m_lengthBegins[i + 1] - begin),
                       pairs, limit);
    }
    const PreparedSong &song = m_bucket[m_artists[self].song];
    std::erase_if(matching, [&](std::uint32_t artist) {
        return artist != self && !artistsMatch(m_songs, song, m_bucket[m_artists[artist].song]);
    });
}

std::span<const BucketPosition> ArtistIndex::songsOf(std::uint32_t artist) const
{
    const Artist &entry = m_artists[artist];
    return std::span(m_entries).subspan(entry.begin, entry.end - entry.begin);
}

} // namespace sonavo
