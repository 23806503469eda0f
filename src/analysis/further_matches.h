#pragma once

#include "analysis/disjoint_grams.h"
#include "analysis/further_artists.h"
#include "analysis/further_index.h"
#include "analysis/further_keys.h"
#include "analysis/further_songs.h"
#include "analysis/further_texts.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace sonavo {

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
    using Removed = FurtherTexts::Places::Removed;
    /// Takes a song, as its place among those that were asked for, in any order, and what matches it, in no
    /// particular order and valid during the call.
    using Visit = std::function<void(std::size_t song, std::span<const Position> matches)>;

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
    void forEachMatches(std::span<const Position> songs, std::size_t most, Removed removed,
                        const Visit &visit);
    /// The same for those songs, removed ones included, for which only a small share of the library has to be
    /// looked at.
    void forEachCheapMatches(std::span<const Position> songs, std::size_t most, const Visit &visit);
    /// With about how many songs of its window forEachCheapMatches() compares a song, since its similar
    /// artists are not known.
    [[nodiscard]] std::size_t comparedInWindow(Position song);

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
    [[nodiscard]] bool isCheap(std::size_t cost) const;
    /// Finds the matches of the query, or adds them to those that are found together.
    /// @param place of the song among those that were asked for
    void find(std::size_t place, const Visit &visit);
    /// Finds those, and ends.
    void findTogether(const Visit &visit);

    /// A song that is compared with songs of its window by artist or by full text.
    struct WindowSearch
    {
        std::size_t place = 0;
        Position song = 0;
        FurtherIndex::Window window;
        Way way = Way::Window;
        /// Those to which similar ones are looked for.
        std::vector<std::u32string> texts;
        std::vector<Position> matches;
    };
    /// Visits a search and where its text is looked for in a FurtherTexts, where that is not indexed.
    using CompareEach =
        std::function<void(WindowSearch &search, std::size_t limit, std::size_t begin, std::size_t end)>;

    void addWindowSearch(std::size_t place);
    void compareWithWindows();
    /// Compares those searches of one way for which a text of a group is similar to one of theirs.
    void compareWithTexts(const FurtherTexts &group, Way way, double least, const CompareEach &compareEach);
    void compareWithArtists(const FurtherIndex::ArtistLength &group, WindowSearch &search, std::size_t limit,
                            std::size_t begin, std::size_t end);
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
