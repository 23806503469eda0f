#include "analysis/further_index.h"

#include "analysis/matching.h"
#include "analysis/parallel.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <string>

namespace sonavo {
namespace {

using Position = FurtherSongs::Position;

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
        while (m_byArtistLength.size() <= length)
            m_byArtistLength.push_back({FurtherTexts(m_byArtistLength.size()), {}});
        m_byArtistLength[length].artists.add({song});
        m_byArtistLength[length].pairBits.push_back(m_artists.pairBitsOf(m_artists.of(song)));
    }
    std::erase_if(m_byArtistLength, [](const ArtistLength &group) { return group.artists.isEmpty(); });
    (void)forEachInParallel(m_byArtistLength.size(), 1, stop, [this](std::size_t i) {
        m_byArtistLength[i].artists.place(MATCH_ARTIST_SIMILARITY, [this](const FurtherTexts::Text &text) {
            std::u32string memory;
            return std::u32string(artistOf(m_songs[text.song]).widened(memory));
        });
    });
}

void FurtherIndex::placeTexts(const std::stop_token &stop)
{
    for (Position song = 0; song < m_songs.size(); ++song) {
        if (!hasKeys(song))
            continue;
        forEachTextOf(m_songs[song], [&](TrackNumber number, Tail tail) {
            const std::size_t length = m_songs[song].fullLength(number, tail);
            while (m_byTextLength.size() <= length)
                m_byTextLength.emplace_back(m_byTextLength.size());
            m_byTextLength[length].add({song, number, tail});
        });
    }
    std::erase_if(m_byTextLength, [](const FurtherTexts &group) { return group.isEmpty(); });
    (void)forEachInParallel(m_byTextLength.size(), 1, stop, [this](std::size_t i) {
        m_byTextLength[i].place(MATCH_TITLE_SIMILARITY, [this](const FurtherTexts::Text &text) {
            std::u32string characters;
            fullTextInto(characters, m_songs[text.song], text.number, text.tail);
            return characters;
        });
    });
}

void FurtherIndex::remove(Position song)
{
    m_isRemoved[song] = true;
    const FurtherSong &removed = m_songs[song];
    const auto byArtist = std::lower_bound(
        m_byArtistLength.begin(), m_byArtistLength.end(), removed.artistLength,
        [](const ArtistLength &group, std::size_t length) { return group.artists.length() < length; });
    if (byArtist != m_byArtistLength.end())
        byArtist->artists.remove(song);
    forEachTextOf(removed, [&](TrackNumber number, Tail tail) {
        const auto byText = std::lower_bound(
            m_byTextLength.begin(), m_byTextLength.end(), removed.fullLength(number, tail),
            [](const FurtherTexts &group, std::size_t length) { return group.length() < length; });
        if (byText != m_byTextLength.end())
            byText->remove(song);
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
    const std::size_t step = 1 + songs.size() / SAMPLES;
    std::size_t sampled = 0;
    std::size_t keyCount = 0;
    FurtherKeys keys;
    for (std::size_t i = 0; i < songs.size(); i += step, ++sampled)
        forEachKeyOf(songs[i], keys, [&keyCount](FurtherKeys::Hash) { ++keyCount; });
    // With a quarter of them, most texts still have enough that do not overlap.
    while (m_gramMask < 3 && keyCount > MANY_KEYS * sampled * (m_gramMask + 1))
        m_gramMask = 2 * m_gramMask + 1;
}

void FurtherIndex::fillBlock(FurtherKeys &keys, std::size_t block)
{
    m_byKey.fill(block, [&](Position song, auto visit) {
        if (hasKeys(song))
            forEachKeyOf(song, keys, visit);
    });
}

} // namespace sonavo
