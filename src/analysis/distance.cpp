#include "analysis/distance.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <bit>
#include <type_traits>
#include <vector>

namespace sonavo {
namespace {

constexpr std::size_t WORD_BITS = 64;
/// For each character, the rows of one block in which it stands, as bits.
/// @tparam MOST rows
template <typename Character, std::size_t MOST = WORD_BITS>
class RowsOfCharacters;

template <std::size_t MOST>
class RowsOfCharacters<char, MOST>
{
public:
    void add(char character, std::size_t row) { m_rows[symbolOf(character)] |= std::uint64_t{1} << row; }
    void remove(char character, std::size_t row)
    {
        m_rows[symbolOf(character)] &= ~(std::uint64_t{1} << row);
    }
    [[nodiscard]] std::uint64_t operator[](char character) const { return m_rows[symbolOf(character)]; }

private:
    std::array<std::uint64_t, ALPHABET> m_rows{};
};

/// A hash table with linear probing; a block has fewer characters than the table has slots.
template <std::size_t MOST>
class RowsOfCharacters<char32_t, MOST>
{
public:
    void add(char32_t character, std::size_t row)
    {
        const std::size_t slot = slotOf(character);
        m_characters[slot] = character;
        m_rows[slot] |= std::uint64_t{1} << row;
    }
    [[nodiscard]] std::uint64_t operator[](char32_t character) const { return m_rows[slotOf(character)]; }

private:
    static constexpr std::size_t SLOTS = 2 * MOST;

    [[nodiscard]] std::size_t slotOf(char32_t character) const
    {
        std::size_t slot = character % SLOTS;
        while (m_rows[slot] != 0 && m_characters[slot] != character)
            slot = (slot + 1) % SLOTS;
        return slot;
    }

    std::array<std::uint64_t, SLOTS> m_rows{};
    /// Set where a slot has rows: clearing it would take longer than the search.
    std::array<char32_t, SLOTS> m_characters;
};

template <typename Character>
using TextView = std::basic_string_view<Character>;

template <typename Character>
void removeCommonEnds(TextView<Character> &a, TextView<Character> &b)
{
    const auto [endA, endB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    a.remove_prefix(static_cast<std::size_t>(endA - a.begin()));
    b.remove_prefix(static_cast<std::size_t>(endB - b.begin()));
    while (!a.empty() && !b.empty() && a.back() == b.back()) {
        a.remove_suffix(1);
        b.remove_suffix(1);
    }
}

/// Differences between neighbouring cells of one column, for up to 64 rows: bit i tells whether row i is one
/// more (increases) or one less (decreases) than the row above.
struct Column
{
    std::uint64_t increases = ~std::uint64_t{0};
    std::uint64_t decreases = 0;
};

/// How the row just above a block differs from the column before: -1, 0 or +1.
using Carry = int;

/// Goes on to the next column in one block of rows.
/// @param equal rows whose character is the column's
/// @param last the block's last row as a bit
/// @return how that row differs from the column before
Carry advance(Column &column, std::uint64_t equal, Carry above, std::uint64_t last)
{
    const std::uint64_t isLess = above < 0 ? 1U : 0U;
    const std::uint64_t isMore = above > 0 ? 1U : 0U;
    const std::uint64_t vertical = equal | column.decreases;
    equal |= isLess;
    const std::uint64_t diagonal =
        (((equal & column.increases) + column.increases) ^ column.increases) | equal;
    std::uint64_t more = column.decreases | ~(diagonal | column.increases);
    std::uint64_t less = column.increases & diagonal;
    const Carry below = ((more & last) != 0 ? 1 : 0) - ((less & last) != 0 ? 1 : 0);
    more = more << 1 | isMore;
    less = less << 1 | isLess;
    column.increases = less | ~(vertical | more);
    column.decreases = more & vertical;
    return below;
}

/// For texts of which `rows` has 1 to MOST characters, at most WORD_BITS.
template <std::size_t MOST, typename Character>
std::size_t distanceInOneBlock(TextView<Character> rows, TextView<Character> columns, std::size_t limit)
{
    RowsOfCharacters<Character, MOST> positions;
    for (std::size_t i = 0; i < rows.size(); ++i)
        positions.add(rows[i], i);

    Column column;
    const std::uint64_t last = std::uint64_t{1} << (rows.size() - 1);
    std::size_t distance = rows.size();
    std::size_t columnsLeft = columns.size();
    for (const Character character : columns) {
        distance += static_cast<std::size_t>(advance(column, positions[character], 1, last));
        // Each column to come lowers the distance by at most one.
        if (distance > limit + --columnsLeft)
            return limit + 1;
    }
    return distance;
}

/// For limits below WORD_BITS: the cells that so few edits can reach are a band of limit + 1 diagonals at
/// most, so a column of it fits into one word, which moves down by a row from column to column.
/// @param rows the shorter text
/// @param limit at least the difference of the lengths
std::size_t distanceInBand(TextView<char> rows, TextView<char> columns, std::size_t limit)
{
    const std::size_t surplus = columns.size() - rows.size();
    // Diagonals that matter on either side of those from the first cell to the last.
    const std::size_t margin = (limit - surplus) / 2;
    const std::size_t above = surplus + margin;
    // For each character the rows of the band in which it stands, by their number modulo WORD_BITS.
    RowsOfCharacters<char> positions;
    for (std::size_t row = 0; row < std::min(margin, rows.size()); ++row)
        positions.add(rows[row], row);

    // The first row is that many bits from the top of the first column's band; what is above does not count.
    Column column{~std::uint64_t{0} << above, 0};
    std::size_t distance = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (i > above)
            positions.remove(rows[i - above - 1], (i - above - 1) % WORD_BITS);
        if (i + margin < rows.size())
            positions.add(rows[i + margin], (i + margin) % WORD_BITS);
        const std::uint64_t equal =
            std::rotr(positions[columns[i]], static_cast<int>((i - above) % WORD_BITS));
        const std::uint64_t diagonal =
            (((equal & column.increases) + column.increases) ^ column.increases) | equal | column.decreases;
        const std::uint64_t more = column.decreases | ~(diagonal | column.increases);
        const std::uint64_t less = column.increases & diagonal;
        column.increases = less | ~(diagonal >> 1 | more);
        column.decreases = more & diagonal >> 1;
        // On the diagonal of the last cell, no cell is less than the one before.
        distance += 1 - (diagonal >> margin & 1);
        if (distance > limit)
            return limit + 1;
    }
    return distance;
}

template <typename Character>
std::size_t distanceInBlocks(TextView<Character> rows, TextView<Character> columns, std::size_t limit)
{
    const std::size_t blockCount = (rows.size() + WORD_BITS - 1) / WORD_BITS;
    std::vector<RowsOfCharacters<Character>> positions(blockCount);
    for (std::size_t i = 0; i < rows.size(); ++i)
        positions[i / WORD_BITS].add(rows[i], i % WORD_BITS);

    std::vector<Column> blocks(blockCount);
    const std::uint64_t lastOfBlock = std::uint64_t{1} << (WORD_BITS - 1);
    const std::uint64_t lastOfAll = std::uint64_t{1} << ((rows.size() - 1) % WORD_BITS);
    std::size_t distance = rows.size();
    std::size_t columnsLeft = columns.size();
    for (const Character character : columns) {
        Carry carry = 1;
        for (std::size_t block = 0; block < blockCount; ++block)
            carry = advance(blocks[block], positions[block][character], carry,
                            block + 1 < blockCount ? lastOfBlock : lastOfAll);
        distance += static_cast<std::size_t>(carry);
        if (distance > limit + --columnsLeft)
            return limit + 1;
    }
    return distance;
}

template <typename Character>
std::size_t distanceWithin(TextView<Character> a, TextView<Character> b, std::size_t limit)
{
    removeCommonEnds(a, b);
    if (a.size() > b.size())
        std::swap(a, b);
    limit = std::min(limit, b.size());
    if (b.size() - a.size() > limit)
        return limit + 1;
    if (a.empty())
        return b.size();
    // What differs is mostly short, and clearing a table for more takes longer than the search.
    constexpr std::size_t FEW = 8;
    if (a.size() <= FEW)
        return distanceInOneBlock<FEW>(a, b, limit);
    if constexpr (std::is_same_v<Character, char>) {
        if (limit < WORD_BITS)
            return distanceInBand(a, b, limit);
    }
    return a.size() <= WORD_BITS ? distanceInOneBlock<WORD_BITS>(a, b, limit) : distanceInBlocks(a, b, limit);
}

template <typename Character>
double similarityOf(TextView<Character> a, TextView<Character> b, double least)
{
    const std::size_t longer = std::max(a.size(), b.size());
    Q_ASSERT(longer > 0);
    const std::size_t limit = largestDistance(longer, least);
    const std::size_t distance = levenshteinDistance(a, b, limit);
    return distance > limit ? 0.0 : 1.0 - static_cast<double>(distance) / static_cast<double>(longer);
}

/// @param symbolOfCharacter a number below 36 for each character but the blank
template <typename Character, typename SymbolOfCharacter>
std::uint64_t bagOf(TextView<Character> text, SymbolOfCharacter symbolOfCharacter)
{
    constexpr std::size_t SINGLE_BITS = 36;
    constexpr std::size_t DOUBLE_BITS = WORD_BITS - SINGLE_BITS;
    std::uint64_t once = 0;
    std::uint64_t twice = 0;
    for (const Character character : text) {
        if (character == ' ')
            continue;
        const std::uint64_t bit = std::uint64_t{1} << symbolOfCharacter(character);
        twice |= once & bit;
        once |= bit;
    }
    // The other 28 bits are enough for the letters, 0 and 1 only.
    return once | (twice & ((std::uint64_t{1} << DOUBLE_BITS) - 1)) << SINGLE_BITS;
}

// Written without a branch, which the processor could not predict.

/// @param places as large as `all`
/// @return how many were found
std::size_t selectNear(std::span<std::uint32_t> places, std::uint32_t first,
                       std::span<const std::uint64_t> all, std::uint64_t pairs, std::size_t mostBits)
{
    std::uint32_t count = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        places[count] = first + static_cast<std::uint32_t>(i);
        count += bagDifference(all[i], pairs) <= mostBits ? 1U : 0U;
    }
    return count;
}

#ifdef __x86_64__
/// The same for processors that count bits in one instruction.
[[gnu::target("popcnt")]] std::size_t selectWithPopcnt(std::span<std::uint32_t> places, std::uint32_t first,
                                                       std::span<const std::uint64_t> all,
                                                       std::uint64_t pairs, std::size_t mostBits)
{
    std::uint32_t count = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        places[count] = first + static_cast<std::uint32_t>(i);
        count += static_cast<std::size_t>(__builtin_popcountll(all[i] ^ pairs)) <= mostBits ? 1U : 0U;
    }
    return count;
}
#endif

} // namespace

std::size_t levenshteinDistance(std::string_view a, std::string_view b, std::size_t limit)
{
    return distanceWithin(a, b, limit);
}

std::size_t levenshteinDistance(std::u32string_view a, std::u32string_view b, std::size_t limit)
{
    return distanceWithin(a, b, limit);
}

double calculateSimilarity(std::string_view a, std::string_view b, double least)
{
    return similarityOf(a, b, least);
}

double calculateSimilarity(std::u32string_view a, std::u32string_view b, double least)
{
    return similarityOf(a, b, least);
}

std::uint64_t characterBag(std::string_view text)
{
    return bagOf(text, symbolOf);
}

std::uint64_t characterPairs(std::string_view text)
{
    // Multiplicative hashing (D. E. Knuth, "The Art of Computer Programming", volume 3, section 6.4).
    constexpr std::uint32_t MULTIPLIER = 2654435769U;
    constexpr int SIX_BITS = 32 - 6;
    std::uint64_t pairs = 0;
    std::uint32_t pair = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        pair = (pair << 8 | static_cast<unsigned char>(text[i])) & 0xFFFF;
        if (i > 0)
            pairs |= std::uint64_t{1} << (pair * MULTIPLIER >> SIX_BITS);
    }
    return pairs;
}

void appendNear(std::vector<std::uint32_t> &places, std::uint32_t first, std::span<const std::uint64_t> all,
                std::uint64_t pairs, std::size_t limit)
{
    const std::size_t begin = places.size();
    places.resize(begin + all.size());
#ifdef __x86_64__
    static const bool canCountBits = __builtin_cpu_supports("popcnt") != 0;
    const auto select = canCountBits ? selectWithPopcnt : selectNear;
#else
    const auto select = selectNear;
#endif
    places.resize(begin + select(std::span(places).subspan(begin), first, all, pairs, 4 * limit));
}

std::uint64_t characterBag(std::u32string_view text)
{
    return bagOf(text, [](char32_t character) {
        return character < 0x80 ? symbolOf(static_cast<char>(character)) : character % (ALPHABET - 1);
    });
}

} // namespace sonavo
