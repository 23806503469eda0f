#include "analysis/further_artists.h"

#include "analysis/disjoint_grams.h"
#include "analysis/distance.h"
#include "analysis/id_table.h"
#include "analysis/matching.h"
#include "analysis/parallel.h"

#include <algorithm>
#include <atomic>
#include <numeric>
#include <string>
#include <string_view>

namespace sonavo {
namespace {

constexpr std::size_t ARTIST_GRAM_LENGTH = 2;
constexpr int ARTIST_GRAM_BITS = 16;

/// Calls `visit` with the hash of each gram of an artist, with a blank at either end, in order.
template <typename Visit>
void forEachArtistGram(std::u32string_view artist, Visit visit)
{
    constexpr std::uint32_t MULTIPLIER = 2654435769U;
    char32_t before = U' ';
    for (std::size_t i = 0; i <= artist.size(); ++i) {
        const char32_t character = i < artist.size() ? artist[i] : U' ';
        visit((before * 1'000'003U ^ character) * MULTIPLIER >> (32 - ARTIST_GRAM_BITS));
        before = character;
    }
}

} // namespace

class FurtherArtists::Grams
{
public:
    Grams(const FurtherArtists &artists, const FurtherSongs &songs)
        : m_artists(artists)
        , m_songs(songs)
        , m_starts((std::size_t{1} << ARTIST_GRAM_BITS) + 1)
    {
        // Count, lay out, fill: one array holds all lists.
        const auto count = static_cast<Artist>(artists.size());
        std::u32string memory;
        for (Artist artist = 0; artist < count; ++artist)
            forEachArtistGram(textOf(artist).widened(memory),
                              [this](std::uint32_t gram) { ++m_starts[gram]; });
        std::partial_sum(m_starts.begin(), m_starts.end(), m_starts.begin());
        m_lists.resize(m_starts.back());
        for (Artist artist = count; artist-- > 0;)
            forEachArtistGram(textOf(artist).widened(memory),
                              [&](std::uint32_t gram) { m_lists[--m_starts[gram]] = artist; });
    }

    [[nodiscard]] PackedText textOf(Artist artist) const
    {
        return artistOf(m_songs[m_artists.songsOf(artist).front()]);
    }
    /// The artists from `first` to before `last` that have a gram; one can come several times.
    [[nodiscard]] std::span<const Artist> with(std::uint32_t gram, Artist first, Artist last) const
    {
        const auto begin = m_lists.begin() + m_starts[gram];
        const auto end = m_lists.begin() + m_starts[gram + 1];
        const auto from = std::lower_bound(begin, end, first);
        return {from, std::lower_bound(from, end, last)};
    }

private:
    const FurtherArtists &m_artists;
    const FurtherSongs &m_songs;
    std::vector<std::uint32_t> m_starts;
    std::vector<Artist> m_lists;
};

/// Finds the artists that are similar to one; each thread needs its own.
class FurtherArtists::Search
{
public:
    /// Of all searches together.
    struct Totals
    {
        std::atomic<std::size_t> searched = 0;
        /// Those whose similar artists were too many.
        std::atomic<std::size_t> unknown = 0;
        /// Similar artists that were found.
        std::atomic<std::size_t> listed = 0;
    };

    Search(FurtherArtists &artists, const Grams &grams, Totals &totals)
        : m_artists(artists)
        , m_grams(grams)
        , m_totals(totals)
        , m_lastSearches(artists.size(), UINT32_MAX)
    {}

    void run(Artist artist)
    {
        if (areMostUnknown())
            return;
        m_artist = artist;
        m_readCharacters = 0;
        const auto &entries = m_artists.m_entries;
        const std::size_t length = entries[artist].length;
        const auto isShort = [length](const Entry &other) {
            return other.length + largestDistance(length, MATCH_ARTIST_SIMILARITY) < length;
        };
        const auto isLong = [length](const Entry &other) {
            return other.length > length + largestDistance(other.length, MATCH_ARTIST_SIMILARITY);
        };
        const auto first = std::partition_point(entries.begin(), entries.end(), isShort);
        const auto last =
            std::partition_point(first, entries.end(), [&](const Entry &other) { return !isLong(other); });
        m_first = static_cast<Artist>(first - entries.begin());
        m_last = static_cast<Artist>(last - entries.begin());

        Entry &entry = m_artists.m_entries[artist];
        // Limits the memory: where all artists are alike, the lists would grow with the square.
        const std::size_t mostListed = 32 * m_artists.size();
        entry.isKnown = (compareWithThoseOfGrams() || compareWithAll()) &&
                        m_totals.listed.fetch_add(entry.similar.size()) + entry.similar.size() <= mostListed;
        ++m_totals.searched;
        m_totals.unknown += entry.isKnown ? 0U : 1U;
        if (!entry.isKnown)
            entry.similar = {};
        std::sort(entry.similar.begin(), entry.similar.end());
        entry.similar.shrink_to_fit();
    }

private:
    /// Artists that are compared at most, and more for each song of the artist.
    static constexpr std::size_t MOST_COMPARED = 16'384;
    static constexpr std::size_t MOST_COMPARED_PER_SONG = 64;

    /// Where nearly all artists are alike, it is not worthwhile to find that out for each.
    [[nodiscard]] bool areMostUnknown() const
    {
        constexpr std::size_t MANY = 1024;
        return m_totals.unknown > MANY && m_totals.unknown * 2 > m_totals.searched;
    }

    [[nodiscard]] bool isAffordable(std::size_t compared) const
    {
        return compared <= MOST_COMPARED + MOST_COMPARED_PER_SONG * m_artists.songsOf(m_artist).size();
    }

    bool compareWithAll()
    {
        if (!isAffordable(m_last - m_first))
            return false;
        m_artists.m_entries[m_artist].similar.clear();
        const auto &entries = m_artists.m_entries;
        for (Artist begin = m_first; begin < m_last;) {
            const std::uint32_t length = entries[begin].length;
            const auto isAsLong = [length](const Entry &other) { return other.length == length; };
            const auto end = static_cast<Artist>(
                std::partition_point(entries.begin() + begin, entries.begin() + m_last, isAsLong) -
                entries.begin());
            const std::size_t longer = std::max(length, entries[m_artist].length);
            m_near.clear();
            appendNear(m_near, begin, std::span(m_artists.m_pairBits).subspan(begin, end - begin),
                       m_artists.m_pairBits[m_artist], largestDistance(longer, MATCH_ARTIST_SIMILARITY));
            if (!std::all_of(m_near.begin(), m_near.end(),
                             [this](Artist other) { return compareWith(other); }))
                return false;
            begin = end;
        }
        return true;
    }

    /// @return false if it is faster to compare with all, or too many are similar
    bool compareWithThoseOfGrams()
    {
        // How many artists in a row can be compared in the time that one of a list takes, and how many in the
        // time in which grams are chosen.
        constexpr std::size_t ARTISTS_PER_LISTED = 4;
        constexpr std::size_t FEW = 64;
        if (m_last - m_first < FEW)
            return false;
        m_lists.clear();
        forEachArtistGram(m_grams.textOf(m_artist).widened(m_text), [this](std::uint32_t gram) {
            m_lists.push_back(m_grams.with(gram, m_first, m_last));
        });
        m_sizes.resize(m_lists.size());
        std::transform(m_lists.begin(), m_lists.end(), m_sizes.begin(),
                       [](std::span<const Artist> list) { return list.size(); });
        const std::uint32_t length = m_artists.m_entries[m_artist].length;
        const std::size_t needed = largestDistanceToSimilar(length, MATCH_ARTIST_SIMILARITY) + 1;
        const std::size_t compared =
            m_choice.choose(m_sizes, ARTIST_GRAM_LENGTH, needed) * ARTISTS_PER_LISTED;
        if (compared > m_last - m_first || !isAffordable(compared))
            return false;
        for (const std::size_t place : m_choice.places()) {
            for (const Artist other : m_lists[place]) {
                if (m_lastSearches[other] != m_artist && !compareWith(other))
                    return false;
                m_lastSearches[other] = m_artist;
            }
        }
        return true;
    }

    /// @return false if too many are similar or nearly so
    bool compareWith(Artist other)
    {
        // An artist that has many songs can have more.
        constexpr std::size_t MANY_SIMILAR = 256;
        constexpr std::size_t MANY_CHARACTERS = 16'384;
        if (other == m_artist || !m_artists.mayBeSimilar(m_artist, other))
            return true;
        const std::size_t songs = m_artists.songsOf(m_artist).size();
        m_readCharacters += m_artists.m_entries[other].length;
        if (m_readCharacters > MANY_CHARACTERS + MANY_CHARACTERS * songs / 32)
            return false;
        std::vector<Artist> &similar = m_artists.m_entries[m_artist].similar;
        const double similarity =
            visitBoth(m_grams.textOf(m_artist), m_grams.textOf(other), [](auto text, auto otherText) {
                return calculateSimilarity(text, otherText, MATCH_ARTIST_SIMILARITY);
            });
        if (similarity >= MATCH_ARTIST_SIMILARITY)
            similar.push_back(other);
        return similar.size() <= MANY_SIMILAR + songs;
    }

    FurtherArtists &m_artists;
    const Grams &m_grams;
    Totals &m_totals;
    Artist m_artist = 0;
    /// Of others whose texts were read.
    std::size_t m_readCharacters = 0;
    /// Those whose length allows it.
    Artist m_first = 0;
    Artist m_last = 0;
    /// Kept for its memory.
    std::u32string m_text;
    DisjointGrams m_choice;
    std::vector<std::span<const Artist>> m_lists;
    std::vector<std::size_t> m_sizes;
    /// By artist: the last one that was compared with it.
    std::vector<Artist> m_lastSearches;
    std::vector<Artist> m_near;
};

FurtherArtists::FurtherArtists(const FurtherSongs &songs, const std::stop_token &stop)
{
    constexpr std::size_t ARTISTS_PER_PART = 64;
    numberArtists(songs);
    const Grams grams(*this, songs);
    Search::Totals totals;
    (void)forEachInParallel(
        size(), ARTISTS_PER_PART, stop, [&](std::size_t) { return Search(*this, grams, totals); },
        [](Search &search, std::size_t artist) { search.run(static_cast<Artist>(artist)); });
    m_areAllKnown =
        std::all_of(m_entries.begin(), m_entries.end(), [](const Entry &entry) { return entry.isKnown; });
    if (m_areAllKnown)
        joinFamilies();
}

void FurtherArtists::numberArtists(const FurtherSongs &songs)
{
    IdTable ids;
    std::vector<Position> firstSongs;
    m_artists.reserve(songs.size());
    for (Position song = 0; song < songs.size(); ++song) {
        const std::uint32_t id = ids.idOf(songs[song].artistHash, [&](std::uint32_t other) {
            return artistOf(songs[firstSongs[other]]) == artistOf(songs[song]);
        });
        if (id == firstSongs.size())
            firstSongs.push_back(song);
        m_artists.push_back(id);
    }
    const auto lengthOfId = [&](std::uint32_t id) { return songs[firstSongs[id]].artistLength; };
    std::vector<std::uint32_t> order(firstSongs.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return lengthOfId(a) < lengthOfId(b); });
    std::vector<Artist> artistOfId(order.size());
    m_entries.resize(order.size());
    std::u32string memory;
    for (Artist artist = 0; artist < order.size(); ++artist) {
        artistOfId[order[artist]] = artist;
        const std::u32string_view text = artistOf(songs[firstSongs[order[artist]]]).widened(memory);
        m_entries[artist].length = static_cast<std::uint32_t>(text.size());
        m_pairBits.push_back(sonavo::pairBitsOf(text));
        m_counts.emplace_back(text);
    }

    // Count, lay out, fill: one array holds the songs of all artists.
    for (Artist &artist : m_artists) {
        artist = artistOfId[artist];
        ++m_entries[artist].end;
    }
    std::uint32_t begin = 0;
    for (Entry &entry : m_entries) {
        const std::uint32_t count = entry.end;
        entry.begin = entry.end = begin;
        begin += count;
    }
    m_songs.resize(songs.size());
    for (Position song = 0; song < songs.size(); ++song)
        m_songs[m_entries[m_artists[song]].end++] = song;
}

void FurtherArtists::joinFamilies()
{
    m_families.resize(size());
    std::iota(m_families.begin(), m_families.end(), Artist{0});
    const auto rootOf = [this](Artist artist) {
        while (m_families[artist] != artist)
            artist = m_families[artist] = m_families[m_families[artist]];
        return artist;
    };
    for (Artist artist = 0; artist < size(); ++artist) {
        for (const Artist other : m_entries[artist].similar)
            m_families[rootOf(artist)] = rootOf(other);
    }
    for (Artist artist = 0; artist < size(); ++artist)
        m_families[artist] = rootOf(artist);
}

bool FurtherArtists::mayBeSimilar(Artist a, Artist b) const
{
    const std::uint32_t lengthA = m_entries[a].length;
    const std::uint32_t lengthB = m_entries[b].length;
    return mayBeWithin(largestDistance(std::max(lengthA, lengthB), MATCH_ARTIST_SIMILARITY), lengthA, lengthB,
                       m_counts[a], m_counts[b]);
}

} // namespace sonavo
