#pragma once

#include "analysis/further_songs.h"
#include "analysis/window_index.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sonavo {

/// Finds, for a song, all songs that match it (see songsMatchFurther()).
///
/// # Why no match is missed
///
/// Songs are sorted by playing time, so that those within MATCH_DURATION_DIFF are a window of neighbours. Of
/// the songs in it, only those are compared that an index proposes. By the second condition of the match,
/// two songs belong together for one of three reasons, and each has an index that alone finds all of them.
/// A gram is three characters in a row; texts begin and end with a blank here.
/// - The full texts are similar. They differ by at most d edits, and an edit changes at most one of several
///   grams that do not overlap. Of any d + 1 such grams of one text, the other therefore has at least one
///   (the pigeonhole principle, after S. Wu and U. Manber, "Fast text searching allowing errors", 1992). The
///   rarest are taken: they have the shortest lists.
/// - The other title contains this one. It has all of its grams, the rarest among them.
/// - This title contains the other one. The other is a row of words of this one: each row is looked up.
///
/// Track numbers: where one title contains another with their numbers, it does so without. A similar text is
/// looked for with the song's number and without; a song with a number is in the index with the grams of
/// both.
class FurtherMatches
{
public:
    using Position = FurtherSongs::Position;

    /// @param songs must outlive this
    explicit FurtherMatches(const FurtherSongs &songs);

    /// Takes a song out: it is no longer found.
    void remove(Position song) { m_isRemoved[song] = true; }
    [[nodiscard]] bool isRemoved(Position song) const { return m_isRemoved[song]; }

    /// All other songs that match this one and are not removed, in no particular order.
    /// @param most no more than that many are looked for
    /// @return valid until the next call
    [[nodiscard]] std::span<const Position> matchesOf(Position song, std::size_t most);

private:
    using Hash = std::uint64_t;

    void readGrams(const FurtherSong &song, TrackNumber number);
    void proposeSimilar(const FurtherSong &song, TrackNumber number);
    void proposeContaining(const FurtherSong &song);
    void proposeContained(const FurtherSong &song);
    void propose(std::span<const Position> candidates);
    [[nodiscard]] bool isDone() const { return m_matches.size() >= m_most; }

    const FurtherSongs &m_songs;
    WindowIndex m_grams;
    /// By title without its track number.
    WindowIndex m_titles;
    std::vector<bool> m_isRemoved;
    /// For each song the last query that it was proposed to.
    std::vector<std::uint32_t> m_lastQuery;
    std::uint32_t m_query = 0;

    // The query that is running.
    Position m_song = 0;
    Position m_windowBegin = 0;
    Position m_windowEnd = 0;
    std::size_t m_most = 0;
    std::vector<Position> m_matches;

    // Kept for their memory.
    std::u32string m_text;
    std::vector<Hash> m_textGrams;
    std::vector<std::size_t> m_counts;
    std::vector<std::size_t> m_costs;
};

} // namespace sonavo
