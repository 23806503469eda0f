#pragma once

#include "analysis/prepared_songs.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace sonavo {

/// The songs of one bucket by their artists, for finding those whose artists are similar to one of them.
class ArtistIndex
{
public:
    /// A song's place in the bucket.
    using Place = std::uint32_t;

    /// @param prepared must outlive the index
    /// @param largestDistances for each length of the longer artist the largest distance that counts as
    /// similar
    ArtistIndex(const PreparedSongs &prepared, std::vector<std::size_t> largestDistances);

    /// Whether two songs' artists are similar, or both empty.
    [[nodiscard]] bool areSimilar(const PreparedSong &a, const PreparedSong &b) const;

    /// Replaces what the index holds.
    void build(const std::vector<PreparedSong> &bucket);

    /// How many artists the bucket has.
    [[nodiscard]] std::size_t artistCount() const { return m_artists.size(); }

    /// Numbers, for placesOf(), of the artists that are similar to a song's, its own among them. Found out
    /// once for each artist.
    [[nodiscard]] const std::vector<std::uint32_t> &similarArtists(const PreparedSong &song);

    /// The songs of one artist, in the order of the bucket.
    [[nodiscard]] std::span<const Place> placesOf(std::uint32_t artist) const;

private:
    struct Artist
    {
        std::uint64_t bag = 0;
        std::uint32_t length = 0;
        /// The number of the artist among all songs.
        std::uint32_t number = 0;
        std::uint32_t start = 0;
        std::uint32_t end = 0;
    };

    [[nodiscard]] bool areSimilar(const Artist &a, const Artist &b) const;

    const PreparedSongs &m_prepared;
    const std::vector<std::size_t> m_largestDistances;
    /// Those of the bucket, by length.
    std::vector<Artist> m_artists;
    /// By number of the artist among all songs; only those of the bucket mean anything.
    std::vector<std::uint32_t> m_bucketNumbers;
    std::vector<Place> m_places;
    std::vector<std::vector<std::uint32_t>> m_similar;
};

} // namespace sonavo
