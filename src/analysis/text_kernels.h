#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace sonavo {

// What CharacterPlaces and BigramRows do with the texts of one part of their index: all at a time, in the
// widest registers that the processor has.

/// Longer texts are neither indexed nor searched for.
inline constexpr std::size_t LONGEST_PLACED = 128;

/// A set of texts of one part has a bit for each text in this many words.
inline constexpr std::size_t PART_WORDS = 4;
inline constexpr std::size_t PART_TEXTS = PART_WORDS * 64;

/// The distance table of a text and others of one length, as far as it matters.
struct DistanceTable
{
    /// For each character of the text its first row among those that unpack() makes.
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

    [[nodiscard]] std::size_t diagonals() const { return static_cast<std::size_t>(highest - lowest + 1); }
};

/// A character that is looked for: its code, and its first row.
struct CodeRows
{
    std::size_t code = 0;
    std::size_t firstRow = 0;
};

/// In which order the rows of the bigrams (see bigramsOf()) of a text are looked at.
struct BigramOrder
{
    static constexpr std::size_t BIGRAMS = 64;
    /// Those that the text has, and behind them the others.
    std::array<std::uint8_t, BIGRAMS> bigrams{};
    std::size_t count = 0;
};

/// Functions for one kind of processor.
struct TextKernels
{
    /// @param texts a set, from which some are dropped
    /// @param rows what unpack() has made
    /// @return whether texts are left
    using Drop = bool (*)(std::uint64_t *texts, const DistanceTable &table, const std::uint64_t *rows);
    /// Writes sets of the texts that have some characters where.
    /// @param rows where those of each character are written, one for each place
    /// @param planes for each place and each bit of a code, the texts that have it there
    using Unpack = void (*)(std::uint64_t *rows, std::span<const CodeRows> codes, const std::uint64_t *planes,
                            std::size_t codeBits, std::size_t length);

    /// Drop texts that have too many obstacles. By the number of diagonals; the first is for any number.
    static constexpr std::size_t FEW_DIAGONALS = 13;
    std::array<Drop, FEW_DIAGONALS + 1> dropByObstacles;
    /// Drops texts that are beyond the limit.
    Drop dropByDistance;
    Unpack unpack;
    /// Adds texts that have all bigrams of another, and those that have no other bigrams.
    /// @param found a set that they are added to
    /// @param texts the set that they are taken from
    /// @param rows for each bigram the set of texts that have it
    using AddContaining = void (*)(std::uint64_t *found, const std::uint64_t *texts, const BigramOrder &order,
                                   const std::uint64_t *rows);
    AddContaining addContaining;

    [[nodiscard]] Drop dropByObstaclesFor(const DistanceTable &table) const
    {
        return dropByObstacles[table.diagonals() <= FEW_DIAGONALS ? table.diagonals() : 0];
    }
};

/// Those for the processor that the program runs on. Any thread may ask.
[[nodiscard]] const TextKernels &fastestKernels();

} // namespace sonavo
