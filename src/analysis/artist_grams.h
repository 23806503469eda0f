#pragma once

#include "analysis/artist_index.h"
#include "analysis/character_places.h"
#include "analysis/prepared_songs.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace sonavo {

/// The songs of one bucket by the n-grams of their artists: finds the similar artists among very many that
/// are all a little alike.
///
/// Of k + 1 substrings of a text that do not overlap, k edits leave at least one intact. So an artist within
/// k edits of a song's has at least one of any k + 1 n-grams of it, and has it about as far from the
/// beginning. Those are looked up that the fewest artists have: see S. Chaudhuri, V. Ganti and R. Kaushik, "A
/// primitive operator for similarity joins in data cleaning" (2006) for rare n-grams, G. Li, D. Deng, J. Wang
/// and J. Feng, "Pass-Join: a partition-based method for similarity joins" (2011) for parts that do not
/// overlap. Where even those are in too many artists, all artists are measured (CharacterPlaces).
class ArtistGrams
{
public:
    /// @param songs must outlive the index
    explicit ArtistGrams(const PreparedSongs &songs)
        : m_songs(songs)
    {}

    /// Replaces what the index holds.
    void build(std::span<const PreparedSong> bucket);

    /// Appends the songs whose artists match a song's (see artistsMatch()), the song itself among them. Songs
    /// that do not match may be among them, and a song can come several times. Any thread may ask.
    /// @param begin,end the positions in the bucket that are asked for
    void appendMatching(std::vector<BucketPosition> &positions, const PreparedSong &song,
                        BucketPosition begin, BucketPosition end) const;

private:
    /// The songs whose artists are of one length.
    struct Group
    {
        std::size_t length = 0;
        /// Ascending, and PreparedSong::artistPairs of each.
        std::vector<BucketPosition> songs;
        std::vector<std::uint64_t> pairs;
        /// By n-gram, where its list begins in `entries`, and where the last one ends. Empty for groups that
        /// are looked through as fast.
        std::vector<std::uint32_t> starts;
        /// The song's number in the group, and in the lowest bits where the n-gram stands in the artist.
        std::vector<std::uint32_t> entries;
        /// Empty for groups that are looked through as fast.
        CharacterPlaces places;
    };
    struct Search;
    class Choice;

    void listGrams(Group &group, std::span<const PreparedSong> bucket) const;
    static bool appendByGrams(std::vector<std::uint32_t> &found, const Search &search);
    static bool appendByPlaces(std::vector<std::uint32_t> &found, const Search &search);

    const PreparedSongs &m_songs;
    std::vector<Group> m_groups;
};

} // namespace sonavo
