#include "analysis/artist_index.h"

#include "analysis/bounded_distance.h"

#include <algorithm>

namespace sonavo {

ArtistIndex::ArtistIndex(const PreparedSongs &prepared, std::vector<std::size_t> largestDistances)
    : m_prepared(prepared)
    , m_largestDistances(std::move(largestDistances))
    , m_bucketNumbers(prepared.artistCount())
{}

bool ArtistIndex::areSimilar(const PreparedSong &a, const PreparedSong &b) const
{
    const auto artistOf = [this](const PreparedSong &song) {
        return Artist{m_prepared.artistBag(song), static_cast<std::uint32_t>(m_prepared.artist(song).size()),
                      song.artistNumber};
    };
    return a.artistNumber == b.artistNumber || areSimilar(artistOf(a), artistOf(b));
}

bool ArtistIndex::areSimilar(const Artist &a, const Artist &b) const
{
    const std::size_t limit = m_largestDistances[std::max(a.length, b.length)];
    return mayBeWithin(limit, a.length, b.length, a.bag, b.bag) &&
           boundedDistance(m_prepared.artist(a.number), m_prepared.artist(b.number), limit) <= limit;
}

void ArtistIndex::build(const std::vector<PreparedSong> &bucket)
{
    m_artists.clear();
    for (const PreparedSong &song : bucket)
        m_bucketNumbers[song.artistNumber] = UINT32_MAX;
    for (const PreparedSong &song : bucket) {
        std::uint32_t &bucketNumber = m_bucketNumbers[song.artistNumber];
        if (bucketNumber == UINT32_MAX) {
            bucketNumber = 0;
            m_artists.push_back({m_prepared.artistBag(song),
                                 static_cast<std::uint32_t>(m_prepared.artist(song).size()),
                                 song.artistNumber});
        }
    }
    std::sort(m_artists.begin(), m_artists.end(), [](const Artist &a, const Artist &b) {
        return std::pair(a.length, a.number) < std::pair(b.length, b.number);
    });
    for (std::uint32_t i = 0; i < m_artists.size(); ++i)
        m_bucketNumbers[m_artists[i].number] = i;

    for (const PreparedSong &song : bucket)
        ++m_artists[m_bucketNumbers[song.artistNumber]].end;
    std::uint32_t start = 0;
    for (Artist &artist : m_artists) {
        const std::uint32_t size = artist.end;
        artist.start = artist.end = start;
        start += size;
    }
    m_places.resize(bucket.size());
    for (Place place = 0; place < bucket.size(); ++place)
        m_places[m_artists[m_bucketNumbers[bucket[place].artistNumber]].end++] = place;
    m_similar.assign(m_artists.size(), {});
}

const std::vector<std::uint32_t> &ArtistIndex::similarArtists(const PreparedSong &song)
{
    const std::uint32_t self = m_bucketNumbers[song.artistNumber];
    std::vector<std::uint32_t> &similar = m_similar[self];
    if (!similar.empty())
        return similar;

    // From the artist itself outwards, as far as lengths alone allow.
    const Artist &artist = m_artists[self];
    similar.push_back(self);
    for (std::uint32_t i = self; i-- > 0;) {
        const Artist &shorter = m_artists[i];
        if (artist.length - shorter.length > m_largestDistances[artist.length])
            break;
        if (areSimilar(artist, shorter))
            similar.push_back(i);
    }
    for (std::uint32_t i = self + 1; i < m_artists.size(); ++i) {
        const Artist &longer = m_artists[i];
        if (longer.length - artist.length > m_largestDistances[longer.length])
            break;
        if (areSimilar(artist, longer))
            similar.push_back(i);
    }
    return similar;
}

std::span<const ArtistIndex::Place> ArtistIndex::placesOf(std::uint32_t artist) const
{
    const Artist &entry = m_artists[artist];
    return std::span(m_places).subspan(entry.start, entry.end - entry.start);
}

} // namespace sonavo
