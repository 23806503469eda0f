#include "analysis/further_matches.h"

#include "analysis/distance.h"
#include "analysis/matching.h"

#include <algorithm>
#include <limits>

namespace sonavo {
namespace {

constexpr std::size_t GRAM_LENGTH = 3;

/// FNV-1a (Fowler, Noll and Vo), a character at a time.
constexpr std::uint64_t FIRST_HASH = 14695981039346656037ULL;
constexpr std::uint64_t hashedWith(std::uint64_t hash, char32_t character)
{
    return (hash ^ character) * 1099511628211ULL;
}

std::uint64_t hashOfTitle(std::u32string_view title)
{
    std::uint64_t hash = FIRST_HASH;
    for (const char32_t character : title)
        hash = hashedWith(hash, character);
    return hash;
}

constexpr std::uint64_t hashOfGram(char32_t first, char32_t second, char32_t third)
{
    return hashedWith(hashedWith(hashedWith(FIRST_HASH, first), second), third);
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

/// Chooses grams of a text that do not overlap and whose costs have the least sum.
/// @param costs of the gram at each place
/// @param count how many; the text has room for them
/// @param table kept for its memory
/// @param visit called with the place of each gram, from the last to the first
template <typename Visit>
void chooseCheapestGrams(std::span<const std::size_t> costs, std::size_t count,
                         std::vector<std::size_t> &table, Visit visit)
{
    constexpr std::size_t IMPOSSIBLE = std::numeric_limits<std::size_t>::max() / 2;
    // Row k, column i: the least cost of k grams among the first i places.
    const std::size_t columns = costs.size() + 1;
    table.assign((count + 1) * columns, IMPOSSIBLE);
    std::fill_n(table.begin(), columns, std::size_t{0});
    const auto costBefore = [&](std::size_t row, std::size_t column) {
        const std::size_t last = column >= GRAM_LENGTH ? column - GRAM_LENGTH : 0;
        return table[(row - 1) * columns + last] + costs[column - 1];
    };
    for (std::size_t row = 1; row <= count; ++row) {
        for (std::size_t column = 1; column < columns; ++column)
            table[row * columns + column] =
                std::min(table[row * columns + column - 1], costBefore(row, column));
    }
    std::size_t column = costs.size();
    for (std::size_t row = count; row > 0; --row) {
        while (table[row * columns + column] == table[row * columns + column - 1])
            --column;
        visit(column - 1);
        column = column >= GRAM_LENGTH ? column - GRAM_LENGTH : 0;
    }
}

} // namespace

FurtherMatches::FurtherMatches(const FurtherSongs &songs)
    : m_songs(songs)
    , m_isRemoved(songs.size())
    , m_lastQuery(songs.size())
{
    // Texts have few grams that no other has; more lists would only take memory.
    constexpr std::size_t MOST_GRAM_LISTS = 1 << 18;
    const std::size_t gramLists = std::min(songs.size() * 4, MOST_GRAM_LISTS);
    m_grams.build(songs.size(), gramLists, [this](Position position, auto visit) {
        const FurtherSong &song = m_songs[position];
        readGrams(song, TrackNumber::Kept);
        for (const Hash gram : m_textGrams)
            visit(gram);
        // The only gram that the text has without its number alone: where artist and title meet.
        const std::u32string_view artist = m_songs.artistOf(song);
        if (song.isNumbered() && !artist.empty())
            visit(hashOfGram(artist.back(), U' ', m_songs.titleOf(song, TrackNumber::Dropped).front()));
    });
    m_titles.build(songs.size(), songs.size(), [this](Position position, auto visit) {
        visit(hashOfTitle(m_songs.titleOf(m_songs[position], TrackNumber::Dropped)));
    });
}

void FurtherMatches::readGrams(const FurtherSong &song, TrackNumber number)
{
    m_songs.fullTextInto(m_text, song, number);
    m_text.insert(m_text.begin(), U' ');
    m_text += U' ';
    m_textGrams.clear();
    for (std::size_t i = 0; i + GRAM_LENGTH <= m_text.size(); ++i)
        m_textGrams.push_back(hashOfGram(m_text[i], m_text[i + 1], m_text[i + 2]));
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
    m_lastQuery[position] = ++m_query;

    proposeContained(song);
    proposeSimilar(song, TrackNumber::Kept);
    if (song.isNumbered())
        proposeSimilar(song, TrackNumber::Dropped);
    proposeContaining(song);
    return m_matches;
}

void FurtherMatches::proposeSimilar(const FurtherSong &song, TrackNumber number)
{
    if (isDone())
        return;
    readGrams(song, number);
    m_counts.resize(m_textGrams.size());
    std::transform(m_textGrams.begin(), m_textGrams.end(), m_counts.begin(),
                   [this](Hash gram) { return m_grams.countOf(gram); });
    // There is room for them: the distance is little more than a tenth of the length.
    const std::size_t count = largestDistanceToSimilar(song.fullText(number).length) + 1;
    chooseCheapestGrams(m_counts, count, m_costs, [&](std::size_t place) {
        propose(m_grams.songsWith(m_textGrams[place], m_windowBegin, m_windowEnd));
    });
}

void FurtherMatches::proposeContaining(const FurtherSong &song)
{
    if (isDone())
        return;
    readGrams(song, TrackNumber::Dropped);
    const std::size_t titleLength = m_songs.titleOf(song, TrackNumber::Dropped).size();
    const auto ofTitle = std::span(m_textGrams).last(titleLength);
    const Hash rarest = *std::min_element(ofTitle.begin(), ofTitle.end(), [this](Hash a, Hash b) {
        return m_grams.countOf(a) < m_grams.countOf(b);
    });
    propose(m_grams.songsWith(rarest, m_windowBegin, m_windowEnd));
}

void FurtherMatches::proposeContained(const FurtherSong &song)
{
    const std::u32string_view title = m_songs.titleOf(song, TrackNumber::Dropped);
    for (std::size_t begin = 0; begin < title.size() && !isDone(); ++begin) {
        if (begin > 0 && title[begin - 1] != U' ')
            continue;
        Hash hash = FIRST_HASH;
        for (std::size_t end = begin; end < title.size(); ++end) {
            hash = hashedWith(hash, title[end]);
            if (end + 1 == title.size() || title[end + 1] == U' ')
                propose(m_titles.songsWith(hash, m_windowBegin, m_windowEnd));
        }
    }
}

void FurtherMatches::propose(std::span<const Position> candidates)
{
    for (const Position candidate : candidates) {
        if (isDone())
            return;
        if (m_isRemoved[candidate] || m_lastQuery[candidate] == m_query)
            continue;
        m_lastQuery[candidate] = m_query;
        if (songsMatchFurther(m_songs, m_songs[m_song], m_songs[candidate]))
            m_matches.push_back(candidate);
    }
}

} // namespace sonavo
