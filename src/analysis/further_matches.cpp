#include "analysis/further_matches.h"

#include "analysis/distance.h"
#include "analysis/matching.h"
#include "analysis/normalization.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace sonavo {
namespace {

constexpr std::size_t GRAM_LENGTH = 4;

/// What a key of the index is made of.
enum class KeyKind : std::uint64_t
{
    /// GRAM_LENGTH characters of the full text, with the track number or without it.
    Gram = 0xCBF29CE484222325,
    /// A word of the title without its track number.
    Word = 0x9E3779B97F4A7C15,
    /// The title without its track number.
    Title = 0xC2B2AE3D27D4EB4F
};

/// FNV-1a (Fowler, Noll and Vo), a character at a time, from a start for each kind.
constexpr std::uint64_t hashedWith(std::uint64_t hash, char32_t character)
{
    return (hash ^ character) * 1099511628211ULL;
}

std::uint64_t hashOf(KeyKind kind, std::u32string_view text)
{
    auto hash = static_cast<std::uint64_t>(kind);
    for (const char32_t character : text)
        hash = hashedWith(hash, character);
    return hash;
}

/// Where the block of songs ends that begins at a position: it spans as much as the window of a song, so that
/// a window needs few blocks.
FurtherSongs::Position endOfBlock(const FurtherSongs &songs, FurtherSongs::Position begin)
{
    constexpr double SPAN = 2 * MATCH_DURATION_DIFF;
    FurtherSongs::Position end = begin;
    while (end < songs.size() && end - begin < WindowIndex::MOST_SONGS_IN_BLOCK &&
           songs[end].duration - songs[begin].duration <= SPAN)
        ++end;
    return end;
}

/// The edit distance within which every similar text lies.
/// @param length characters of the text
std::size_t largestDistanceToSimilar(std::size_t length)
{
    // The longer of the two texts decides, which is the other one here.
    std::size_t longest = length;
    while (longest + 1 - length <= largestDistance(longest + 1, MATCH_TITLE_SIMILARITY))
        ++longest;
    return largestDistance(longest, MATCH_TITLE_SIMILARITY);
}

/// Chooses grams of a text that do not overlap and whose counts have the least sum.
/// @param counts of the gram at each place
/// @param needed how many to choose; the text has room for them
/// @param table kept for its memory
/// @param chosen the places
/// @return the sum
std::size_t chooseRarestGrams(std::span<const std::size_t> counts, std::size_t needed,
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
            const std::size_t before = column > GRAM_LENGTH ? column - GRAM_LENGTH : 0;
            sums[column] = std::min(sums[column - 1], above[before] + counts[column - 1]);
        }
    }
    chosen.clear();
    std::size_t column = counts.size();
    for (std::size_t row = needed; row > 0; --row) {
        while (table[row * columns + column] == table[row * columns + column - 1])
            --column;
        chosen.push_back(column - 1);
        column = column > GRAM_LENGTH ? column - GRAM_LENGTH : 0;
    }
    return table.back();
}

} // namespace

FurtherMatches::FurtherMatches(const FurtherSongs &songs)
    : m_songs(songs)
{
    m_sketches.reserve(songs.size());
    std::transform(songs.begin(), songs.end(), std::back_inserter(m_sketches), sketchOf);
    for (Position begin = 0; begin < songs.size();) {
        const Position end = endOfBlock(songs, begin);
        m_index.addBlock(end, [this](Position song, auto visit) { forEachKey(m_songs[song], visit); });
        begin = end;
    }
}

template <typename Visit>
void FurtherMatches::forEachKey(const FurtherSong &song, Visit visit)
{
    readGrams(song, TrackNumber::Kept);
    std::for_each(m_grams.begin(), m_grams.end(), visit);
    if (song.isNumbered()) {
        readGrams(song, TrackNumber::Dropped);
        std::for_each(m_grams.begin(), m_grams.end(), visit);
    }
    visit(hashOf(KeyKind::Title, m_songs.titleOf(song, TrackNumber::Dropped)));
    forEachWord(m_songs.titleOf(song, TrackNumber::Kept),
                [&](std::u32string_view word) { visit(hashOf(KeyKind::Word, word)); });
}

void FurtherMatches::readGrams(const FurtherSong &song, TrackNumber number)
{
    m_songs.fullTextInto(m_text, song, number);
    m_text.insert(m_text.begin(), U' ');
    m_text += U' ';
    if (m_text.size() < GRAM_LENGTH)
        m_text.resize(GRAM_LENGTH, U' ');
    m_grams.clear();
    for (std::size_t i = 0; i + GRAM_LENGTH <= m_text.size(); ++i)
        m_grams.push_back(hashOf(KeyKind::Gram, std::u32string_view(m_text).substr(i, GRAM_LENGTH)));
}

std::span<const FurtherMatches::Position> FurtherMatches::matchesOf(Position position, std::size_t most)
{
    const FurtherSong &song = m_songs[position];
    const auto isBefore = [](const FurtherSong &a, const FurtherSong &b) {
        return b.duration - a.duration > MATCH_DURATION_DIFF;
    };
    const auto begin = std::lower_bound(m_songs.begin(), m_songs.end(), song, isBefore);
    const auto end = std::upper_bound(begin, m_songs.end(), song, isBefore);
    m_windowBegin = static_cast<Position>(begin - m_songs.begin());
    m_windowEnd = static_cast<Position>(end - m_songs.begin());
    m_song = position;
    m_most = most;
    m_matches.clear();
    m_proposals.clear();
    m_sketch = sketchOf(song);
    ++m_query;

    proposeContained(song);
    proposeSimilar(song, TrackNumber::Kept);
    if (song.isNumbered())
        proposeSimilar(song, TrackNumber::Dropped);
    proposeContaining(song);
    compareWithProposed();
    return m_matches;
}

void FurtherMatches::proposeSimilar(const FurtherSong &song, TrackNumber number)
{
    readGrams(song, number);
    m_counts.resize(m_grams.size());
    std::transform(m_grams.begin(), m_grams.end(), m_counts.begin(),
                   [this](Hash gram) { return m_index.countOf(gram); });
    // There is room for them: the distance is little more than a tenth of the length.
    const std::size_t needed = largestDistanceToSimilar(song.fullLength(number)) + 1;
    const std::size_t gramCount = chooseRarestGrams(m_counts, needed, m_sums, m_chosen);

    std::size_t wordCount = 0;
    forEachTitleWord(song, [&](Hash word) { wordCount += m_index.countOf(word); });
    if (wordCount < gramCount) {
        forEachTitleWord(song, [this](Hash word) { m_proposals.push_back({word, Reason::Similar}); });
    } else {
        for (const std::size_t place : m_chosen)
            m_proposals.push_back({m_grams[place], Reason::Similar});
    }
}

void FurtherMatches::proposeContaining(const FurtherSong &song)
{
    const std::u32string_view title = m_songs.titleOf(song, TrackNumber::Dropped);
    Hash rarest = 0;
    std::size_t least = std::numeric_limits<std::size_t>::max();
    const auto consider = [&](Hash key) {
        if (const std::size_t count = m_index.countOf(key); count < least) {
            least = count;
            rarest = key;
        }
    };
    forEachWord(title, [&](std::u32string_view word) { consider(hashOf(KeyKind::Word, word)); });
    if (title.size() + 2 >= GRAM_LENGTH) {
        readGrams(song, TrackNumber::Dropped);
        const auto ofTitle = std::span(m_grams).last(title.size() + 3 - GRAM_LENGTH);
        std::for_each(ofTitle.begin(), ofTitle.end(), consider);
    }
    m_proposals.push_back({rarest, Reason::Contains});
}

void FurtherMatches::proposeContained(const FurtherSong &song)
{
    const std::u32string_view title = m_songs.titleOf(song, TrackNumber::Dropped);
    for (std::size_t begin = 0; begin < title.size(); ++begin) {
        if (begin > 0 && title[begin - 1] != U' ')
            continue;
        auto hash = static_cast<Hash>(KeyKind::Title);
        for (std::size_t end = begin; end < title.size(); ++end) {
            hash = hashedWith(hash, title[end]);
            if (end + 1 == title.size() || title[end + 1] == U' ')
                m_proposals.push_back({hash, Reason::Contains});
        }
    }
}

template <typename Visit>
void FurtherMatches::forEachTitleWord(const FurtherSong &song, Visit visit) const
{
    forEachWord(m_songs.titleOf(song, TrackNumber::Kept), [&](std::u32string_view word) {
        if (isTitleWord(word))
            visit(hashOf(KeyKind::Word, word));
    });
}

FurtherMatches::Sketch FurtherMatches::sketchOf(const FurtherSong &song)
{
    const auto saturated = [](std::uint32_t length) {
        return static_cast<std::uint16_t>(std::min<std::uint32_t>(length, UINT16_MAX));
    };
    // Where one of two songs has a number, the bags of their texts say nothing.
    const std::uint16_t fullLength = song.isNumbered() ? 0 : saturated(song.wholeLength);
    return {song.artistBag, song.fullBag, saturated(song.artistLength), fullLength, 0};
}

bool FurtherMatches::mayMatch(const Sketch &candidate, Reason reason) const
{
    const auto mayBeSimilar = [](std::uint16_t lengthA, std::uint16_t lengthB, std::uint64_t bagA,
                                 std::uint64_t bagB, double least) {
        return mayBeWithin(largestDistance(std::max(lengthA, lengthB), least), lengthA, lengthB, bagA, bagB);
    };
    if (!mayBeSimilar(m_sketch.artistLength, candidate.artistLength, m_sketch.artistBag, candidate.artistBag,
                      MATCH_ARTIST_SIMILARITY))
        return false;
    return reason == Reason::Contains || m_sketch.fullLength == 0 || candidate.fullLength == 0 ||
           mayBeSimilar(m_sketch.fullLength, candidate.fullLength, m_sketch.fullBag, candidate.fullBag,
                        MATCH_TITLE_SIMILARITY);
}

void FurtherMatches::compareWithProposed()
{
    for (const Proposal &proposal : m_proposals)
        m_index.prefetchList(proposal.key, m_windowBegin, m_windowEnd);
    for (const Proposal &proposal : m_proposals)
        m_index.prefetchSongs(proposal.key, m_windowBegin, m_windowEnd);
    for (const Proposal &proposal : m_proposals) {
        m_index.forEachSongWith(proposal.key, m_windowBegin, m_windowEnd, [&](Position candidate) {
            compareWith(candidate, proposal.reason);
            return m_matches.size() < m_most;
        });
        if (m_matches.size() >= m_most)
            return;
    }
}

void FurtherMatches::compareWith(Position candidate, Reason reason)
{
    Sketch &sketch = m_sketches[candidate];
    if (sketch.lastQuery >= m_query || candidate == m_song || !mayMatch(sketch, reason))
        return;
    sketch.lastQuery = m_query;
    if (songsMatchFurther(m_songs, m_songs[m_song], m_songs[candidate]))
        m_matches.push_back(candidate);
}

} // namespace sonavo
