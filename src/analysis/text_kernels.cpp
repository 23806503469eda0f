#include "analysis/text_kernels.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace sonavo {
namespace {

/// A set of texts in one register: GCC's and Clang's extension for that.
using Part [[gnu::vector_size(PART_WORDS * sizeof(std::uint64_t))]] = std::uint64_t;

/// Vertical counters of the texts of a part: bit i of all words together is the number of text i.
using Counters = std::array<Part, std::bit_width(LONGEST_PLACED)>;

[[gnu::always_inline]] inline void read(Part &part, const std::uint64_t *words)
{
    std::memcpy(&part, words, sizeof part);
}

[[gnu::always_inline]] inline void write(std::uint64_t *words, const Part &part)
{
    std::memcpy(words, &part, sizeof part);
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

template <std::size_t DIAGONALS>
[[gnu::always_inline]] inline bool dropByObstacles(std::uint64_t *texts, const DistanceTable &table,
                                                   const std::uint64_t *rows)
{
    Part left;
    read(left, texts);
    const Diagonals<DIAGONALS> diagonals(table.diagonals());
    // There are at least as many diagonals as edits.
    const auto counterBits = static_cast<std::size_t>(std::bit_width(diagonals.count()));
    std::array<Part, Diagonals<DIAGONALS>::MOST> runs;
    for (std::size_t diagonal = 0; diagonal < diagonals.count(); ++diagonal)
        runs[diagonal] = ~Part{};
    Counters counters;
    startCounters(counters, table.limit, counterBits);
    const auto begin = static_cast<std::ptrdiff_t>(table.begin);
    const std::uint64_t *column = rows + (begin + table.lowest) * static_cast<std::ptrdiff_t>(PART_WORDS);
    for (std::size_t row = table.begin; row < table.rows.size(); ++row, column += PART_WORDS) {
        const std::uint64_t *equal = column + table.rows[row] * PART_WORDS;
        Part any{};
        for (std::size_t diagonal = 0; diagonal < diagonals.count(); ++diagonal) {
            Part isEqual;
            read(isEqual, equal + diagonal * PART_WORDS);
            runs[diagonal] &= isEqual;
            any |= runs[diagonal];
        }
        for (std::size_t diagonal = 0; diagonal < diagonals.count(); ++diagonal)
            runs[diagonal] |= ~any;
        count(left, counters, ~any, counterBits);
        if (row >= table.begin + table.limit && isEmpty(left))
            break;
    }
    write(texts, left);
    return !isEmpty(left);
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
    read(isSame, equal + column * PART_WORDS);
    isSame |= less | step.isLess;
    row.more[column] = step.isLess | (step.isNotMore & ~isSame);
    row.less[column] = ~step.isNotMore & isSame;
    step = {(more | isSame) & ~less, more & isSame};
}

/// The cells of the distance table one by one, each for many texts at a time; see levenshteinDistance() for
/// the rules. Cells beyond the diagonals are taken for as large as they can be.
[[gnu::always_inline]] inline bool dropByDistance(std::uint64_t *texts, const DistanceTable &table,
                                                  const std::uint64_t *rows)
{
    Part left;
    read(left, texts);
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
        const std::uint64_t *equal = rows + table.rows[row] * PART_WORDS;
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
            break;
    }
    write(texts, left);
    return !isEmpty(left);
}

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
                planes += PART_WORDS;
                const std::size_t count = std::size_t{1} << bit;
                for (std::size_t i = 0; i < count; ++i) {
                    texts[i | count] = texts[i] & isSet;
                    texts[i] &= ~isSet;
                }
            }
        }
        for (const CodeRows &code : codes) {
            const Part texts = halves[0][code.code % HALF] & halves[1][code.code / HALF];
            write(rows + (code.firstRow + place) * PART_WORDS, texts);
        }
    }
}

[[gnu::always_inline]] inline void addContaining(std::uint64_t *found, const std::uint64_t *texts,
                                                 const BigramOrder &order, const std::uint64_t *rows)
{
    // Looking whether texts are left takes longer than a row.
    constexpr std::size_t ROWS = 4;
    Part containing;
    read(containing, texts);
    Part contained = containing;
    for (std::size_t i = 0; i < order.count; ++i) {
        Part row;
        read(row, rows + order.bigrams[i] * PART_WORDS);
        containing &= row;
        if (i % ROWS == ROWS - 1 && isEmpty(containing))
            break;
    }
    for (std::size_t i = order.count; i < BigramOrder::BIGRAMS; ++i) {
        Part row;
        read(row, rows + order.bigrams[i] * PART_WORDS);
        contained &= ~row;
        if (i % ROWS == ROWS - 1 && isEmpty(contained))
            break;
    }
    Part all;
    read(all, found);
    write(found, all | containing | contained);
}

template <std::size_t DIAGONALS>
bool dropByObstaclesHere(std::uint64_t *texts, const DistanceTable &table, const std::uint64_t *rows)
{
    return dropByObstacles<DIAGONALS>(texts, table, rows);
}

bool dropByDistanceHere(std::uint64_t *texts, const DistanceTable &table, const std::uint64_t *rows)
{
    return dropByDistance(texts, table, rows);
}

void unpackHere(std::uint64_t *rows, std::span<const CodeRows> codes, const std::uint64_t *planes,
                std::size_t codeBits, std::size_t length)
{
    unpack(rows, codes, planes, codeBits, length);
}

void addContainingHere(std::uint64_t *found, const std::uint64_t *texts, const BigramOrder &order,
                       const std::uint64_t *rows)
{
    addContaining(found, texts, order, rows);
}

template <std::size_t... DIAGONALS>
constexpr TextKernels kernelsHere(std::index_sequence<DIAGONALS...>)
{
    return {{dropByObstaclesHere<DIAGONALS>...}, dropByDistanceHere, unpackHere, addContainingHere};
}

#ifdef __x86_64__
template <std::size_t DIAGONALS>
[[gnu::target("avx2")]] bool dropByObstaclesWithAvx2(std::uint64_t *texts, const DistanceTable &table,
                                                     const std::uint64_t *rows)
{
    return dropByObstacles<DIAGONALS>(texts, table, rows);
}

[[gnu::target("avx2")]] bool dropByDistanceWithAvx2(std::uint64_t *texts, const DistanceTable &table,
                                                    const std::uint64_t *rows)
{
    return dropByDistance(texts, table, rows);
}

[[gnu::target("avx2")]] void unpackWithAvx2(std::uint64_t *rows, std::span<const CodeRows> codes,
                                            const std::uint64_t *planes, std::size_t codeBits,
                                            std::size_t length)
{
    unpack(rows, codes, planes, codeBits, length);
}

[[gnu::target("avx2")]] void addContainingWithAvx2(std::uint64_t *found, const std::uint64_t *texts,
                                                   const BigramOrder &order, const std::uint64_t *rows)
{
    addContaining(found, texts, order, rows);
}

template <std::size_t... DIAGONALS>
constexpr TextKernels kernelsWithAvx2(std::index_sequence<DIAGONALS...>)
{
    return {{dropByObstaclesWithAvx2<DIAGONALS>...},
            dropByDistanceWithAvx2,
            unpackWithAvx2,
            addContainingWithAvx2};
}
#endif

using NumbersOfDiagonals = std::make_index_sequence<TextKernels::FEW_DIAGONALS + 1>;

} // namespace

const TextKernels &fastestKernels()
{
#ifdef __x86_64__
    static constexpr TextKernels WITH_AVX2 = kernelsWithAvx2(NumbersOfDiagonals());
    static const bool hasAvx2 = __builtin_cpu_supports("avx2") != 0;
    if (hasAvx2)
        return WITH_AVX2;
#endif
    static constexpr TextKernels HERE = kernelsHere(NumbersOfDiagonals());
    return HERE;
}

} // namespace sonavo
