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

/// Blocks span as much as the window of a song, so that a window needs few of them.
std::vector<Position> blockEndsOf(const FurtherSongs &songs)
{
    constexpr double SPAN = 2 * MATCH_DURATION_DIFF;
    std::vector<Position> ends;
    Position begin = 0;
    for (Position song = 1; song <= songs.size(); ++song) {
        if (song == songs.size() || song - begin == WindowIndex::MOST_SONGS_IN_BLOCK ||
            songs[song].duration - songs[begin].duration > SPAN) {
            ends.push_back(song);
            begin = song;
        }
    }
    return ends;
}

FurtherIndex::Sketch sketchFrom(const FurtherSong &song)
{
    const auto saturated = [](std::uint32_t length) {
        return static_cast<std::uint16_t>(std::min<std::uint32_t>(length, UINT16_MAX));
    };
    return {song.artistCounts,           song.fullCounts,   saturated(song.artistLength),
            saturated(song.wholeLength), song.isNumbered(), song.hasTail()};
}

template <typename Visit>
void forEachKey(FurtherKeys &keys, const FurtherSong &song, Visit visit)
{
    const auto visitInScopes = [&](FurtherKeys::Hash key) {
        for (const FurtherKeys::Hash scope : keys.scopes())
            visit(FurtherKeys::inScope(key, scope));
    };
    for (const TrackNumber number : {TrackNumber::Dropped, TrackNumber::Kept}) {
        if (number == TrackNumber::Kept && !song.isNumbered())
            continue;
        keys.read(song, number);
        std::for_each(keys.grams().begin(), keys.grams().end(), visitInScopes);
        std::for_each(keys.words().begin(), keys.words().end(), visitInScopes);
    }
    visit(FurtherKeys::titleKeyOf(song));
}

/// Calls `visit` with each key that is combined with grams of the artist where it is common.
template <typename Visit>
void forEachKeyWithArtist(FurtherKeys &keys, const FurtherSong &song, Visit visit)
{
    for (const TrackNumber number : {TrackNumber::Dropped, TrackNumber::Kept}) {
        if (number == TrackNumber::Kept && !song.isNumbered())
            continue;
        keys.read(song, number);
        for (const FurtherKeys::Hash word : keys.words()) {
            for (const FurtherKeys::Hash scope : keys.scopes())
                visit(FurtherKeys::inScope(word, scope));
        }
    }
    visit(FurtherKeys::titleKeyOf(song));
}

/// The edit distance within which every similar text lies.
/// @param length characters of the text
/// @param least the similarity that is asked for
std::size_t largestDistanceToSimilar(std::size_t length, double least)
{
    // The longer of the two texts decides, which is the other one here.
    std::size_t longest = length;
    while (longest + 1 - length <= largestDistance(longest + 1, least))
        ++longest;
    return largestDistance(longest, least);
}

/// Chooses grams of a text that do not overlap and whose counts have the least sum.
/// @param counts of the gram at each place
/// @param gramLength characters
/// @param needed how many to choose; the text has room for them
/// @param table kept for its memory
/// @param chosen the places
/// @return the sum
std::size_t chooseRarestGrams(std::span<const std::size_t> counts, std::size_t gramLength, std::size_t needed,
                              std::vector<std::size_t> &table, std::vector<std::size_t> &chosen)
{
    constexpr std::size_t IMPOSSIBLE = std::numeric_limits<std::size_t>::max() / 2;
    // Row k, column i: the least sum of k grams among the first i places.
    const std::size_t columns = counts.size() + 1;
    table.assign((needed + 1) * columns, IMPOSSIBLE);
    std::fill_n(table.begin(), columns, std::size_t{0});
    for (std::size_t row = 1; row <= needed; ++row) {
        const std::size_t *above = &table[(row - 1) * columns];
        std::size_t *sums = &table[row * columns];
        for (std::size_t column = 1; column < columns; ++column) {
            const std::size_t before = column > gramLength ? column - gramLength : 0;
            sums[column] = std::min(sums[column - 1], above[before] + counts[column - 1]);
        }
    }
    chosen.clear();
    std::size_t column = counts.size();
    for (std::size_t row = needed; row > 0; --row) {
        while (table[row * columns + column] == table[row * columns + column - 1])
            --column;
        chosen.push_back(column - 1);
        column = column > gramLength ? column - gramLength : 0;
    }
    return table.back();
}

} // namespace

FurtherIndex::FurtherIndex(const FurtherSongs &songs, const std::stop_token &stop)
    : m_songs(songs)
    , m_byKey(blockEndsOf(songs))
    , m_hasTitle(std::bit_ceil(songs.size() * 16 + 1))
{
    m_sketches.reserve(songs.size());
    std::transform(songs.begin(), songs.end(), std::back_inserter(m_sketches), sketchFrom);
    countKeys();
    (void)forEachInParallel(
        m_byKey.blockCount(), 1, stop, [](std::size_t) { return FurtherKeys(); },
        [this](FurtherKeys &keys, std::size_t block) { fillBlock(keys, block); });
}

void FurtherIndex::countKeys()
{
    // The counts only decide which of several keys is used, so some songs are enough.
    const std::size_t step = 1 + m_songs.size() / 30'000;
    FurtherKeys keys;
    const auto count = [this](FurtherKeys::Hash key) { m_byKey.count(key); };
    for (std::size_t song = 0; song < m_songs.size(); song += step) {
        forEachKey(keys, m_songs[static_cast<Position>(song)], count);
        std::for_each(keys.artistGrams().begin(), keys.artistGrams().end(), count);
        ++m_countedSongs;
    }
    constexpr std::size_t LEAST_COMMON_COUNT = 50;
    m_commonCount = std::max(LEAST_COMMON_COUNT, m_countedSongs / 100);
    for (const FurtherSong &song : m_songs)
        m_hasTitle[placeOf(FurtherKeys::titleKeyOf(song))] = true;
}

void FurtherIndex::fillBlock(FurtherKeys &keys, std::size_t block)
{
    m_byKey.fill(block, [&](Position song, auto visit) {
        forEachKey(keys, m_songs[song], visit);
        forEachKeyWithArtist(keys, m_songs[song], [&](FurtherKeys::Hash key) {
            if (!isCommon(key))
                return;
            for (const FurtherKeys::Hash artistGram : keys.artistGrams())
                visit(withArtist(key, artistGram));
        });
    });
}

std::span<const Position> FurtherMatches::matchesOf(Position song, std::size_t most)
{
    propose(song, most);
    compareWithProposed();
    return m_matches;
}

std::optional<std::span<const Position>> FurtherMatches::matchesIfCheap(Position song, std::size_t most)
{
    // Only songs that are each compared with a share of the library take quadratic time.
    constexpr std::size_t MANY = 4096;
    propose(song, most);
    if (proposedCount() > std::min(MANY, m_index.songs().size() / 32))
        return std::nullopt;
    compareWithProposed();
    return m_matches;
}

void FurtherMatches::propose(Position position, std::size_t most)
{
    const FurtherSongs &songs = m_index.songs();
    const FurtherSong &song = songs[position];
    const auto isBefore = [](const FurtherSong &a, const FurtherSong &b) {
        return b.duration - a.duration > MATCH_DURATION_DIFF;
    };
    const auto begin = std::lower_bound(songs.begin(), songs.end(), song, isBefore);
    const auto end = std::upper_bound(begin, songs.end(), song, isBefore);
    m_windowBegin = static_cast<Position>(begin - songs.begin());
    m_windowEnd = static_cast<Position>(end - songs.begin());
    m_song = position;
    m_most = most;
    m_matches.clear();
    m_proposals.clear();
    ++m_query;

    for (const TrackNumber number : {TrackNumber::Kept, TrackNumber::Dropped}) {
        if (number == TrackNumber::Dropped && !song.isNumbered())
            continue;
        m_keys.read(song, number);
        chooseArtistGrams(song.artistLength);
        const std::span<const Hash> grams = m_keys.grams();
        proposeSimilar(grams, song.fullLength(number, Tail::Kept));
        if (song.hasTail())
            proposeSimilar(grams.first(m_keys.gramsBeforeTail()), song.fullLength(number, Tail::Dropped));
        proposeContaining();
    }
    proposeContained();
}

std::size_t FurtherMatches::proposedCount() const
{
    const WindowIndex &index = m_index.byKey();
    return std::accumulate(m_proposals.begin(), m_proposals.end(), std::size_t{0},
                           [&](std::size_t sum, const Proposal &proposal) {
                               return sum + index.mostSongsWith(proposal.key, m_windowBegin, m_windowEnd);
                           });
}

void FurtherMatches::chooseArtistGrams(std::uint32_t artistLength)
{
    const std::vector<Hash> &grams = m_keys.artistGrams();
    m_counts.resize(grams.size());
    std::transform(grams.begin(), grams.end(), m_counts.begin(),
                   [this](Hash gram) { return m_index.byKey().countOf(gram); });
    const std::size_t needed = largestDistanceToSimilar(artistLength, MATCH_ARTIST_SIMILARITY) + 1;
    (void)chooseRarestGrams(m_counts, FurtherKeys::ARTIST_GRAM_LENGTH, needed, m_sums, m_chosen);
    m_artistGrams.clear();
    m_artistShare = 0.0;
    for (const std::size_t place : m_chosen) {
        m_artistGrams.push_back(grams[place]);
        m_artistShare += m_index.shareOf(grams[place]);
    }
}

std::size_t FurtherMatches::costOfGram(Hash gram) const
{
    std::size_t cost = 0;
    for (const Hash scope : m_keys.scopesOfMatches())
        cost += m_index.byKey().countOf(FurtherKeys::inScope(gram, scope));
    return cost;
}

std::size_t FurtherMatches::costOfWord(Hash word) const
{
    std::size_t cost = 0;
    for (const Hash scope : m_keys.scopesOfMatches()) {
        const Hash key = FurtherKeys::inScope(word, scope);
        const double share = m_index.isCommon(key) ? std::min(m_artistShare, 1.0) : 1.0;
        cost += static_cast<std::size_t>(share * static_cast<double>(m_index.byKey().countOf(key)));
    }
    return cost;
}

void FurtherMatches::proposeGram(Hash gram, Reason reason)
{
    for (const Hash scope : m_keys.scopesOfMatches())
        m_proposals.push_back({FurtherKeys::inScope(gram, scope), reason});
}

void FurtherMatches::proposeWord(Hash word, Reason reason)
{
    for (const Hash scope : m_keys.scopesOfMatches())
        proposeWithArtist(FurtherKeys::inScope(word, scope), reason);
}

void FurtherMatches::proposeWithArtist(Hash key, Reason reason)
{
    if (m_artistShare >= 1.0 || !m_index.isCommon(key)) {
        m_proposals.push_back({key, reason});
        return;
    }
    for (const Hash artistGram : m_artistGrams)
        m_proposals.push_back({FurtherIndex::withArtist(key, artistGram), reason});
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
    const std::size_t gramCost =
        chooseRarestGrams(m_counts, FurtherKeys::GRAM_LENGTH, needed, m_sums, m_chosen);

    std::size_t wordCost = 0;
    for (const Hash word : m_keys.titleWords())
        wordCost += costOfWord(word);
    if (wordCost < gramCost) {
        for (const Hash word : m_keys.titleWords())
            proposeWord(word, Reason::Similar);
    } else {
        for (const std::size_t place : m_chosen)
            proposeGram(grams[place], Reason::Similar);
    }
}

void FurtherMatches::proposeContaining()
{
    static constexpr auto LARGEST = std::numeric_limits<std::size_t>::max();
    const auto rarestOf = [](std::span<const Hash> keys, auto costOf) {
        std::pair<std::size_t, Hash> rarest(LARGEST, 0);
        for (const Hash key : keys)
            rarest = std::min(rarest, std::pair(costOf(key), key));
        return rarest;
    };
    const auto word = rarestOf(m_keys.wordsBehindNumber(), [this](Hash key) { return costOfWord(key); });
    const auto gram = rarestOf(m_keys.gramsOfTitle(), [this](Hash key) { return costOfGram(key); });
    if (word.first <= gram.first)
        proposeWord(word.second, Reason::Contains);
    else
        proposeGram(gram.second, Reason::Contains);
}

void FurtherMatches::proposeContained()
{
    for (const Hash title : m_keys.titlesInTitle()) {
        if (m_index.mayHaveTitle(title))
            proposeWithArtist(title, Reason::Contains);
    }
}

bool FurtherMatches::mayArtistsMatch(const FurtherIndex::Sketch &candidate) const
{
    const FurtherIndex::Sketch &song = m_index.sketchOf(m_song);
    const std::uint16_t length = std::max(song.artistLength, candidate.artistLength);
    return mayBeWithin(largestDistance(length, MATCH_ARTIST_SIMILARITY), song.artistLength,
                       candidate.artistLength, song.artistCounts, candidate.artistCounts);
}

bool FurtherMatches::mayFullTextsMatch(const FurtherIndex::Sketch &candidate) const
{
    const FurtherIndex::Sketch &song = m_index.sketchOf(m_song);
    // Where only one song has a number or a tail, the counts say nothing.
    if (song.isNumbered != candidate.isNumbered || song.hasTail != candidate.hasTail)
        return true;
    const std::uint16_t length = std::max(song.fullLength, candidate.fullLength);
    return mayBeWithin(largestDistance(length, MATCH_TITLE_SIMILARITY), song.fullLength, candidate.fullLength,
                       song.fullCounts, candidate.fullCounts);
}

void FurtherMatches::compareWithProposed()
{
    const WindowIndex &index = m_index.byKey();
    for (const Proposal &proposal : m_proposals)
        index.prefetchList(proposal.key, m_windowBegin, m_windowEnd);
    for (const Proposal &proposal : m_proposals)
        index.prefetchSongs(proposal.key, m_windowBegin, m_windowEnd);
    for (const Proposal &proposal : m_proposals) {
        index.forEachSongWith(proposal.key, m_windowBegin, m_windowEnd, [&](Position candidate) {
            compareWith(candidate, proposal.reason);
            return m_matches.size() < m_most;
        });
        if (m_matches.size() >= m_most)
            return;
    }
}

void FurtherMatches::compareWith(Position candidate, Reason reason)
{
    std::uint32_t &lastQuery = m_lastQueries[candidate];
    if (lastQuery >= m_query || candidate == m_song)
        return;
    const FurtherIndex::Sketch &sketch = m_index.sketchOf(candidate);
    if (!mayArtistsMatch(sketch)) {
        lastQuery = m_query;
        return;
    }
    // It may be proposed for another reason, too.
    if (reason == Reason::Similar && !mayFullTextsMatch(sketch))
        return;
    lastQuery = m_query;
    if (songsMatchFurther(m_index.songs()[m_song], m_index.songs()[candidate]))
        m_matches.push_back(candidate);
}

} // namespace sonavo
