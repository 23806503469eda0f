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
/// two songs belong together for one of three reasons, and for each a few keys of the index are enough.
/// - The full texts are similar. They differ by at most d edits, and an edit changes at most one of several
///   grams (four characters in a row; texts begin and end with a blank here) that do not overlap. Of any d +
///   1 such grams of one text, the other therefore has at least one (the pigeonhole principle, after S. Wu
///   and U. Manber, "Fast text searching allowing errors", 1992). The rarest are taken. Where nearly all
///   texts have the same ones, such as those of one artist, the words of the title are taken instead: by the
///   fourth condition, the other has one of them.
/// - The other title contains this one. It has all of its words and grams, the rarest among them.
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
    void remove(Position song) { m_sketches[song].lastQuery = REMOVED; }
    [[nodiscard]] bool isRemoved(Position song) const { return m_sketches[song].lastQuery == REMOVED; }

    /// All other songs that match this one and are not removed, in no particular order.
    /// @param most no more than that many are looked for
    /// @return valid until the next call
    [[nodiscard]] std::span<const Position> matchesOf(Position song, std::size_t most);

private:
    using Hash = WindowIndex::Hash;

    static constexpr std::uint32_t REMOVED = UINT32_MAX;

    /// What is read of a candidate before its FurtherSong: small, so that those of a window stay in the
    /// processor's caches. Most candidates are rejected by it.
    struct Sketch
    {
        std::uint64_t artistBag = 0;
        std::uint64_t fullBag = 0;
        /// Saturated, which rejects nothing more.
        std::uint16_t artistLength = 0;
        std::uint16_t fullLength = 0;
        /// The last query in which the song was compared.
        std::uint32_t lastQuery = 0;
    };
    /// Which condition a candidate is proposed for.
    enum class Reason
    {
        Similar,
        Contains
    };

    struct Proposal
    {
        Hash key = 0;
        Reason reason = Reason::Similar;
    };

    [[nodiscard]] static Sketch sketchOf(const FurtherSong &song);
    [[nodiscard]] bool mayMatch(const Sketch &candidate, Reason reason) const;
    template <typename Visit>
    void forEachKey(const FurtherSong &song, Visit visit);
    template <typename Visit>
    void forEachTitleWord(const FurtherSong &song, Visit visit) const;
    void readGrams(const FurtherSong &song, TrackNumber number);
    void proposeSimilar(const FurtherSong &song, TrackNumber number);
    void proposeContaining(const FurtherSong &song);
    void proposeContained(const FurtherSong &song);
    void compareWithProposed();
    void compareWith(Position candidate, Reason reason);

    const FurtherSongs &m_songs;
    WindowIndex m_index;
    std::vector<Sketch> m_sketches;
    std::uint32_t m_query = 0;

    // The query that is running.
    Position m_song = 0;
    Sketch m_sketch;
    std::vector<Proposal> m_proposals;
    Position m_windowBegin = 0;
    Position m_windowEnd = 0;
    std::size_t m_most = 0;
    std::vector<Position> m_matches;

    // Kept for their memory.
    std::u32string m_text;
    std::vector<Hash> m_grams;
    std::vector<std::size_t> m_counts;
    std::vector<std::size_t> m_sums;
    std::vector<std::size_t> m_chosen;
};

} // namespace sonavo
