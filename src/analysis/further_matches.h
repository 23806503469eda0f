#pragma once

#include "analysis/character_places.h"
#include "analysis/disjoint_grams.h"
#include "analysis/further_artists.h"
#include "analysis/further_keys.h"
#include "analysis/further_songs.h"
#include "analysis/window_index.h"

#include <cstddef>
#include <cstdint>
#include <functional>
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

    /// The songs whose playing times allow that they match a song.
    struct Window
    {
        Position begin = 0;
        Position end = 0;
    };

    /// Builds the index on all cores.
    /// @param songs must outlive the index
    /// @param stop leaves the index incomplete once a stop is requested
    FurtherIndex(const FurtherSongs &songs, const std::stop_token &stop);

    [[nodiscard]] const FurtherSongs &songs() const { return m_songs; }
    [[nodiscard]] const FurtherArtists &artists() const { return m_artists; }
    [[nodiscard]] Window windowOf(Position song) const;
    /// The songs of an artist in a window, ascending.
    [[nodiscard]] std::span<const Position> songsIn(Window window, FurtherArtists::Artist artist) const;
    /// With how many songs one is compared without asking for keys.
    [[nodiscard]] std::size_t fewSongs() const { return m_fewSongs; }

    /// Under the keys of FurtherKeys, in the family of the artist (see FurtherArtists).
    [[nodiscard]] const WindowIndex &byKey() const { return m_byKey; }
    /// Whether a gram is a key: where titles are long or have numbers, only some grams are. All words are.
    [[nodiscard]] bool isKey(FurtherKeys::Hash gram) const
    {
        constexpr FurtherKeys::Hash MULTIPLIER = 0x9FB21C651E98DF25;
        return ((gram * MULTIPLIER >> 32) & m_gramMask) == 0;
    }
    /// Whether byKey() has all songs that can match those of an artist. It has for artists that have more
    /// similar ones in a window than fewSongs().
    [[nodiscard]] bool hasKeysFor(FurtherArtists::Artist artist) const { return m_hasKeysFor[artist] != 0; }
    /// Whether any song can have this title; see FurtherKeys::titleKeyOf(). In the scope of its family.
    [[nodiscard]] bool mayHaveTitle(FurtherKeys::Hash title) const { return m_hasTitle[placeOf(title)]; }

    /// The songs whose artists are of one length.
    struct ArtistLength
    {
        std::size_t length = 0;
        /// Ascending, and FurtherArtists::pairBitsOf() of the artist of each: side by side, to be read fast.
        std::vector<Position> songs;
        std::vector<std::uint64_t> pairBits;
        /// The artists of these songs, unless they are compared as fast.
        std::optional<CharacterPlaces<char32_t>> places;
    };
    /// Empty if the similar artists of all are known.
    [[nodiscard]] const std::vector<ArtistLength> &byArtistLength() const { return m_byArtistLength; }

    /// The full text of a song, as a whole or without a part.
    struct Text
    {
        Position song = 0;
        TrackNumber number = TrackNumber::Kept;
        Tail tail = Tail::Kept;
    };
    /// Those of one length.
    struct TextLength
    {
        std::size_t length = 0;
        /// By song.
        std::vector<Text> texts;
        /// Unless they are compared as fast.
        std::optional<CharacterPlaces<char32_t>> places;
    };
    /// Indexes the full texts of all songs with keys: worthwhile where keys are common to very many songs.
    /// Must not overlap with any other call. Uses all cores.
    void placeTexts(const std::stop_token &stop);
    /// Takes a song out: it is found only where removed songs are asked for. Must not overlap with any other
    /// call.
    void remove(Position song);
    [[nodiscard]] bool isRemoved(Position song) const { return m_isRemoved[song]; }
    /// Empty if they are not indexed.
    [[nodiscard]] const std::vector<TextLength> &byTextLength() const { return m_byTextLength; }

private:
    [[nodiscard]] std::size_t placeOf(FurtherKeys::Hash title) const
    {
        return title >> 32 & (m_hasTitle.size() - 1);
    }
    [[nodiscard]] bool isLarge(FurtherArtists::Artist artist) const;
    void chooseSongsWithKeys(const std::stop_token &stop);
    void groupByArtistLength(const std::stop_token &stop);
    [[nodiscard]] bool hasKeys(Position song) const { return m_hasKeys[m_artists.of(song)] != 0; }
    void countKeys();
    void chooseGrams(std::span<const Position> songs);
    template <typename Visit>
    void forEachKeyOf(Position position, FurtherKeys &keys, Visit visit) const;
    void fillBlock(FurtherKeys &keys, std::size_t block);

    const FurtherSongs &m_songs;
    std::vector<double> m_durations;
    FurtherArtists m_artists;
    std::size_t m_fewSongs = 0;
    /// By artist; bytes, so that threads can write to neighbours.
    std::vector<char> m_hasKeysFor;
    std::vector<char> m_hasKeys;
    WindowIndex m_byKey;
    /// Which bits of a gram's hash are zero in those that are keys.
    FurtherKeys::Hash m_gramMask = 0;
    std::vector<bool> m_hasTitle;
    std::vector<ArtistLength> m_byArtistLength;
    std::vector<TextLength> m_byTextLength;
    std::vector<bool> m_isRemoved;
};

/// Finds, for a song, all songs that match it (see songsMatchFurther()). Each thread needs its own.
///
/// # Why no match is missed
///
/// Songs are sorted by playing time, so that those within MATCH_DURATION_DIFF are a window of neighbours. Of
/// the songs in it, those match at most whose artists are similar. These are few for most songs, and each is
/// compared. Where they are many, such as songs without an artist, only those are compared that an index
/// proposes, unless it proposes nearly all. By the second condition of the match, two songs belong together
/// for one of three reasons, and for each a few keys of the index are enough.
/// - The full texts are similar. They differ by at most d edits. Of any d + 1 grams of one text (four
///   characters in a row; texts begin and end with a blank here) that do not overlap, the other therefore has
///   at least one (see DisjointGrams). The rarest are taken. Where nearly all texts have the same ones, the
///   words of the title are taken instead: by the fourth condition, the other has one of them.
/// - The other title contains this one. It has all of its words and grams, the rarest among them.
/// - This title contains the other one. The other is a row of words of this one: each row is looked up.
///
/// Where nearly all grams are common, similar texts are found by character and place instead (placeTexts()).
/// Where similar artists are not known, because too many artists are alike, they are found in the same way
/// among all artists of the window, unless the keys propose fewer songs.
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
    using Removed = CharacterPlaces<char32_t>::Removed;

    /// @param index must outlive this
    explicit FurtherMatches(const FurtherIndex &index)
        : m_index(index)
        , m_lastQueries(index.songs().size())
        , m_similarArtists(index.artists().size())
    {}

    /// Finds all other songs that match some songs. Several songs together can take less time than one after
    /// the other.
    /// @param most no more than that many are looked for, for each song
    /// @param removed whether songs that were removed from the index are looked for as well
    /// @param visit takes a song, as its place among `songs`, in any order, and what matches it, in no
    /// particular order and valid during the call
    void forEachMatches(std::span<const Position> songs, std::size_t most, Removed removed,
                        const std::function<void(std::size_t, std::span<const Position>)> &visit);
    /// The matches of one song, removed ones included, or nothing if a large share of the library would have
    /// to be looked at.
    /// @return valid until the next call
    [[nodiscard]] std::optional<std::span<const Position>> matchesIfCheap(Position song, std::size_t most);

private:
    using Hash = FurtherKeys::Hash;

    /// Begins a query.
    void begin(Position song, std::size_t most, Removed removed);
    void readSimilarArtists();
    enum class Way
    {
        SimilarArtists,
        Window,
        Keys,
        /// And the keys of titles that contain one another.
        Texts
    };
    /// Decides how to find the matches.
    /// @return about how many songs have to be read from memory
    std::size_t chooseWay();
    [[nodiscard]] std::size_t costOfWindow() const;
    void find();

    /// A song that is compared with those of similar artists in its window, where similar artists are not
    /// known.
    struct WindowSearch
    {
        std::size_t place = 0;
        Position song = 0;
        FurtherIndex::Window window;
        std::vector<Position> matches;
        /// Those to which similar ones are looked for, or none to look for similar artists.
        std::vector<std::u32string> texts;
    };

    void addWindowSearch(std::size_t place);
    void compareWithWindows();
    void compareWithTextsOf(const FurtherIndex::TextLength &group);
    void compareWithArtistsOf(const FurtherIndex::ArtistLength &group);
    void compareWithArtistsOf(const FurtherIndex::ArtistLength &group, std::size_t limit,
                              WindowSearch &search);
    /// @return whether to go on
    bool compareWith(WindowSearch &search, Position candidate) const;
    [[nodiscard]] bool isLeftOut(Position song) const
    {
        return m_removed == Removed::LeftOut && m_index.isRemoved(song);
    }
    void compareWithSimilarArtists();
    void compareWithProposed(std::span<const FurtherKeys::Hash> proposals);
    /// @return whether to go on
    bool compareWith(Position candidate);

    /// Chooses the keys of all songs that can match this one.
    void propose();
    /// About how many songs were proposed.
    [[nodiscard]] std::size_t countOf(std::span<const Hash> proposals) const;
    /// Proposes the songs that have a gram or word and matching numbers.
    void proposeKey(std::vector<Hash> &proposals, Hash key) const;
    /// About how many songs that are.
    [[nodiscard]] std::size_t costOf(Hash key) const;
    [[nodiscard]] std::size_t costOfGram(Hash gram) const;
    void proposeSimilar(std::span<const Hash> grams, std::size_t length);
    void proposeContaining();
    void proposeContained();

    const FurtherIndex &m_index;
    /// By song: the last query in which it was compared.
    std::vector<std::uint32_t> m_lastQueries;
    std::uint32_t m_query = 0;

    // The query that is running.
    Position m_song = 0;
    Removed m_removed = Removed::Included;
    FurtherIndex::Window m_window;
    std::size_t m_most = 0;
    std::vector<Position> m_matches;
    /// By artist: the last query in which it was similar.
    std::vector<std::uint32_t> m_similarArtists;
    bool m_areArtistsKnown = false;
    /// The songs of similar artists in the window, if those are known, and how many songs there are.
    std::vector<std::span<const Position>> m_groups;
    std::size_t m_groupedCount = 0;
    Way m_way = Way::Window;
    FurtherKeys m_keys;
    /// For similar texts, and for titles that contain one another.
    std::vector<Hash> m_similarProposals;
    std::vector<Hash> m_containingProposals;

    /// Those of the last songs that were asked for together.
    std::vector<WindowSearch> m_windowSearches;

    // Kept for their memory.
    std::vector<std::size_t> m_counts;
    DisjointGrams m_choice;
    std::vector<std::uint32_t> m_near;
};

} // namespace sonavo
