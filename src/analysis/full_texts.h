#pragma once

#include "analysis/bigram_rows.h"
#include "analysis/prepared_songs.h"
#include "analysis/text_groups.h"

#include <cstddef>
#include <span>
#include <vector>

namespace sonavo {

/// The songs of one bucket by title, file name, and artist and title joined: finds those that textsMatch()
/// allows among very many of similar artists.
///
/// Similar texts are found by character and place (CharacterPlaces), texts that contain one another by their
/// pairs of characters (BigramRows).
class FullTexts
{
public:
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
    void findMatching(std::span<const SongSearch> searches) const;

private:
    /// What a title or a name contains, or is contained in.
    struct ContainingSearch
    {
        const SongSearch *search = nullptr;
        BigramOrder title;
        BigramOrder name;
    };

    void findSimilar(std::span<const SongSearch> searches) const;
    void findContaining(std::size_t block, const ContainingSearch &search) const;

    const PreparedSongs &m_songs;
    /// By artist and title joined.
    TextGroups m_texts;
    BigramRows m_titles;
    BigramRows m_names;
    /// The songs that are not removed, by block.
    std::vector<BigramRows::Block> m_left;
};

} // namespace sonavo
