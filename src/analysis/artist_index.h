#pragma once

#include "analysis/prepared_songs.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace sonavo {

/// The position of a song in its bucket.
using BucketPosition = std::uint32_t;

/// The songs of one bucket by artist. Finds all songs whose artists match a song's (see artistsMatch()).
class ArtistIndex
{
public:
    /// What one thread needs to ask. It keeps what it has found for each artist, as far as that needs little
    /// memory.
    class Query
    {
    private:
        friend class ArtistIndex;

        /// By artist; empty until asked for.
        std::vector<std::vector<std::uint32_t>> m_known;
        std::size_t m_knownSize = 0;
        /// The index that they are of, as a count.
        std::uint64_t m_buildCount = 0;
        std::vector<std::uint32_t> m_last;
    };

    /// @param songs must outlive the index
    explicit ArtistIndex(const PreparedSongs &songs);

    /// Replaces what the index holds.
    /// @param bucket must not change while the index is used
    void build(std::span<const PreparedSong> bucket);

    /// How many different artists the bucket has.
    [[nodiscard]] std::size_t artistCount() const { return m_artists.size(); }

    /// The artists that match the one of a song of the bucket, its own among them, as numbers for songsOf().
    /// Several threads may ask at a time, each with a query of its own, which serves one index only.
    /// @return valid until the query is used again
    [[nodiscard]] const std::vector<std::uint32_t> &matchingArtists(const PreparedSong &song,
                                                                    Query &query) const;

    /// The songs of one artist as positions in the bucket, ascending.
    [[nodiscard]] std::span<const BucketPosition> songsOf(std::uint32_t artist) const;

private:
    struct Artist
    {
        std::uint32_t length = 0;
        /// One of the artist's songs, as good as any.
        BucketPosition song = 0;
        /// The artist's part of m_entries.
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
    };

    void findMatching(std::uint32_t self, std::vector<std::uint32_t> &matching) const;

    const PreparedSongs &m_songs;
    std::span<const PreparedSong> m_bucket;
    /// Those of the bucket, shortest first.
    std::vector<Artist> m_artists;
    /// For each artist the characterPairs() of its name: apart from the rest, to be read fast.
    std::vector<std::uint64_t> m_pairs;
    /// Where the artists of one length begin, and at last where those of the longest end.
    std::vector<std::uint32_t> m_lengthBegins;
    /// By artist id, the index in m_artists; valid for artists of the bucket only.
    std::vector<std::uint32_t> m_artistNumbers;
    std::vector<BucketPosition> m_entries;
    std::uint64_t m_buildCount = 0;
};

} // namespace sonavo
