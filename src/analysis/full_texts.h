#pragma once

#include "analysis/artist_grams.h"
#include "analysis/character_places.h"
#include "analysis/prepared_songs.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace sonavo {

/// The songs of one bucket by title, file name, and artist and title joined: finds those that textsMatch()
/// allows among very many of similar artists.
///
/// Similar texts are found by character and place (CharacterPlaces), texts that contain one another by their
/// pairs of characters: of those one has all that the other has (see bigramsOf()).
class FullTexts
{
public:
    using Search = ArtistGrams::Search;

    /// @param songs must outlive the index
    explicit FullTexts(const PreparedSongs &songs)
        : m_songs(songs)
    {}

    /// Replaces what the index holds.
    void build(std::span<const PreparedSong> bucket);

    /// Takes a song out. Must not overlap with findMatching().
    void remove(BucketPosition position);

    /// Finds the songs that are not removed and whose texts match a song's (see textsMatch()), for several
    /// songs at a time. Others that do not match may be among them, and a song can come several times. Any
    /// thread may ask.
    void findMatching(std::span<const Search> searches) const;

private:
    /// The songs whose artists and titles, joined, are of one length.
    struct Group
    {
        std::size_t length = 0;
        /// Ascending, and PreparedSong::fullPairs of each.
        std::vector<BucketPosition> songs;
        std::vector<std::uint64_t> pairs;
        /// Not for groups that are looked through as fast.
        std::optional<CharacterPlaces<char>> places;
    };

    void findSimilar(const Group &group, std::span<const Search> searches,
                     std::span<const std::string> texts) const;
    void findContaining(std::size_t block, const Search &search) const;

    const PreparedSongs &m_songs;
    /// By length.
    std::vector<Group> m_groups;
    /// By position in the bucket: the song's group and its index in Group::songs.
    std::vector<std::uint32_t> m_lengths;
    std::vector<std::uint32_t> m_numbers;
    /// PreparedSong::titleBigrams and nameBigrams, by block of songs: for each bit those that have it.
    std::vector<std::uint64_t> m_titleBits;
    std::vector<std::uint64_t> m_nameBits;
    /// The songs that are not removed.
    std::vector<std::uint64_t> m_left;
};

} // namespace sonavo
