#include "analysis/character_places.h"

#include "analysis/matching.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <span>
#include <utility>

namespace sonavo {
namespace {

constexpr std::size_t BITS = 64;
/// Words that are looked at together: few enough to stay in the nearest cache.
constexpr std::size_t BLOCK = 32;
using Block = std::array<std::uint64_t, BLOCK>;

constexpr std::size_t LONGEST_PIECE = 3;
constexpr std::size_t FARTHEST_REACH = 2;

/// The rows of each character of a text, for each shift that its pieces can have.
struct Rows
{
    std::size_t shifts = 0;
    /// By shift and place in the text.
    std::vector<const std::uint64_t *> rows;
};

/// How a text is cut, and how many pieces are to be found.
struct Cut
{
    std::size_t length = 0;
    std::size_t pieceLength = 0;
    std::size_t least = 0;
};

/// So many words that the widest registers hold them: GCC's and Clang's extension for that.
using Part [[gnu::vector_size(32)]] = std::uint64_t;
constexpr std::size_t PART = sizeof(Part) / sizeof(std::uint64_t);

/// Vertical counters of the texts of a part: bit i of all words together is the number of text i.
using Counters = std::array<Part, std::bit_width(CharacterPlaces::LONGEST)>;

[[gnu::always_inline]] inline void addOnes(Counters &counters, const Part &ones, std::size_t bits)
{
    Part carry = ones;
    for (std::size_t bit = 0; bit < bits; ++bit) {
        const Part next = counters[bit] & carry;
        counters[bit] ^= carry;
        carry = next;
    }
}

/// @return the texts whose counter has reached `least`
[[gnu::always_inline]] inline void findReached(Part &reached, const Counters &counters, std::size_t least,
                                               std::size_t bits)
{
    reached = ~Part{};
    for (std::size_t bit = 0; bit < bits; ++bit)
        reached = (least >> bit & 1) != 0 ? counters[bit] & reached : counters[bit] | reached;
}

/// Keeps the texts of a block that have enough pieces.
[[gnu::always_inline]] inline void countPieces(Block &found, const Rows &rows, Cut cut, std::size_t word)
{
    const std::size_t pieces = (cut.length + cut.pieceLength - 1) / cut.pieceLength;
    const auto bits = static_cast<std::size_t>(std::bit_width(pieces));
    for (std::size_t offset = 0; offset < BLOCK; offset += PART) {
        Counters counters{};
        for (std::size_t begin = 0; begin < cut.length; begin += cut.pieceLength) {
            const std::size_t end = std::min(begin + cut.pieceLength, cut.length);
            Part intact{};
            for (std::size_t shift = 0; shift < rows.shifts; ++shift) {
                const std::uint64_t *const *row = rows.rows.data() + shift * cut.length;
                Part all = ~Part{};
                for (std::size_t place = begin; place < end; ++place) {
                    Part has;
                    std::memcpy(&has, row[place] + word + offset, sizeof has);
                    all &= has;
                }
                intact |= all;
            }
            addOnes(counters, intact, bits);
        }
        Part enough;
        findReached(enough, counters, cut.least, bits);
        Part before;
        std::memcpy(&before, &found[offset], sizeof before);
        before &= enough;
        std::memcpy(&found[offset], &before, sizeof before);
    }
}

/// The distance table of a text and others of one length, as far as it matters.
struct Table
{
    /// For each part of a block, a part of each row.
    const std::uint64_t *bits = nullptr;
    std::size_t rowCount = 0;
    /// For each character of the text its first row, or 0.
    std::vector<std::size_t> rows;
    /// Characters of the others.
    std::ptrdiff_t columns = 0;
    /// The diagonals that `limit` edits can reach, and the last cell's.
    std::ptrdiff_t lowest = 0;
    std::ptrdiff_t highest = 0;
    std::ptrdiff_t last = 0;
    std::size_t limit = 0;
    /// Enough to count the edits on a diagonal.
    std::size_t counterBits = 0;
};

/// Differences between neighbouring cells.
struct Difference
{
    Part more;
    Part less;
};

/// Keeps the texts of a part of a block that are within the limit.
///
/// The cells of the distance table one by one, each for many texts at a time; see levenshteinDistance() for
/// the rules. Cells beyond the diagonals are taken for as large as they can be.
[[gnu::always_inline]] inline void measureDistance(std::uint64_t *result, const Table &table,
                                                   std::size_t word)
{
    const Difference one{~Part{}, Part{}};
    std::array<Difference, CharacterPlaces::LONGEST> above;
    for (std::ptrdiff_t column = 0; column < table.columns; ++column)
        above[static_cast<std::size_t>(column)] = one;
    Counters edits{};
    for (std::ptrdiff_t row = 0; row < static_cast<std::ptrdiff_t>(table.rows.size()); ++row) {
        const std::size_t firstRow = table.rows[static_cast<std::size_t>(row)];
        const std::uint64_t *equal = table.bits + (word / PART * table.rowCount + firstRow) * PART;
        const std::size_t stride = firstRow == 0 ? 0 : PART;
        Difference left = one;
        const std::ptrdiff_t end = std::min(row + table.highest + 1, table.columns);
        for (std::ptrdiff_t column = std::max<std::ptrdiff_t>(row + table.lowest, 0); column < end;
             ++column) {
            Difference &place = above[static_cast<std::size_t>(column)];
            const Difference top = place;
            Part diagonal;
            std::memcpy(&diagonal, equal + static_cast<std::size_t>(column) * stride, sizeof diagonal);
            diagonal |= left.less | top.less;
            place = {left.less | ~(diagonal | left.more), left.more & diagonal};
            left = {top.less | ~(diagonal | top.more), top.more & diagonal};
            if (column - row != table.last)
                continue;
            addOnes(edits, ~diagonal, table.counterBits);
        }
    }
    // Who has more edits on the last diagonal than are left for it.
    const std::size_t least = table.limit + 1 - static_cast<std::size_t>(std::abs(table.last));
    Part isFar;
    findReached(isFar, edits, least, table.counterBits);
    Part found;
    std::memcpy(&found, result, sizeof found);
    found &= ~isFar;
    std::memcpy(result, &found, sizeof found);
}

/// Keeps the texts of a block that are within the limit.
[[gnu::always_inline]] inline void measureFound(Block &found, const Table &table, std::size_t word)
{
    for (std::size_t begin = 0; begin < BLOCK; begin += PART) {
        const auto part = std::span(found).subspan(begin, PART);
        if (std::any_of(part.begin(), part.end(), [](std::uint64_t bits) { return bits != 0; }))
            measureDistance(part.data(), table, word + begin);
    }
}

/// For the machine that the program is built for, and for processors with wider registers.
struct Loops
{
    void (*countPieces)(Block &, const Rows &, Cut, std::size_t);
    void (*measureFound)(Block &, const Table &, std::size_t);
};

void countPiecesHere(Block &result, const Rows &rows, Cut cut, std::size_t word)
{
    countPieces(result, rows, cut, word);
}

void measureFoundHere(Block &found, const Table &table, std::size_t word)
{
    measureFound(found, table, word);
}

#ifdef __x86_64__
[[gnu::target("avx2")]] void countPiecesWithAvx2(Block &result, const Rows &rows, Cut cut, std::size_t word)
{
    countPieces(result, rows, cut, word);
}

[[gnu::target("avx2")]] void measureFoundWithAvx2(Block &found, const Table &table, std::size_t word)
{
    measureFound(found, table, word);
}
#endif

Loops fastestLoops()
{
#ifdef __x86_64__
    static const bool hasAvx2 = __builtin_cpu_supports("avx2") != 0;
    if (hasAvx2)
        return {countPiecesWithAvx2, measureFoundWithAvx2};
#endif
    return {countPiecesHere, measureFoundHere};
}

std::size_t sizeOf(const Block &block)
{
    std::size_t size = 0;
    for (const std::uint64_t word : block)
        size += static_cast<std::size_t>(std::popcount(word));
    return size;
}

/// @return the cuts that leave out some texts of a block, the one that leaves the fewest first
std::vector<Cut> usefulCuts(const Rows &rows, std::size_t length, std::size_t limit, std::size_t word)
{
    std::vector<std::pair<std::size_t, Cut>> cuts;
    for (std::size_t pieceLength = 1; pieceLength <= LONGEST_PIECE; ++pieceLength) {
        const std::size_t pieces = (length + pieceLength - 1) / pieceLength;
        if (pieces <= limit)
            break;
        const Cut cut{length, pieceLength, pieces - limit};
        Block found;
        found.fill(~std::uint64_t{0});
        fastestLoops().countPieces(found, rows, cut, word);
        if (const std::size_t size = sizeOf(found); size < BLOCK * BITS / 2)
            cuts.emplace_back(size, cut);
    }
    std::sort(cuts.begin(), cuts.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    std::vector<Cut> sorted;
    sorted.reserve(cuts.size());
    for (const auto &[size, cut] : cuts)
        sorted.push_back(cut);
    return sorted;
}

} // namespace

void CharacterPlaces::clear(std::size_t length, std::size_t count)
{
    m_length = length;
    m_words = (count + BITS * BLOCK - 1) / (BITS * BLOCK) * BLOCK;
    m_reach = std::min(largestDistance(length, MATCH_ARTIST_SIMILARITY) / 2, FARTHEST_REACH);
    m_firstRows.fill(0);
}

void CharacterPlaces::noteCharacters(std::string_view text)
{
    for (const char character : text)
        m_firstRows[symbolOf(character)] = 1;
}

void CharacterPlaces::layOut()
{
    m_rows = 1;
    for (std::size_t &first : m_firstRows) {
        if (first == 0)
            continue;
        first = m_rows;
        m_rows += m_length;
    }
    m_bits.assign(m_rows * m_words, 0);
    m_exact.assign(m_rows * m_words, 0);
}

void CharacterPlaces::add(std::string_view text, std::size_t number)
{
    for (std::size_t place = 0; place < text.size(); ++place) {
        const std::size_t first = place - std::min(place, m_reach);
        const std::size_t last = std::min(place + m_reach, m_length - 1);
        const std::uint64_t bit = std::uint64_t{1} << number % BITS;
        const std::size_t firstRow = m_firstRows[symbolOf(text[place])];
        const std::size_t part = number / (BITS * PART);
        m_exact[(part * m_rows + firstRow + place) * PART + number / BITS % PART] |= bit;
        std::uint64_t *row = &m_bits[(firstRow + first) * m_words];
        for (std::size_t i = first; i <= last; ++i, row += m_words)
            row[number / BITS] |= bit;
    }
}

const std::uint64_t *CharacterPlaces::rowOf(char character, std::ptrdiff_t place) const
{
    const auto reach = static_cast<std::ptrdiff_t>(m_reach);
    const auto last = static_cast<std::ptrdiff_t>(m_length) - 1;
    const std::size_t first = m_firstRows[symbolOf(character)];
    if (first == 0 || place + reach < 0 || place - reach > last)
        return m_bits.data();
    return &m_bits[(first + static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(place, 0, last))) * m_words];
}

bool CharacterPlaces::appendNear(std::vector<std::uint32_t> &numbers, std::string_view text,
                                 std::size_t limit, std::size_t first, std::size_t last) const
{
    if (text.size() > LONGEST)
        return false;
    if (first >= last)
        return true;
    // What an intact piece is shifted by, at most: so many insertions or deletions are before and behind it.
    const auto surplus = static_cast<std::ptrdiff_t>(m_length) - static_cast<std::ptrdiff_t>(text.size());
    const std::ptrdiff_t spare = (static_cast<std::ptrdiff_t>(limit) - std::abs(surplus)) / 2;
    const std::ptrdiff_t highest = std::max<std::ptrdiff_t>(surplus, 0) + spare;
    const auto reach = static_cast<std::ptrdiff_t>(m_reach);
    Rows rows;
    for (std::ptrdiff_t shift = std::min<std::ptrdiff_t>(surplus, 0) - spare; shift <= highest;
         shift += 2 * reach + 1) {
        ++rows.shifts;
        for (std::size_t place = 0; place < text.size(); ++place)
            rows.rows.push_back(rowOf(text[place], static_cast<std::ptrdiff_t>(place) + shift + reach));
    }

    const auto mostEdits = static_cast<std::size_t>(std::bit_width(std::max(text.size(), limit + 1)));
    Table table{nullptr,
                0,
                {},
                static_cast<std::ptrdiff_t>(m_length),
                std::min<std::ptrdiff_t>(surplus, 0) - spare,
                highest,
                surplus,
                limit,
                mostEdits};
    table.bits = m_exact.data();
    table.rowCount = m_rows;
    for (const char character : text)
        table.rows.push_back(m_firstRows[symbolOf(character)]);
    constexpr std::size_t BLOCK_BITS = BLOCK * BITS;
    const std::size_t firstBlock = first / BLOCK_BITS;
    const std::vector<Cut> cuts = usefulCuts(rows, text.size(), limit, firstBlock * BLOCK);
    const Loops loops = fastestLoops();
    Block found;
    for (std::size_t block = firstBlock; block * BLOCK_BITS < last; ++block) {
        found.fill(~std::uint64_t{0});
        for (const Cut &cut : cuts)
            loops.countPieces(found, rows, cut, block * BLOCK);
        loops.measureFound(found, table, block * BLOCK);
        for (std::size_t i = 0; i < BLOCK; ++i) {
            for (std::uint64_t left = found[i]; left != 0; left &= left - 1) {
                const std::size_t number =
                    (block * BLOCK + i) * BITS + static_cast<std::size_t>(std::countr_zero(left));
                if (number >= first && number < last)
                    numbers.push_back(static_cast<std::uint32_t>(number));
            }
        }
    }
    return true;
}

} // namespace sonavo
