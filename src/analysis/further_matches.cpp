#include "analysis/further_matches.h"

#include "analysis/distance.h"
#include "analysis/matching.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

namespace sonavo {
namespace {

using Position = FurtherSongs::Position;

/// How many texts CharacterPlaces rejects in the time that it takes to compare two songs.
constexpr std::size_t PLACED_PER_COMPARED = 32;
/// So many are compared in the time that it takes to choose keys for them.
constexpr std::size_t FEW_COMPARED = 64;

} // namespace

void FurtherMatches::forEachMatches(std::span<const Position> songs, std::size_t most, Removed removed,
                                    const Visit &visit)
{
    for (std::size_t i = 0; i < songs.size(); ++i) {
        begin(songs[i], most, removed);
        (void)chooseWay();
        find(i, visit);
    }
    findTogether(visit);
}

void FurtherMatches::forEachCheapMatches(std::span<const Position> songs, std::size_t most,
                                         const Visit &visit)
{
    for (std::size_t i = 0; i < songs.size(); ++i) {
        begin(songs[i], most, Removed::Included);
        if (isCheap(chooseWay()))
            find(i, visit);
    }
    findTogether(visit);
}

std::size_t FurtherMatches::comparedInWindow(Position song)
{
    begin(song, std::numeric_limits<std::size_t>::max(), Removed::Included);
    const std::size_t cost = chooseWay();
    return m_way == Way::Window && isCheap(cost) ? cost : 0;
}

bool FurtherMatches::isCheap(std::size_t cost) const
{
    // Only songs that are each compared with a share of the library take quadratic time.
    constexpr std::size_t MANY = 4096;
    const bool isLarge =
        (m_way == Way::Window || m_way == Way::Texts) && m_window.end - m_window.begin > MANY;
    return !isLarge && cost <= std::min(MANY, m_index.songs().size() / 32);
}

void FurtherMatches::begin(Position song, std::size_t most, Removed removed)
{
    m_song = song;
    m_removed = removed;
    m_window = m_index.windowOf(song);
    m_most = most;
    m_matches.clear();
    ++m_query;
    readSimilarArtists();
}

void FurtherMatches::readSimilarArtists()
{
    m_groups.clear();
    m_groupedCount = 0;
    const FurtherArtists::Artist self = m_index.artists().of(m_song);
    const auto similar = m_index.artists().similarTo(self);
    m_areArtistsKnown = similar.has_value();
    if (!similar)
        return;
    const auto add = [this](FurtherArtists::Artist artist) {
        m_similarArtists[artist] = m_query;
        const std::span<const Position> songs = m_index.songsIn(m_window, artist);
        m_groups.push_back(songs);
        m_groupedCount += songs.size();
    };
    add(self);
    std::for_each(similar->begin(), similar->end(), add);
}

std::size_t FurtherMatches::chooseWay()
{
    const FurtherArtists::Artist self = m_index.artists().of(m_song);
    const std::size_t count = m_areArtistsKnown ? m_groupedCount : m_window.end - m_window.begin;
    const std::size_t cost = m_areArtistsKnown ? count / 3 : costOfWindow();
    m_way = m_areArtistsKnown ? Way::SimilarArtists : Way::Window;
    const std::size_t length = m_index.songs()[m_song].wholeLength;
    const bool isPlaced = !m_index.byTextLength().empty() && length <= LONGEST_PLACED;
    // Choosing keys takes time with the square of the length. Songs of unknown artists are compared more
    // slowly.
    const std::size_t few = isPlaced && !m_areArtistsKnown ? std::min(FEW_COMPARED, m_index.fewSongs())
                                                           : m_index.fewSongs() + length * length / 32;
    if (!m_index.hasKeysFor(self) || count <= few)
        return cost;
    propose();
    const std::size_t containing = countOf(m_containingProposals);
    const std::size_t proposed = containing + countOf(m_similarProposals);
    const std::size_t placed = !isPlaced ? std::numeric_limits<std::size_t>::max()
                                         : containing + (m_window.end - m_window.begin) / PLACED_PER_COMPARED;
    const std::size_t least = std::min({cost, proposed, placed});
    if (least < cost)
        m_way = least == proposed ? Way::Keys : Way::Texts;
    return least;
}

std::size_t FurtherMatches::costOfWindow() const
{
    // Songs of similar artists are compared; a few tell how many those are.
    constexpr std::size_t SAMPLES = 32;
    const FurtherArtists &artists = m_index.artists();
    const FurtherArtists::Artist self = artists.of(m_song);
    const std::size_t count = m_window.end - m_window.begin;
    std::size_t similar = 0;
    for (std::size_t i = 0; i < SAMPLES; ++i) {
        const auto song = static_cast<Position>(m_window.begin + i * count / SAMPLES);
        similar += artists.mayBeSimilar(self, artists.of(song)) ? 1U : 0U;
    }
    return count / PLACED_PER_COMPARED + count * similar / SAMPLES;
}

void FurtherMatches::find(std::size_t place, const Visit &visit)
{
    switch (m_way) {
    case Way::SimilarArtists:
        compareWithSimilarArtists();
        break;
    case Way::Keys:
        compareWithProposed(m_containingProposals);
        compareWithProposed(m_similarProposals);
        break;
    case Way::Window:
    case Way::Texts:
        addWindowSearch(place);
        return;
    }
    visit(place, m_matches);
}

void FurtherMatches::findTogether(const Visit &visit)
{
    compareWithWindows();
    for (const WindowSearch &search : m_windowSearches)
        visit(search.place, search.matches);
    m_windowSearches.clear();
}

void FurtherMatches::addWindowSearch(std::size_t place)
{
    const FurtherSong &song = m_index.songs()[m_song];
    WindowSearch search{place, m_song, m_window, m_way, {}, {}};
    if (m_way == Way::Window) {
        std::u32string memory;
        search.texts.emplace_back(artistOf(song).widened(memory));
    } else {
        compareWithProposed(m_containingProposals);
        search.matches = m_matches;
        forEachTextOf(song, [&](TrackNumber number, Tail tail) {
            fullTextInto(search.texts.emplace_back(), song, number, tail);
        });
    }
    m_windowSearches.push_back(std::move(search));
}

void FurtherMatches::compareWithSimilarArtists()
{
    const FurtherSongs &songs = m_index.songs();
    const FurtherSong &song = songs[m_song];
    for (const std::span<const Position> group : m_groups) {
        for (const Position candidate : group) {
            if (!mayMatchFurther(song, songs[candidate]) || candidate == m_song || isLeftOut(candidate) ||
                !songsMatchFurther(song, songs[candidate]))
                continue;
            m_matches.push_back(candidate);
            if (m_matches.size() >= m_most)
                return;
        }
    }
}

void FurtherMatches::compareWithWindows()
{
    if (m_windowSearches.empty())
        return;
    for (const FurtherIndex::ArtistLength &group : m_index.byArtistLength()) {
        compareWithTexts(group.artists, Way::Window, MATCH_ARTIST_SIMILARITY,
                         [&](WindowSearch &search, std::size_t limit, std::size_t begin, std::size_t end) {
                             compareWithArtists(group, search, limit, begin, end);
                         });
    }
    for (const FurtherTexts &group : m_index.byTextLength()) {
        compareWithTexts(group, Way::Texts, MATCH_TITLE_SIMILARITY,
                         [&](WindowSearch &search, std::size_t, std::size_t begin, std::size_t end) {
                             for (std::size_t i = begin; i < end && compareWith(search, group.songOf(i)); ++i)
                                 continue;
                         });
    }
    for (WindowSearch &search : m_windowSearches) {
        std::sort(search.matches.begin(), search.matches.end());
        search.matches.erase(std::unique(search.matches.begin(), search.matches.end()), search.matches.end());
    }
}

void FurtherMatches::compareWithTexts(const FurtherTexts &group, Way way, double least,
                                      const CompareEach &compareEach)
{
    const FurtherTexts::Places *places = nullptr;
    std::vector<FurtherTexts::Places::Search> placed;
    std::vector<WindowSearch *> searches;
    for (WindowSearch &search : m_windowSearches) {
        if (search.way != way)
            continue;
        const std::size_t begin = group.firstNumberOf(search.window.begin);
        const std::size_t end = group.firstNumberOf(search.window.end);
        for (const std::u32string &text : search.texts) {
            const std::size_t longer = std::max(text.size(), group.length());
            const std::size_t limit = largestDistance(longer, least);
            if (search.matches.size() >= m_most || longer - std::min(text.size(), group.length()) > limit)
                continue;
            if (const auto *indexed = group.placesFor(text.size())) {
                places = indexed;
                placed.push_back({text, limit, begin, end});
                searches.push_back(&search);
            } else {
                compareEach(search, limit, begin, end);
            }
        }
    }
    if (places == nullptr)
        return;
    places->findNear(placed, m_removed, [&](std::size_t search, std::uint32_t number) {
        return compareWith(*searches[search], group.songOf(number));
    });
}

void FurtherMatches::compareWithArtists(const FurtherIndex::ArtistLength &group, WindowSearch &search,
                                        std::size_t limit, std::size_t begin, std::size_t end)
{
    constexpr std::size_t SONGS_AT_A_TIME = 4096;
    const FurtherArtists &artists = m_index.artists();
    const FurtherArtists::Artist self = artists.of(search.song);
    for (; begin < end; begin += SONGS_AT_A_TIME) {
        m_near.clear();
        appendNear(m_near, static_cast<std::uint32_t>(begin),
                   std::span(group.pairBits).subspan(begin, std::min(SONGS_AT_A_TIME, end - begin)),
                   artists.pairBitsOf(self), limit);
        for (const std::uint32_t number : m_near) {
            const Position candidate = group.artists.songOf(number);
            if (artists.mayBeSimilar(self, artists.of(candidate)) && !compareWith(search, candidate))
                return;
        }
    }
}

bool FurtherMatches::compareWith(WindowSearch &search, Position candidate) const
{
    // A song can be found by several of its texts; what is left of that is dropped in the end.
    constexpr std::ptrdiff_t FEW = 128;
    const auto last = search.matches.end();
    const auto first = last - std::min(last - search.matches.begin(), FEW);
    if (candidate != search.song && !isLeftOut(candidate) && std::find(first, last, candidate) == last &&
        songsMatchFurther(m_index.songs()[search.song], m_index.songs()[candidate]))
        search.matches.push_back(candidate);
    return search.matches.size() < m_most;
}

void FurtherMatches::compareWithProposed(std::span<const Hash> proposals)
{
    const WindowIndex &index = m_index.byKey();
    for (const Hash key : proposals)
        index.prefetchList(key, m_window.begin, m_window.end);
    for (const Hash key : proposals)
        index.prefetchSongs(key, m_window.begin, m_window.end);
    for (const Hash key : proposals) {
        if (m_matches.size() >= m_most)
            return;
        index.forEachSongWith(key, m_window.begin, m_window.end,
                              [this](Position candidate) { return compareWith(candidate); });
    }
}

bool FurtherMatches::compareWith(Position candidate)
{
    std::uint32_t &lastQuery = m_lastQueries[candidate];
    if (lastQuery == m_query || candidate == m_song || isLeftOut(candidate))
        return true;
    lastQuery = m_query;
    const FurtherSong &song = m_index.songs()[m_song];
    const FurtherSong &other = m_index.songs()[candidate];
    if (!mayMatchFurther(song, other))
        return true;
    const FurtherArtists &artists = m_index.artists();
    const FurtherArtists::Artist artist = artists.of(candidate);
    const bool mayBeSimilar = m_areArtistsKnown ? m_similarArtists[artist] == m_query
                                                : artists.mayBeSimilar(artists.of(m_song), artist);
    if (mayBeSimilar && songsMatchFurther(song, other))
        m_matches.push_back(candidate);
    return m_matches.size() < m_most;
}

void FurtherMatches::propose()
{
    const FurtherSong &song = m_index.songs()[m_song];
    const FurtherArtists::Artist family = m_index.artists().familyOf(m_index.artists().of(m_song));
    m_similarProposals.clear();
    m_containingProposals.clear();
    for (const TrackNumber number : {TrackNumber::Kept, TrackNumber::Dropped}) {
        if (number == TrackNumber::Dropped && !song.isNumbered())
            continue;
        m_keys.read(song, number, family);
        const std::span<const Hash> grams = m_keys.grams();
        proposeSimilar(grams, song.fullLength(number, Tail::Kept));
        if (song.hasTail())
            proposeSimilar(grams.first(m_keys.gramsBeforeTail()), song.fullLength(number, Tail::Dropped));
        proposeContaining();
    }
    proposeContained();
}

std::size_t FurtherMatches::countOf(std::span<const Hash> proposals) const
{
    const WindowIndex &index = m_index.byKey();
    return std::accumulate(proposals.begin(), proposals.end(), std::size_t{0},
                           [&](std::size_t sum, Hash key) {
                               return sum + index.mostSongsWith(key, m_window.begin, m_window.end);
                           });
}

std::size_t FurtherMatches::costOf(Hash key) const
{
    std::size_t cost = 0;
    for (const Hash scope : m_keys.scopesOfMatches())
        cost += m_index.byKey().countOf(FurtherKeys::inScope(key, scope));
    return cost;
}

std::size_t FurtherMatches::costOfGram(Hash gram) const
{
    // More than all songs, but so little that a sum does not overflow.
    constexpr std::size_t UNUSABLE = std::size_t{1} << 40;
    return m_index.isKey(gram) ? costOf(gram) : UNUSABLE;
}

void FurtherMatches::proposeKey(std::vector<Hash> &proposals, Hash key) const
{
    for (const Hash scope : m_keys.scopesOfMatches())
        proposals.push_back(FurtherKeys::inScope(key, scope));
}

void FurtherMatches::proposeSimilar(std::span<const Hash> grams, std::size_t length)
{
    // So short a text is similar only to an equal one, whose title contains this one.
    if (grams.empty())
        return;
    m_counts.resize(grams.size());
    std::transform(grams.begin(), grams.end(), m_counts.begin(),
                   [this](Hash gram) { return costOfGram(gram); });
    // There is room for them: the distance is little more than a tenth of the length.
    const std::size_t needed = largestDistanceToSimilar(length, MATCH_TITLE_SIMILARITY) + 1;
    const std::size_t gramCost = m_choice.choose(m_counts, FurtherKeys::GRAM_LENGTH, needed);

    std::size_t wordCost = 0;
    for (const Hash word : m_keys.titleWords())
        wordCost += costOf(word);
    if (wordCost < gramCost) {
        for (const Hash word : m_keys.titleWords())
            proposeKey(m_similarProposals, word);
    } else {
        for (const std::size_t place : m_choice.places())
            proposeKey(m_similarProposals, grams[place]);
    }
}

void FurtherMatches::proposeContaining()
{
    std::pair<std::size_t, Hash> rarest(std::numeric_limits<std::size_t>::max(), 0);
    const auto findRarest = [&](std::span<const Hash> keys, auto cost) {
        for (const Hash key : keys)
            rarest = std::min(rarest, std::pair(cost(key), key));
    };
    findRarest(m_keys.wordsBehindNumber(), [this](Hash word) { return costOf(word); });
    findRarest(m_keys.gramsOfTitle(), [this](Hash gram) { return costOfGram(gram); });
    proposeKey(m_containingProposals, rarest.second);
}

void FurtherMatches::proposeContained()
{
    const FurtherArtists &artists = m_index.artists();
    const Hash scope = FurtherKeys::scopeOf(artists.familyOf(artists.of(m_song)));
    for (const Hash title : m_keys.titlesInTitle()) {
        const Hash key = FurtherKeys::inScope(title, scope);
        if (m_index.mayHaveTitle(key))
            m_containingProposals.push_back(key);
    }
}

} // namespace sonavo
