#pragma once

#include "analysis/distance.h"
#include "analysis/text_kernels.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sonavo {

/// Normalised texts of one length: finds those within some edits of other texts, hundreds at a time. Keeps at
/// most six bits for each character of a text.
///
/// Obstacles are counted first, since an edit is needed for each: from the beginning of a text, or from
/// behind the last obstacle, what it has in common with the other is followed on every diagonal of the
/// distance table, until none goes on: M. Alser, T. Shahroodi, J. Gómez-Luna, C. Alkan and O. Mutlu,
/// "SneakySnake: a fast and accurate universal genome pre-alignment filter for CPUs, GPUs and FPGAs" (2020).
/// For texts that are left, the cells of that table follow, each for all texts of a part; see
/// levenshteinDistance(). Both count in vertical counters: H. Hyyrö, K. Fredriksson and G. Navarro,
/// "Increased bit-parallelism for approximate and multiple string matching" (2005).
/// @tparam Character char, or char32_t for code points: those outside the Latin alphabet share a few symbols,
/// so that texts beyond the limit may be found as well
template <typename Character>
class CharacterPlaces
{
public:
    using Text = std::basic_string_view<Character>;

    /// A text whose neighbours are looked for.
    struct Search
    {
        Text text;
        /// At least the difference of the lengths, at most what the index was built for.
        std::size_t limit = 0;
        /// The numbers that are asked for: from the first to before the last.
        std::size_t first = 0;
        std::size_t last = 0;
    };
    /// Whether texts that were removed are looked for as well.
    enum class Removed
    {
        LeftOut,
        Included
    };
    /// Takes a search, as its index, and the number of a text that it has found.
    /// @return whether to go on with this search
    using Visit = std::function<bool(std::size_t search, std::uint32_t number)>;

    /// Replaces what the index holds.
    /// @param length of each text, at most LONGEST_PLACED
    /// @param mostEdits the largest limit of a search
    /// @param textOf gives the text for each number below `count`
    template <typename TextOf>
    void build(std::size_t length, std::size_t count, std::size_t mostEdits, TextOf textOf)
    {
        clear(length, count, mostEdits);
        for (std::size_t number = 0; number < count; ++number)
            noteCharacters(textOf(number));
        layOut();
        for (std::size_t number = 0; number < count; ++number)
            add(textOf(number), number);
    }

    /// Takes a text out. Must not overlap with findNear().
    void remove(std::size_t number);

    /// Calls `visit` with each text that is within the limit of a search; for each search by ascending
    /// numbers. Several searches together take less time than one after the other. Any thread may ask.
    /// @param searches with texts of at most LONGEST_PLACED characters
    void findNear(std::span<const Search> searches, Removed removed, const Visit &visit) const;

private:
    /// Symbols are below this.
    static constexpr std::size_t SYMBOLS = 64;

    /// No symbol has this code.
    static constexpr std::uint8_t NO_CODE = UINT8_MAX;
    class Rows;

    [[nodiscard]] static std::size_t symbolOfCharacter(Character character);
    void clear(std::size_t length, std::size_t count, std::size_t mostEdits);
    void noteCharacters(Text text);
    void layOut();
    void add(Text text, std::size_t number);

    std::size_t m_length = 0;
    std::size_t m_parts = 0;
    /// The most edits that are asked for.
    std::size_t m_margin = 0;
    /// What all texts begin with; searches skip it.
    std::optional<std::basic_string<Character>> m_beginning;
    /// By symbol: a number from 0, or NO_CODE for those that no text has.
    std::array<std::uint8_t, SYMBOLS> m_codes{};
    std::size_t m_codeBits = 0;
    /// By part, place and bit of a code: the texts of the part that have it there.
    std::vector<std::uint64_t> m_planes;
    /// The texts that are not removed.
    std::vector<std::uint64_t> m_left;
};

} // namespace sonavo
