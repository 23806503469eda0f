#pragma once

#include "analysis/further_keys.h"
#include "analysis/further_songs.h"
#include "analysis/window_index.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace sonavo {

/// Where FurtherMatches looks songs up. Immutable; any thread may read it.
class FurtherIndex
{
public:
    using Position = FurtherSongs::Position;

    /// What is read of a candidate before its FurtherSong: small, so that those of a window stay in the
    /// processor's caches. Most candidates are rejected by it.
    struct Sketch
    {
        CharacterCounts artistCounts;
        CharacterCounts fullCounts;
        /// Saturated, which rejects nothing more.
        std::uint16_t artistLength = 0;
        std::uint16_t fullLength = 0;
        bool isNumbered = false;
        bool hasTail = false;
    };

    /// Builds the index on all cores.
    /// @param songs must outlive the index
    /// @param stop leaves the index incomplete once a stop is requested
    FurtherIndex(const FurtherSongs &songs, const std::stop_token &stop);

    [[nodiscard]] const FurtherSongs &songs() const { return m_songs; }
    /// Under the keys of FurtherKeys.
    [[nodiscard]] const WindowIndex &byKey() const { return m_byKey; }
    [[nodiscard]] const Sketch &sketchOf(Position song) const { return m_sketches[song]; }
    /// Whether a key belongs to so many songs that they also stand under the key combined with each of their
    /// artist grams (see withArtist()).
    [[nodiscard]] bool isCommon(FurtherKeys::Hash key) const { return m_byKey.countOf(key) >= m_commonCount; }
    [[nodiscard]] static FurtherKeys::Hash withArtist(FurtherKeys::Hash key, FurtherKeys::Hash artistGram)
    {
        return key ^ artistGram;
    }
    /// About which share of all songs has an artist gram.
    [[nodiscard]] double shareOf(FurtherKeys::Hash artistGram) const
    {
        return static_cast<double>(m_byKey.countOf(artistGram)) / static_cast<double>(m_countedSongs);
    }
    /// Whether any song can have this title; see FurtherKeys::titleKeyOf().
    [[nodiscard]] bool mayHaveTitle(FurtherKeys::Hash title) const { return m_hasTitle[placeOf(title)]; }

private:
    [[nodiscard]] std::size_t placeOf(FurtherKeys::Hash title) const
    {
        return title >> 32 & (m_hasTitle.size() - 1);
    }
    void countKeys();
    void fillBlock(FurtherKeys &keys, std::size_t block);

    const FurtherSongs &m_songs;
    WindowIndex m_byKey;
    std::vector<Sketch> m_sketches;
    std::vector<bool> m_hasTitle;
    /// The songs whose keys were counted, and how often common keys are among those at least.
    std::size_t m_countedSongs = 0;
    std::size_t m_commonCount = 0;
};

/// Finds, for a song, all songs that match it (see songsMatchFurther()). Each thread needs its own.
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
/// Words and titles that very many songs have are combined with grams of the artist (two characters): by the
/// third condition the artists are similar, so the same principle holds for them.
///
/// Track numbers: where one title contains another with their numbers, it does so without. A similar text is
/// looked for with the song's number and without; a song with a number is in the index with the keys of
/// both. Tails: a similar text is looked for with the song's tail and without; a text has the grams of the
/// same one without its tail. Other numbers: of two songs that match, one has no number, or they have one in
/// common; see the scopes of FurtherKeys.
class FurtherMatches
{
public:
    using Position = FurtherSongs::Position;

    /// @param index must outlive this
    explicit FurtherMatches(const FurtherIndex &index)
        : m_index(index)
        , m_lastQueries(index.songs().size())
    {}

    /// Takes a song out: it is no longer found.
    void remove(Position song) { m_lastQueries[song] = REMOVED; }
    [[nodiscard]] bool isRemoved(Position song) const { return m_lastQueries[song] == REMOVED; }

    /// All other songs that match this one and are not removed, in no particular order.
    /// @param most no more than that many are looked for
    /// @return valid until the next call
    [[nodiscard]] std::span<const Position> matchesOf(Position song, std::size_t most);
    /// The same, or nothing if a large share of the library would have to be looked at.
    [[nodiscard]] std::optional<std::span<const Position>> matchesIfCheap(Position song, std::size_t most);

private:
    using Hash = FurtherKeys::Hash;

    static constexpr std::uint32_t REMOVED = UINT32_MAX;

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

    /// Begins a query: chooses the keys of all songs that can match this one.
    void propose(Position song, std::size_t most);
    /// About how many songs were proposed.
    [[nodiscard]] std::size_t proposedCount() const;
    [[nodiscard]] bool mayArtistsMatch(const FurtherIndex::Sketch &candidate) const;
    [[nodiscard]] bool mayFullTextsMatch(const FurtherIndex::Sketch &candidate) const;
    /// Chooses the artist grams of which each song with a similar artist has one.
    void chooseArtistGrams(std::uint32_t artistLength);
    /// About how many songs a gram of the full text proposes.
    [[nodiscard]] std::size_t costOfGram(Hash gram) const;
    /// The same for a word of the title.
    [[nodiscard]] std::size_t costOfWord(Hash word) const;
    void proposeGram(Hash gram, Reason reason);
    void proposeWord(Hash word, Reason reason);
    /// @param key a word or title, in its scope
    void proposeWithArtist(Hash key, Reason reason);
    void proposeSimilar(std::span<const Hash> grams, std::size_t length);
    void proposeContaining();
    void proposeContained();
    void compareWithProposed();
    void compareWith(Position candidate, Reason reason);

    const FurtherIndex &m_index;
    /// By song: the last query in which it was compared.
    std::vector<std::uint32_t> m_lastQueries;
    std::uint32_t m_query = 0;

    // The query that is running.
    Position m_song = 0;
    FurtherKeys m_keys;
    std::vector<Hash> m_artistGrams;
    /// About which share of all songs has one of them.
    double m_artistShare = 1.0;
    std::vector<Proposal> m_proposals;
    Position m_windowBegin = 0;
    Position m_windowEnd = 0;
    std::size_t m_most = 0;
    std::vector<Position> m_matches;

    // Kept for their memory.
    std::vector<std::size_t> m_counts;
    std::vector<std::size_t> m_sums;
    std::vector<std::size_t> m_chosen;
};

} // namespace sonavo
