#pragma once

#include "analysis/prepared_songs.h"
#include "analysis/text_groups.h"

#include <cstddef>
#include <cstdint>
#include <span>
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
    void remove(BucketPosition position) { m_artists.remove(position); }

    /// Finds the songs that are not removed and whose artists match a song's (see artistsMatch()), for
    /// several songs at a time. The song itself is among them, others that do not match may be, and a song
    /// can come several times. Any thread may ask.
    void findMatching(std::span<const SongSearch> searches) const;

private:
    /// The n-grams of the artists of one group. Empty for groups that are looked through as fast.
    struct Grams
    {
        /// By n-gram, where its list begins in `entries`, and where the last one ends.
        std::vector<std::uint32_t> starts;
        /// The song's number in the group, and in the lowest bits where the n-gram stands in the artist.
        std::vector<std::uint32_t> entries;
    };
    class Choice;

    [[nodiscard]] Grams gramsOf(const TextGroup &group, std::span<const PreparedSong> bucket) const;
    /// Whether searches by n-grams are worthwhile for some of a group's artists.
    [[nodiscard]] bool tellArtistsApart(const Grams &grams, const TextGroup &group,
                                        std::span<const PreparedSong> bucket) const;
    static bool findByGrams(const TextGroup &group, const Grams &grams, const TextGroup::Search &search);

    const PreparedSongs &m_songs;
    TextGroups m_artists;
    /// Of each group.
    std::vector<Grams> m_grams;
};

} // namespace sonavo
