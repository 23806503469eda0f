#include "analysis/further_matches.h"

#include "analysis/distance.h"
#include "analysis/matching.h"
#include "analysis/parallel.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <limits>
#include <numeric>
#include <utility>

namespace sonavo {
namespace {

using Position = FurtherSongs::Position;

/// Fewer texts than this are compared as fast as they are looked up.
constexpr std::size_t FEW_TEXTS = 256;
/// How many texts CharacterPlaces rejects in the time that it takes to compare two songs.
constexpr std::size_t PLACED_PER_COMPARED = 32;

/// Blocks span as much as the window of a song, so that a window needs few of them. Filling one takes memory
/// for all of its keys.
std::vector<Position> blockEndsOf(const FurtherSongs &songs)
{
    constexpr double SPAN = 2 * MATCH_DURATION_DIFF;
    constexpr std::size_t MANY_CHARACTERS = std::size_t{1} << 20;
    std::vector<Position> ends;
    Position begin = 0;
    std::size_t characters = 0;
    for (Position song = 0; song < songs.size(); ++song) {
        characters += songs[song].wholeLength;
        const Position next = song + 1;
        if (next == songs.size() || next - begin == WindowIndex::MOST_SONGS_IN_BLOCK ||
            characters > MANY_CHARACTERS || songs[next].duration - songs[begin].duration > SPAN) {
            ends.push_back(next);
            begin = next;
            characters = 0;
        }
    }
    return ends;
}

/// Calls `visit` for each way in which a song is in the index.
template <typename Visit>
void forEachNumberOf(const FurtherSong &song, Visit visit)
{
    visit(TrackNumber::Dropped);
    if (song.isNumbered())
        visit(TrackNumber::Kept);
}

/// Calls `visit` with each way in which the full text of a song is compared.
template <typename Visit>
void forEachTextOf(const FurtherSong &song, Visit visit)
{
    for (const TrackNumber number : {TrackNumber::Kept, TrackNumber::Dropped}) {
        for (const Tail tail : {Tail::Kept, Tail::Dropped}) {
            if ((number == TrackNumber::Kept || song.isNumbered()) && (tail == Tail::Kept || song.hasTail()))
                visit(number, tail);
        }
    }
}

} // namespace

FurtherIndex::FurtherIndex(const FurtherSongs &songs, const std::stop_token &stop)
    : m_songs(songs)
    , m_artists(songs, stop)
    , m_hasKeysFor(m_artists.size())
    , m_hasKeys(m_artists.size())
    , m_byKey(blockEndsOf(songs))
    , m_hasTitle(std::bit_ceil(songs.size() * 16 + 1))
    , m_isRemoved(songs.size())
{
    // Comparing with so many songs takes about as long as choosing keys and asking for them.
    constexpr std::size_t FEW = 1024;
    m_fewSongs = std::min(FEW, songs.size() / 16);
    m_durations.reserve(songs.size());
    std::transform(songs.begin(), songs.end(), std::back_inserter(m_durations),
                   [](const FurtherSong &song) { return song.duration; });
    chooseSongsWithKeys(stop);
    if (std::none_of(m_hasKeys.begin(), m_hasKeys.end(), [](char hasKeys) { return hasKeys != 0; }))
        return;
    countKeys();
    (void)forEachInParallel(
        m_byKey.blockCount(), 1, stop, [](std::size_t) { return FurtherKeys(); },
        [this](FurtherKeys &keys, std::size_t block) { fillBlock(keys, block); });
}

FurtherIndex::Window FurtherIndex::windowOf(Position song) const
{
    const auto isBefore = [](double a, double b) { return b - a > MATCH_DURATION_DIFF; };
    const double duration = m_durations[song];
    const auto begin = std::lower_bound(m_durations.begin(), m_durations.end(), duration, isBefore);
    const auto end = std::upper_bound(begin, m_durations.end(), duration, isBefore);
    return {static_cast<Position>(begin - m_durations.begin()),
            static_cast<Position>(end - m_durations.begin())};
}

std::span<const Position> FurtherIndex::songsIn(Window window, FurtherArtists::Artist artist) const
{
    const std::span<const Position> songs = m_artists.songsOf(artist);
    const auto begin = std::lower_bound(songs.begin(), songs.end(), window.begin);
    return {begin, std::lower_bound(begin, songs.end(), window.end)};
}

bool FurtherIndex::isLarge(FurtherArtists::Artist artist) const
{
    const auto similar = m_artists.similarTo(artist);
    if (!similar)
        return true;
    std::size_t all = m_artists.songsOf(artist).size();
    for (const FurtherArtists::Artist other : *similar)
        all += m_artists.songsOf(other).size();
    if (all <= m_fewSongs)
        return false;
    const std::span<const Position> songs = m_artists.songsOf(artist);
    return std::any_of(songs.begin(), songs.end(), [&](Position song) {
        const Window window = windowOf(song);
        std::size_t count = songsIn(window, artist).size();
        for (const FurtherArtists::Artist other : *similar)
            count += songsIn(window, other).size();
        return count > m_fewSongs;
    });
}

void FurtherIndex::chooseSongsWithKeys(const std::stop_token &stop)
{
    constexpr std::size_t ARTISTS_PER_PART = 64;
    (void)forEachInParallel(m_artists.size(), ARTISTS_PER_PART, stop, [this](std::size_t artist) {
        m_hasKeysFor[artist] = isLarge(static_cast<FurtherArtists::Artist>(artist)) ? 1 : 0;
    });
    if (!m_artists.areAllKnown()) {
        std::fill(m_hasKeys.begin(), m_hasKeys.end(), 1);
        groupByArtistLength(stop);
        return;
    }
    for (FurtherArtists::Artist artist = 0; artist < m_artists.size(); ++artist) {
        if (!hasKeysFor(artist))
            continue;
        m_hasKeys[artist] = 1;
        const auto similar = m_artists.similarTo(artist);
        std::for_each(similar->begin(), similar->end(),
                      [this](FurtherArtists::Artist other) { m_hasKeys[other] = 1; });
    }
}

void FurtherIndex::groupByArtistLength(const std::stop_token &stop)
{
    for (Position song = 0; song < m_songs.size(); ++song) {
        const std::size_t length = m_songs[song].artistLength;
        if (length >= m_byArtistLength.size())
            m_byArtistLength.resize(length + 1);
        m_byArtistLength[length].length = length;
        m_byArtistLength[length].songs.push_back(song);
        m_byArtistLength[length].pairBits.push_back(m_artists.pairBitsOf(m_artists.of(song)));
    }
    std::erase_if(m_byArtistLength, [](const ArtistLength &group) { return group.songs.empty(); });
    (void)forEachInParallel(m_byArtistLength.size(), 1, stop, [this](std::size_t i) {
        ArtistLength &group = m_byArtistLength[i];
        if (group.songs.size() < FEW_TEXTS || group.length > LONGEST_PLACED)
            return;
        group.places.emplace();
        group.places->build(group.length, group.songs.size(),
                            largestDistanceToSimilar(group.length, MATCH_ARTIST_SIMILARITY),
                            [&](std::size_t number) { return artistOf(m_songs[group.songs[number]]); });
    });
}

void FurtherIndex::placeTexts(const std::stop_token &stop)
{
    const auto add = [this](Position song, TrackNumber number, Tail tail) {
        const std::size_t length = m_songs[song].fullLength(number, tail);
        if (length >= m_byTextLength.size())
            m_byTextLength.resize(length + 1);
        m_byTextLength[length].length = length;
        m_byTextLength[length].texts.push_back({song, number, tail});
    };
    for (Position song = 0; song < m_songs.size(); ++song) {
        if (!hasKeys(song))
            continue;
        forEachTextOf(m_songs[song], [&](TrackNumber number, Tail tail) { add(song, number, tail); });
    }
    std::erase_if(m_byTextLength, [](const TextLength &group) { return group.texts.empty(); });
    (void)forEachInParallel(m_byTextLength.size(), 1, stop, [this](std::size_t i) {
        TextLength &group = m_byTextLength[i];
        if (group.texts.size() < FEW_TEXTS || group.length > LONGEST_PLACED)
            return;
        group.places.emplace();
        group.places->build(group.length, group.texts.size(),
                            largestDistanceToSimilar(group.length, MATCH_TITLE_SIMILARITY),
                            [&](std::size_t number) {
                                const Text &text = group.texts[number];
                                std::u32string characters;
                                fullTextInto(characters, m_songs[text.song], text.number, text.tail);
                                return characters;
                            });
    });
}

void FurtherIndex::remove(Position song)
{
    m_isRemoved[song] = true;
    const auto isShorter = [](const auto &group, std::size_t length) { return group.length < length; };
    const FurtherSong &removed = m_songs[song];
    const auto byArtist =
        std::lower_bound(m_byArtistLength.begin(), m_byArtistLength.end(), removed.artistLength, isShorter);
    if (byArtist != m_byArtistLength.end() && byArtist->places) {
        const auto place = std::lower_bound(byArtist->songs.begin(), byArtist->songs.end(), song);
        byArtist->places->remove(static_cast<std::size_t>(place - byArtist->songs.begin()));
    }
    forEachTextOf(removed, [&](TrackNumber number, Tail tail) {
        const auto group = std::lower_bound(m_byTextLength.begin(), m_byTextLength.end(),
                                            removed.fullLength(number, tail), isShorter);
        if (group == m_byTextLength.end() || !group->places)
            return;
        const auto [begin, end] =
            std::equal_range(group->texts.begin(), group->texts.end(), Text{song},
                             [](const Text &a, const Text &b) { return a.song < b.song; });
        for (auto text = begin; text != end; ++text)
            group->places->remove(static_cast<std::size_t>(text - group->texts.begin()));
    });
}

template <typename Visit>
void FurtherIndex::forEachKeyOf(Position position, FurtherKeys &keys, Visit visit) const
{
    const FurtherSong &song = m_songs[position];
    const FurtherArtists::Artist family = m_artists.familyOf(m_artists.of(position));
    forEachNumberOf(song, [&](TrackNumber number) {
        keys.read(song, number, family);
        for (const FurtherKeys::Hash scope : keys.scopes()) {
            for (const FurtherKeys::Hash gram : keys.grams()) {
                if (isKey(gram))
                    visit(FurtherKeys::inScope(gram, scope));
            }
            for (const FurtherKeys::Hash word : keys.words())
                visit(FurtherKeys::inScope(word, scope));
        }
    });
    visit(FurtherKeys::inScope(FurtherKeys::titleKeyOf(song), FurtherKeys::scopeOf(family)));
}

void FurtherIndex::countKeys()
{
    std::vector<Position> songs;
    for (Position song = 0; song < m_songs.size(); ++song) {
        if (hasKeys(song))
            songs.push_back(song);
    }
    chooseGrams(songs);
    for (const Position song : songs)
        m_hasTitle[placeOf(
            FurtherKeys::inScope(FurtherKeys::titleKeyOf(m_songs[song]),
                                 FurtherKeys::scopeOf(m_artists.familyOf(m_artists.of(song)))))] = true;
    // The counts only decide which of several keys is used, so some songs are enough.
    constexpr std::size_t ENOUGH = 30'000;
    FurtherKeys keys;
    for (std::size_t i = 0; i < songs.size(); i += 1 + songs.size() / ENOUGH)
        forEachKeyOf(songs[i], keys, [this](FurtherKeys::Hash key) { m_byKey.count(key); });
}

void FurtherIndex::chooseGrams(std::span<const Position> songs)
{
    constexpr std::size_t MANY_KEYS = 48;
    constexpr std::size_t SAMPLES = 1024;
    // So many that there are still enough in a text that do not overlap.
    constexpr std::uint64_t MOST = 3;
    const std::size_t step = 1 + songs.size() / SAMPLES;
    std::size_t keyCount = 0;
    FurtherKeys keys;
    for (std::size_t i = 0; i < songs.size(); i += step)
        forEachKeyOf(songs[i], keys, [&keyCount](FurtherKeys::Hash) { ++keyCount; });
    const std::size_t perSong = keyCount * step / songs.size();
    m_gramMask = std::min(std::bit_ceil(perSong / MANY_KEYS + 1) - 1, MOST);
}

void FurtherIndex::fillBlock(FurtherKeys &keys, std::size_t block)
{
    m_byKey.fill(block, [&](Position song, auto visit) {
        if (hasKeys(song))
            forEachKeyOf(song, keys, visit);
    });
}

void FurtherMatches::forEachMatches(std::span<const Position> songs, std::size_t most, Removed removed,
                                    const std::function<void(std::size_t, std::span<const Position>)> &visit)
{
    m_windowSearches.clear();
    for (std::size_t i = 0; i < songs.size(); ++i) {
        begin(songs[i], most, removed);
        (void)chooseWay();
        if (m_way == Way::Window || m_way == Way::Texts) {
            addWindowSearch(i);
            continue;
        }
        find();
        visit(i, m_matches);
    }
    compareWithWindows();
    for (const WindowSearch &search : m_windowSearches)
        visit(search.place, search.matches);
}

std::optional<std::span<const Position>> FurtherMatches::matchesIfCheap(Position song, std::size_t most)
{
    // Only songs that are each compared with a share of the library take quadratic time.
    constexpr std::size_t MANY = 4096;
    begin(song, most, Removed::Included);
    const std::size_t cost = chooseWay();
    const bool isLarge =
        (m_way == Way::Window || m_way == Way::Texts) && m_window.end - m_window.begin > MANY;
    if (isLarge || cost > std::min(MANY, m_index.songs().size() / 32))
        return std::nullopt;
    find();
    return m_matches;
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
    if (!m_index.hasKeysFor(self) || count <= m_index.fewSongs())
        return cost;
    propose();
    const std::size_t containing = countOf(m_containingProposals);
    const std::size_t proposed = containing + countOf(m_similarProposals);
    const std::size_t placed = m_index.byTextLength().empty()
                                   ? std::numeric_limits<std::size_t>::max()
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

void FurtherMatches::find()
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
        m_windowSearches.clear();
        addWindowSearch(0);
        compareWithWindows();
        m_matches.swap(m_windowSearches[0].matches);
    }
}

void FurtherMatches::addWindowSearch(std::size_t place)
{
    WindowSearch search{place, m_song, m_window, {}, {}};
    if (m_way == Way::Texts) {
        compareWithProposed(m_containingProposals);
        search.matches = m_matches;
        const FurtherSong &song = m_index.songs()[m_song];
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
    for (const FurtherIndex::ArtistLength &group : m_index.byArtistLength())
        compareWithArtistsOf(group);
    for (const FurtherIndex::TextLength &group : m_index.byTextLength())
        compareWithTextsOf(group);
    for (WindowSearch &search : m_windowSearches) {
        std::sort(search.matches.begin(), search.matches.end());
        search.matches.erase(std::unique(search.matches.begin(), search.matches.end()), search.matches.end());
    }
}

void FurtherMatches::compareWithTextsOf(const FurtherIndex::TextLength &group)
{
    const auto placeOf = [&group](Position song) {
        const auto place = std::lower_bound(
            group.texts.begin(), group.texts.end(), song,
            [](const FurtherIndex::Text &text, Position other) { return text.song < other; });
        return static_cast<std::size_t>(place - group.texts.begin());
    };
    std::vector<CharacterPlaces<char32_t>::Search> placed;
    std::vector<WindowSearch *> searches;
    for (WindowSearch &search : m_windowSearches) {
        const std::size_t begin = placeOf(search.window.begin);
        const std::size_t end = placeOf(search.window.end);
        for (const std::u32string &text : search.texts) {
            const std::size_t longer = std::max(text.size(), group.length);
            const std::size_t limit = largestDistance(longer, MATCH_TITLE_SIMILARITY);
            if (search.matches.size() >= m_most || longer - std::min(text.size(), group.length) > limit)
                continue;
            if (group.places && text.size() <= LONGEST_PLACED) {
                placed.push_back({text, limit, begin, end});
                searches.push_back(&search);
                continue;
            }
            (void)std::all_of(
                group.texts.begin() + static_cast<std::ptrdiff_t>(begin),
                group.texts.begin() + static_cast<std::ptrdiff_t>(end),
                [&](const FurtherIndex::Text &other) { return compareWith(search, other.song); });
        }
    }
    if (placed.empty())
        return;
    group.places->findNear(placed, m_removed, [&](std::size_t search, std::uint32_t number) {
        return compareWith(*searches[search], group.texts[number].song);
    });
}

void FurtherMatches::compareWithArtistsOf(const FurtherIndex::ArtistLength &group)
{
    const auto placeOf = [&group](Position song) {
        const auto place = std::lower_bound(group.songs.begin(), group.songs.end(), song);
        return static_cast<std::size_t>(place - group.songs.begin());
    };
    std::vector<CharacterPlaces<char32_t>::Search> placed;
    std::vector<WindowSearch *> searches;
    for (WindowSearch &search : m_windowSearches) {
        const std::u32string_view artist = artistOf(m_index.songs()[search.song]);
        const std::size_t longer = std::max(artist.size(), group.length);
        const std::size_t limit = largestDistance(longer, MATCH_ARTIST_SIMILARITY);
        if (!search.texts.empty() || search.matches.size() >= m_most ||
            longer - std::min(artist.size(), group.length) > limit)
            continue;
        if (!group.places || artist.size() > LONGEST_PLACED) {
            compareWithArtistsOf(group, limit, search);
            continue;
        }
        placed.push_back({artist, limit, placeOf(search.window.begin), placeOf(search.window.end)});
        searches.push_back(&search);
    }
    if (placed.empty())
        return;
    group.places->findNear(placed, m_removed, [&](std::size_t search, std::uint32_t number) {
        return compareWith(*searches[search], group.songs[number]);
    });
}

void FurtherMatches::compareWithArtistsOf(const FurtherIndex::ArtistLength &group, std::size_t limit,
                                          WindowSearch &search)
{
    constexpr std::size_t SONGS_AT_A_TIME = 4096;
    const FurtherArtists &artists = m_index.artists();
    const FurtherArtists::Artist self = artists.of(search.song);
    const auto placeOf = [&group](Position song) {
        const auto place = std::lower_bound(group.songs.begin(), group.songs.end(), song);
        return static_cast<std::size_t>(place - group.songs.begin());
    };
    const std::size_t end = placeOf(search.window.end);
    for (std::size_t begin = placeOf(search.window.begin); begin < end; begin += SONGS_AT_A_TIME) {
        m_near.clear();
        appendNear(m_near, static_cast<std::uint32_t>(begin),
                   std::span(group.pairBits).subspan(begin, std::min(SONGS_AT_A_TIME, end - begin)),
                   artists.pairBitsOf(self), limit);
        for (const std::uint32_t place : m_near) {
            const Position candidate = group.songs[place];
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
