#pragma once

#include "analysis/distance.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace sonavo {

/// Normalised texts of one length, as a bit for each text, character and place: finds those within some edits
/// of another text, hundreds at a time.
///
/// Of p pieces of a text, k edits leave at least p - k intact, each about as far from the beginning. So the
/// pieces that each text still has are counted first, in vertical counters: H. Hyyrö, K. Fredriksson and
/// G. Navarro, "Increased bit-parallelism for approximate and multiple string matching" (2005). Where enough
/// are left, the cells of the distance table follow, each for all texts of a part; see levenshteinDistance().
class CharacterPlaces
{
public:
    /// Longer texts are neither indexed nor searched for.
    static constexpr std::size_t LONGEST = 128;

    /// Replaces what the index holds.
    /// @param length of each text, at most LONGEST
    /// @param textOf gives the text for each number below `count`
    template <typename TextOf>
    void build(std::size_t length, std::size_t count, TextOf textOf)
    {
        clear(length, count);
        for (std::size_t number = 0; number < count; ++number)
            noteCharacters(textOf(number));
        layOut();
        for (std::size_t number = 0; number < count; ++number)
            add(textOf(number), number);
    }

    /// Appends the numbers of the texts that are within `limit` edits of another text. Any thread may ask.
    /// @param limit at least the difference of the lengths
    /// @param first,last the numbers that are asked for
    /// @return false, having appended nothing, if the text is longer than LONGEST
    [[nodiscard]] bool appendNear(std::vector<std::uint32_t> &numbers, std::string_view text,
                                  std::size_t limit, std::size_t first, std::size_t last) const;

private:
    void clear(std::size_t length, std::size_t count);
    void noteCharacters(std::string_view text);
    void layOut();
    void add(std::string_view text, std::size_t number);
    [[nodiscard]] const std::uint64_t *rowOf(char character, std::ptrdiff_t place) const;

    std::size_t m_length = 0;
    /// Words of a row, a multiple of those that are looked at together.
    std::size_t m_words = 0;
    std::size_t m_rows = 0;
    /// How far from a place a character counts as there.
    std::size_t m_reach = 0;
    /// By symbol, the number of its first row; 0 for those that no text has.
    std::array<std::size_t, ALPHABET> m_firstRows{};
    /// An empty row, and then one for each character and place.
    std::vector<std::uint64_t> m_bits;
    /// The same without a reach, and with what is looked at together side by side.
    std::vector<std::uint64_t> m_exact;
};

} // namespace sonavo
