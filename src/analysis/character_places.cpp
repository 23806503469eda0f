#include "analysis/character_places.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

namespace sonavo {
namespace {

constexpr std::size_t BITS = 64;

/// A search, and what it has come to.
struct SearchState
{
    DistanceTable table;
    TextKernels::Drop dropByObstacles = nullptr;
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

using PartTexts = std::array<std::uint64_t, PART_WORDS>;

/// Drops the texts of a part that are beyond the limit of a search.
/// @return whether texts are left
bool keepNear(PartTexts &texts, SearchState &search, const std::uint64_t *rows, const TextKernels &kernels)
{
    if (search.isWorthCounting()) {
        ++search.tried;
        if (!search.dropByObstacles(texts.data(), search.table, rows)) {
            ++search.emptied;
            return false;
        }
    }
    return kernels.dropByDistance(texts.data(), search.table, rows);
}

/// How many characters two texts have in common at their beginning.
template <typename Character>
std::size_t lengthInCommon(std::basic_string_view<Character> a, std::basic_string_view<Character> b)
{
    return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
}

/// The table of a search, but for its rows and its beginning.
DistanceTable tableFor(std::size_t textLength, std::size_t length, std::size_t limit)
{
    DistanceTable table;
    table.columns = static_cast<std::ptrdiff_t>(length);
    // So many insertions or deletions are before and behind what the texts have in common, at most.
    const std::ptrdiff_t surplus = table.columns - static_cast<std::ptrdiff_t>(textLength);
    const std::ptrdiff_t spare = (static_cast<std::ptrdiff_t>(limit) - std::abs(surplus)) / 2;
    table.lowest = std::min<std::ptrdiff_t>(surplus, 0) - spare;
    table.highest = std::max<std::ptrdiff_t>(surplus, 0) + spare;
    table.last = surplus;
    table.limit = limit;
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
    const std::uint64_t *read(std::size_t part, TextKernels::Unpack unpack)
    {
        m_rows.resize(rowCount());
        const std::size_t planes = m_places.m_length * m_places.m_codeBits * PART_WORDS;
        unpack(m_rows.front().words.data(), m_codes, m_places.m_planes.data() + part * planes,
               m_places.m_codeBits, m_places.m_length);
        return m_rows.front().words.data();
    }

private:
    /// Aligned, since processors take longer to read across the border of a cache line.
    struct alignas(PART_WORDS * sizeof(std::uint64_t)) Row
    {
        std::array<std::uint64_t, PART_WORDS> words{};
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
    m_parts = (count + PART_TEXTS - 1) / PART_TEXTS;
    m_margin = std::max<std::size_t>(mostEdits, 1);
    m_codes.fill(NO_CODE);
    m_beginning.reset();
    m_left.assign(m_parts * PART_WORDS, 0);
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
    m_planes.assign(m_parts * m_length * m_codeBits * PART_WORDS, 0);
}

template <typename Character>
void CharacterPlaces<Character>::add(Text text, std::size_t number)
{
    const std::uint64_t bit = std::uint64_t{1} << number % BITS;
    std::uint64_t *plane = m_planes.data() + number / PART_TEXTS * m_length * m_codeBits * PART_WORDS +
                           number / BITS % PART_WORDS;
    for (const Character character : text) {
        const unsigned code = m_codes[symbolOfCharacter(character)];
        for (std::size_t i = 0; i < m_codeBits; ++i, plane += PART_WORDS)
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
    const TextKernels &kernels = fastestKernels();
    std::vector<SearchState> states;
    Rows rows(*this);
    std::size_t firstPart = m_parts;
    std::size_t endPart = 0;
    for (const Search &search : searches) {
        SearchState &state = states.emplace_back();
        state.table = tableFor(search.text.size(), m_length, search.limit);
        state.table.begin = m_beginning ? lengthInCommon<Character>(*m_beginning, search.text) : 0;
        for (const Character character : search.text)
            state.table.rows.push_back(rows.add(character));
        state.dropByObstacles = kernels.dropByObstaclesFor(state.table);
        state.firstPart = search.first / PART_TEXTS;
        state.endPart =
            search.first < search.last ? (search.last + PART_TEXTS - 1) / PART_TEXTS : state.firstPart;
        firstPart = std::min(firstPart, state.firstPart);
        endPart = std::max(endPart, state.endPart);
    }
    // A part stays in the nearest caches while all searches look at it.
    for (std::size_t part = firstPart; part < endPart; ++part) {
        const std::uint64_t *bits = nullptr;
        for (std::size_t search = 0; search < searches.size(); ++search) {
            SearchState &state = states[search];
            if (part < state.firstPart || part >= state.endPart)
                continue;
            PartTexts found;
            found.fill(~std::uint64_t{0});
            if (removed == Removed::LeftOut)
                std::copy_n(&m_left[part * PART_WORDS], PART_WORDS, found.begin());
            if ((found[0] | found[1] | found[2] | found[3]) == 0)
                break;
            if (bits == nullptr)
                bits = rows.read(part, kernels.unpack);
            if (!keepNear(found, state, bits, kernels))
                continue;
            const bool goesOn = std::all_of(
                found.begin(), found.end(), [&, number = part * PART_TEXTS](std::uint64_t word) mutable {
                    const std::size_t first = number;
                    number += BITS;
                    return visitTexts(word, first, searches[search],
                                      [&](std::uint32_t next) { return visit(search, next); });
                });
            if (!goesOn)
                state.endPart = part;
        }
    }
}

template class CharacterPlaces<char>;
template class CharacterPlaces<char32_t>;

} // namespace sonavo
