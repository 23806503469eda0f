#pragma once

#include "analysis/artist_index.h"
#include "analysis/character_places.h"
#include "analysis/prepared_songs.h"

#include <cstddef>
#include <cstdint>
#include <optional>
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

    /// Takes a song out; it may still be found. Must not overlap with findMatching().
    void remove(BucketPosition position);

    /// A song whose artist is looked for.
    struct Search
    {
        const PreparedSong *song = nullptr;
        /// The positions in the bucket that are asked for.
        BucketPosition begin = 0;
        BucketPosition end = 0;
        /// Where those are appended that are found.
        std::vector<BucketPosition> *found = nullptr;
    };

    /// Finds the songs that are not removed and whose artists match a song's (see artistsMatch()), for
    /// several songs at a time. The song itself is among them, others that do not match may be, and a song
    /// can come several times. Any thread may ask.
    void findMatching(std::span<const Search> searches) const;

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
        /// Not for groups that are looked through as fast.
        std::optional<CharacterPlaces<char>> places;
    };
    class Choice;
    /// A song's search in one group.
    struct GroupSearch
    {
        std::string_view artist;
        std::uint64_t pairs = 0;
        /// The most edits between the artists.
        std::size_t limit = 0;
        /// Numbers in the group.
        std::size_t first = 0;
        std::size_t last = 0;
        std::vector<BucketPosition> *found = nullptr;
    };
    /// Where a song is in the groups.
    struct Place
    {
        std::uint32_t group = 0;
        std::uint32_t number = 0;
    };

    void listGrams(Group &group, std::span<const PreparedSong> bucket) const;
    void findInGroup(const Group &group, std::span<const Search> searches) const;
    static bool findByGrams(const Group &group, const GroupSearch &search);

    const PreparedSongs &m_songs;
    std::vector<Group> m_groups;
    /// By position in the bucket.
    std::vector<Place> m_places;
};

} // namespace sonavo
