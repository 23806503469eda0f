#include "analysis/character_places.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>

namespace sonavo {
namespace {

constexpr std::size_t BITS = 64;

/// So many words that the widest registers hold them: GCC's and Clang's extension for that.
using Part [[gnu::vector_size(32)]] = std::uint64_t;
constexpr std::size_t PART = sizeof(Part) / sizeof(std::uint64_t);
constexpr std::size_t TEXTS_PER_PART = PART * BITS;

/// Vertical counters of the texts of a part: bit i of all words together is the number of text i.
using Counters = std::array<Part, std::bit_width(LONGEST_PLACED)>;

/// The distance table of a text and others of one length, as far as it matters.
struct Table
{
    /// For each character of the text its first row.
    std::vector<std::uint32_t> rows;
    /// Characters that the text and all others have in common at the beginning; the table starts behind them.
    std::size_t begin = 0;
    /// Characters of the others.
    std::ptrdiff_t columns = 0;
    /// The diagonals that `limit` edits can reach, and the last cell's.
    std::ptrdiff_t lowest = 0;
    std::ptrdiff_t highest = 0;
    std::ptrdiff_t last = 0;
    std::size_t limit = 0;
    /// The parts of the index that are asked for: from the first to before the end.
    std::size_t firstPart = 0;
    std::size_t endPart = 0;
    /// In how many parts obstacles were counted, and in how many of them that dropped all texts.
    std::size_t tried = 0;
    std::size_t emptied = 0;

    /// Where texts are left more often than not, measuring alone is faster.
    [[nodiscard]] bool isWorthCounting() const
    {
        constexpr std::size_t FEW = 4;
        return tried < FEW || emptied * 2 >= tried;
    }
};

[[gnu::always_inline]] inline void read(Part &part, const std::uint64_t *words)
{
    std::memcpy(&part, words, sizeof part);
}

[[gnu::always_inline]] inline bool isEmpty(const Part &part)
{
    return (part[0] | part[1] | part[2] | part[3]) == 0;
}

/// Counters that overflow once they are counted up more than `limit` times.
[[gnu::always_inline]] inline void startCounters(Counters &counters, std::size_t limit, std::size_t bits)
{
    const std::size_t start = (std::size_t{1} << bits) - 1 - limit;
    for (std::size_t bit = 0; bit < bits; ++bit)
        counters[bit] = (start >> bit & 1) != 0 ? ~Part{} : Part{};
}

/// Counts up and drops the texts whose counters overflow.
[[gnu::always_inline]] inline void count(Part &left, Counters &counters, const Part &ones, std::size_t bits)
{
    Part carry = ones;
    for (std::size_t bit = 0; bit < bits; ++bit) {
        const Part next = counters[bit] & carry;
        counters[bit] ^= carry;
        carry = next;
    }
    left &= ~carry;
}

/// How many diagonals there are: a constant for few, so that what is computed on them stays in registers, or
/// any number (0).
template <std::size_t DIAGONALS>
struct Diagonals
{
    static constexpr std::size_t MOST = DIAGONALS;
    explicit Diagonals(std::size_t) {}
    static constexpr std::size_t count() { return DIAGONALS; }
};
template <>
struct Diagonals<0>
{
    static constexpr std::size_t MOST = LONGEST_PLACED + 1;
    explicit Diagonals(std::size_t count)
        : m_count(count)
    {}
    [[nodiscard]] std::size_t count() const { return m_count; }

private:
    std::size_t m_count;
};

/// Drops the texts of a part that have too many obstacles.
/// @param bits the part of each row
template <std::size_t DIAGONALS>
[[gnu::always_inline]] inline void countObstacles(Part &left, const Table &table, const std::uint64_t *bits)
{
    const Diagonals<DIAGONALS> diagonals(static_cast<std::size_t>(table.highest - table.lowest + 1));
    // There are at least as many diagonals as edits.
    const auto counterBits = static_cast<std::size_t>(std::bit_width(diagonals.count()));
    std::array<Part, Diagonals<DIAGONALS>::MOST> runs;
    for (std::size_t diagonal = 0; diagonal < diagonals.count(); ++diagonal)
        runs[diagonal] = ~Part{};
    Counters counters;
    startCounters(counters, table.limit, counterBits);
    const auto begin = static_cast<std::ptrdiff_t>(table.begin);
    const std::uint64_t *column = bits + (begin + table.lowest) * static_cast<std::ptrdiff_t>(PART);
    for (std::size_t row = table.begin; row < table.rows.size(); ++row, column += PART) {
        const std::uint64_t *equal = column + table.rows[row] * PART;
        Part any{};
        for (std::size_t diagonal = 0; diagonal < diagonals.count(); ++diagonal) {
            Part isEqual;
            read(isEqual, equal + diagonal * PART);
            runs[diagonal] &= isEqual;
            any |= runs[diagonal];
        }
        for (std::size_t diagonal = 0; diagonal < diagonals.count(); ++diagonal)
            runs[diagonal] |= ~any;
        count(left, counters, ~any, counterBits);
        if (row >= table.begin + table.limit && isEmpty(left))
            return;
    }
}

/// The differences between neighbouring cells of a row, by column.
struct RowDifferences
{
    std::array<Part, LONGEST_PLACED> more;
    std::array<Part, LONGEST_PLACED> less;
};

/// The difference between a cell and the one above it.
struct Step
{
    Part isNotMore;
    Part isLess;
};

/// Goes on by one cell to the right: from the row above to the row of the cell, and from the cell's left
/// neighbour to the cell.
/// @param isSame becomes the texts for which the cell is the same as the one diagonally above it
[[gnu::always_inline]] inline void advance(RowDifferences &row, std::size_t column, Step &step, Part &isSame,
                                           const std::uint64_t *equal)
{
    const Part more = row.more[column];
    const Part less = row.less[column];
    read(isSame, equal + column * PART);
    isSame |= less | step.isLess;
    row.more[column] = step.isLess | (step.isNotMore & ~isSame);
    row.less[column] = ~step.isNotMore & isSame;
    step = {(more | isSame) & ~less, more & isSame};
}

/// Keeps the texts of a part that are within the limit.
///
/// The cells of the distance table one by one, each for many texts at a time; see levenshteinDistance() for
/// the rules. Cells beyond the diagonals are taken for as large as they can be.
[[gnu::always_inline]] inline void measureDistance(Part &left, const Table &table, const std::uint64_t *bits)
{
    RowDifferences differences;
    for (std::size_t column = table.begin; column < static_cast<std::size_t>(table.columns); ++column) {
        differences.more[column] = ~Part{};
        differences.less[column] = Part{};
    }
    // The edits on the last diagonal, where so many are left for it.
    const std::size_t limit = table.limit - static_cast<std::size_t>(std::abs(table.last));
    const auto counterBits = static_cast<std::size_t>(std::bit_width(limit));
    Counters counters;
    startCounters(counters, limit, counterBits);
    const auto columnOf = [&table](std::size_t row, std::ptrdiff_t diagonal) {
        const auto column = static_cast<std::ptrdiff_t>(row) + diagonal;
        const auto begin = static_cast<std::ptrdiff_t>(table.begin);
        return static_cast<std::size_t>(std::clamp(column, begin, table.columns));
    };
    for (std::size_t row = table.begin; row < table.rows.size(); ++row) {
        const std::uint64_t *equal = bits + table.rows[row] * PART;
        Step step{Part{}, Part{}};
        Part isSame{};
        std::size_t column = columnOf(row, table.lowest);
        const std::size_t afterLast = columnOf(row, table.last + 1);
        const bool isOnLast = column < afterLast;
        for (; column < afterLast; ++column)
            advance(differences, column, step, isSame, equal);
        if (isOnLast)
            count(left, counters, ~isSame, counterBits);
        const std::size_t end = columnOf(row, table.highest + 1);
        for (; column < end; ++column)
            advance(differences, column, step, isSame, equal);
        if (isEmpty(left))
            return;
    }
}

/// Drops the texts of a part that have too many obstacles.
[[gnu::always_inline]] inline void countObstacles(Part &left, Table &table, const std::uint64_t *bits)
{
    ++table.tried;
    switch (table.highest - table.lowest) {
    case 0:
        countObstacles<1>(left, table, bits);
        break;
    case 1:
        countObstacles<2>(left, table, bits);
        break;
    case 2:
        countObstacles<3>(left, table, bits);
        break;
    case 3:
        countObstacles<4>(left, table, bits);
        break;
    case 4:
        countObstacles<5>(left, table, bits);
        break;
    case 5:
        countObstacles<6>(left, table, bits);
        break;
    case 6:
        countObstacles<7>(left, table, bits);
        break;
    case 7:
        countObstacles<8>(left, table, bits);
        break;
    case 8:
        countObstacles<9>(left, table, bits);
        break;
    case 9:
        countObstacles<10>(left, table, bits);
        break;
    case 10:
        countObstacles<11>(left, table, bits);
        break;
    case 11:
        countObstacles<12>(left, table, bits);
        break;
    case 12:
        countObstacles<13>(left, table, bits);
        break;
    default:
        countObstacles<0>(left, table, bits);
    }
    table.emptied += isEmpty(left) ? 1U : 0U;
}

/// Keeps the texts of a part that are within the limit.
[[gnu::always_inline]] inline void keepNear(std::uint64_t *words, Table &table, const std::uint64_t *bits)
{
    Part left;
    read(left, words);
    if (table.isWorthCounting())
        countObstacles(left, table, bits);
    if (!isEmpty(left))
        measureDistance(left, table, bits);
    std::memcpy(words, &left, sizeof left);
}

/// A character that is looked for: its code, and its first row.
struct CodeRows
{
    std::size_t code = 0;
    std::size_t firstRow = 0;
};

/// Which texts of a part have some characters where.
/// @param rows where those of each character are written, one for each place
/// @param planes for each place and each bit of a code, the texts that have it there
[[gnu::always_inline]] inline void unpack(std::uint64_t *rows, std::span<const CodeRows> codes,
                                          const std::uint64_t *planes, std::size_t codeBits,
                                          std::size_t length)
{
    // The texts by three bits of their codes, and by the other three.
    constexpr std::size_t HALF_BITS = 3;
    constexpr std::size_t HALF = std::size_t{1} << HALF_BITS;
    std::array<std::array<Part, HALF>, 2> halves;
    for (std::size_t place = 0; place < length; ++place) {
        for (std::size_t half = 0; half < 2; ++half) {
            std::array<Part, HALF> &texts = halves[half];
            texts[0] = ~Part{};
            for (std::size_t bit = 0; bit < HALF_BITS && half * HALF_BITS + bit < codeBits; ++bit) {
                Part isSet;
                read(isSet, planes);
                planes += PART;
                const std::size_t count = std::size_t{1} << bit;
                for (std::size_t i = 0; i < count; ++i) {
                    texts[i | count] = texts[i] & isSet;
                    texts[i] &= ~isSet;
                }
            }
        }
        for (const CodeRows &code : codes) {
            const Part texts = halves[0][code.code % HALF] & halves[1][code.code / HALF];
            std::memcpy(rows + (code.firstRow + place) * PART, &texts, sizeof texts);
        }
    }
}

using KeepNear = void (*)(std::uint64_t *words, Table &, const std::uint64_t *bits);
using Unpack = void (*)(std::uint64_t *rows, std::span<const CodeRows> codes, const std::uint64_t *planes,
                        std::size_t codeBits, std::size_t length);

/// What is done in the widest registers.
struct Kernels
{
    KeepNear keepNear;
    Unpack unpack;
};

void keepNearHere(std::uint64_t *words, Table &table, const std::uint64_t *bits)
{
    keepNear(words, table, bits);
}

void unpackHere(std::uint64_t *rows, std::span<const CodeRows> codes, const std::uint64_t *planes,
                std::size_t codeBits, std::size_t length)
{
    unpack(rows, codes, planes, codeBits, length);
}

#ifdef __x86_64__
[[gnu::target("avx2")]] void keepNearWithAvx2(std::uint64_t *words, Table &table, const std::uint64_t *bits)
{
    keepNear(words, table, bits);
}

[[gnu::target("avx2")]] void unpackWithAvx2(std::uint64_t *rows, std::span<const CodeRows> codes,
                                            const std::uint64_t *planes, std::size_t codeBits,
                                            std::size_t length)
{
    unpack(rows, codes, planes, codeBits, length);
}
#endif

/// For the machine that the program is built for, or for processors with wider registers.
Kernels fastestKernels()
{
#ifdef __x86_64__
    static const bool hasAvx2 = __builtin_cpu_supports("avx2") != 0;
    if (hasAvx2)
        return {keepNearWithAvx2, unpackWithAvx2};
#endif
    return {keepNearHere, unpackHere};
}

/// How many characters two texts have in common at their beginning.
template <typename Character>
std::size_t lengthInCommon(std::basic_string_view<Character> a, std::basic_string_view<Character> b)
{
    return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
}

/// The table of a search, but for its rows.
template <typename Search>
Table tableOf(const Search &search, std::size_t length)
{
    Table table;
    table.columns = static_cast<std::ptrdiff_t>(length);
    // So many insertions or deletions are before and behind what the texts have in common, at most.
    const std::ptrdiff_t surplus = table.columns - static_cast<std::ptrdiff_t>(search.text.size());
    const std::ptrdiff_t spare = (static_cast<std::ptrdiff_t>(search.limit) - std::abs(surplus)) / 2;
    table.lowest = std::min<std::ptrdiff_t>(surplus, 0) - spare;
    table.highest = std::max<std::ptrdiff_t>(surplus, 0) + spare;
    table.last = surplus;
    table.limit = search.limit;
    table.firstPart = search.first / TEXTS_PER_PART;
    table.endPart =
        search.first < search.last ? (search.last + TEXTS_PER_PART - 1) / TEXTS_PER_PART : table.firstPart;
    return table;
}

/// Calls `visit` with the texts of a word that a search asks for, until it returns false.
/// @return whether it did not
template <typename Search, typename Visit>
bool visitTexts(std::uint64_t word, std::size_t first, const Search &search, Visit visit)
{
    for (; word != 0; word &= word - 1) {
        const std::size_t number = first + static_cast<std::size_t>(std::countr_zero(word));
        if (number >= search.first && number < search.last && !visit(static_cast<std::uint32_t>(number)))
            return false;
    }
    return true;
}

} // namespace

template <>
std::size_t CharacterPlaces<char>::symbolOfCharacter(char character)
{
    return symbolOf(character);
}

template <>
std::size_t CharacterPlaces<char32_t>::symbolOfCharacter(char32_t character)
{
    if (character < 0x80)
        return symbolOf(static_cast<char>(character));
    // Neighbours in an alphabet get different symbols as far as there are enough.
    return ALPHABET + character % (SYMBOLS - ALPHABET);
}

/// For the characters of some searches: a row for each place, of the texts of one part that have the
/// character there. The first rows, which are those of characters that no text has, are empty, and so are
/// some behind those of each character.
template <typename Character>
class CharacterPlaces<Character>::Rows
{
public:
    explicit Rows(const CharacterPlaces &places)
        : m_places(places)
    {}

    /// Adds a character, before the first call of read().
    /// @return its first row
    std::uint32_t add(Character character)
    {
        const std::uint8_t code = m_places.m_codes[symbolOfCharacter(character)];
        if (code == NO_CODE)
            return static_cast<std::uint32_t>(m_places.m_margin);
        std::uint32_t &firstRow = m_firstRows[code];
        if (firstRow == 0) {
            firstRow = static_cast<std::uint32_t>(rowCount());
            m_codes.push_back({code, firstRow});
        }
        return firstRow;
    }

    /// @return the rows of a part, valid until the next call
    const std::uint64_t *read(std::size_t part, Unpack unpack)
    {
        m_rows.resize(rowCount());
        const std::size_t planes = m_places.m_length * m_places.m_codeBits * PART;
        unpack(m_rows.front().words.data(), m_codes, m_places.m_planes.data() + part * planes,
               m_places.m_codeBits, m_places.m_length);
        return m_rows.front().words.data();
    }

private:
    /// Aligned, since processors take longer to read across the border of a cache line.
    struct alignas(Part) Row
    {
        std::array<std::uint64_t, PART> words{};
    };

    [[nodiscard]] std::size_t rowCount() const
    {
        return m_places.m_margin + (1 + m_codes.size()) * (m_places.m_length + m_places.m_margin);
    }

    const CharacterPlaces &m_places;
    std::vector<CodeRows> m_codes;
    /// By code, or 0.
    std::array<std::uint32_t, SYMBOLS> m_firstRows{};
    std::vector<Row> m_rows;
};

template <typename Character>
void CharacterPlaces<Character>::clear(std::size_t length, std::size_t count, std::size_t mostEdits)
{
    m_length = length;
    m_parts = (count + TEXTS_PER_PART - 1) / TEXTS_PER_PART;
    m_margin = std::max<std::size_t>(mostEdits, 1);
    m_codes.fill(NO_CODE);
    m_beginning.reset();
    m_left.assign(m_parts * PART, 0);
    for (std::size_t number = 0; number < count; ++number)
        m_left[number / BITS] |= std::uint64_t{1} << number % BITS;
}

template <typename Character>
void CharacterPlaces<Character>::noteCharacters(Text text)
{
    if (!m_beginning)
        m_beginning = text;
    m_beginning->resize(lengthInCommon<Character>(*m_beginning, text));
    for (const Character character : text)
        m_codes[symbolOfCharacter(character)] = 0;
}

template <typename Character>
void CharacterPlaces<Character>::layOut()
{
    std::uint8_t codes = 0;
    for (std::uint8_t &code : m_codes) {
        if (code != NO_CODE)
            code = codes++;
    }
    m_codeBits = static_cast<std::size_t>(std::bit_width(std::max(codes, std::uint8_t{1}) - 1U));
    m_planes.assign(m_parts * m_length * m_codeBits * PART, 0);
}

template <typename Character>
void CharacterPlaces<Character>::add(Text text, std::size_t number)
{
    const std::uint64_t bit = std::uint64_t{1} << number % BITS;
    std::uint64_t *plane =
        m_planes.data() + number / TEXTS_PER_PART * m_length * m_codeBits * PART + number / BITS % PART;
    for (const Character character : text) {
        const unsigned code = m_codes[symbolOfCharacter(character)];
        for (std::size_t i = 0; i < m_codeBits; ++i, plane += PART)
            *plane |= (code >> i & 1) != 0 ? bit : 0;
    }
}

template <typename Character>
void CharacterPlaces<Character>::remove(std::size_t number)
{
    m_left[number / BITS] &= ~(std::uint64_t{1} << number % BITS);
}

template <typename Character>
void CharacterPlaces<Character>::findNear(std::span<const Search> searches, Removed removed,
                                          const Visit &visit) const
{
    std::vector<Table> tables;
    Rows rows(*this);
    std::size_t firstPart = m_parts;
    std::size_t endPart = 0;
    for (const Search &search : searches) {
        tables.push_back(tableOf(search, m_length));
        tables.back().begin = m_beginning ? lengthInCommon<Character>(*m_beginning, search.text) : 0;
        for (const Character character : search.text)
            tables.back().rows.push_back(rows.add(character));
        firstPart = std::min(firstPart, tables.back().firstPart);
        endPart = std::max(endPart, tables.back().endPart);
    }
    const Kernels kernels = fastestKernels();
    // A part stays in the nearest caches while all searches look at it.
    for (std::size_t part = firstPart; part < endPart; ++part) {
        const std::uint64_t *bits = nullptr;
        for (std::size_t search = 0; search < searches.size(); ++search) {
            Table &table = tables[search];
            if (part < table.firstPart || part >= table.endPart)
                continue;
            std::array<std::uint64_t, PART> found;
            found.fill(~std::uint64_t{0});
            if (removed == Removed::LeftOut)
                std::copy_n(&m_left[part * PART], PART, found.begin());
            if ((found[0] | found[1] | found[2] | found[3]) == 0)
                break;
            if (bits == nullptr)
                bits = rows.read(part, kernels.unpack);
            kernels.keepNear(found.data(), table, bits);
            const bool goesOn = std::all_of(
                found.begin(), found.end(), [&, number = part * TEXTS_PER_PART](std::uint64_t word) mutable {
                    const std::size_t first = number;
                    number += BITS;
                    return visitTexts(word, first, searches[search],
                                      [&](std::uint32_t next) { return visit(search, next); });
                });
            if (!goesOn)
                table.endPart = part;
        }
    }
}

template class CharacterPlaces<char>;
template class CharacterPlaces<char32_t>;

} // namespace sonavo
