#include "analysis/full_texts.h"

#include "analysis/disjoint_grams.h"
#include "analysis/distance.h"
#include "analysis/matching.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string>

namespace sonavo {
namespace {

/// Fewer songs than this are looked through as fast.
constexpr std::size_t FEWEST_PLACED = 256;

constexpr std::size_t BITS_A_WORD = 64;
/// Words that are looked at together.
constexpr std::size_t WORDS = 4;
constexpr std::size_t BLOCK_SONGS = WORDS * BITS_A_WORD;
constexpr std::size_t BLOCK_WORDS = BITS_A_WORD * WORDS;
using Words = std::array<std::uint64_t, WORDS>;

bool isEmpty(const Words &words)
{
    return (words[0] | words[1] | words[2] | words[3]) == 0;
}

/// Adds the songs of a block that have all bits of a text, and those that have no other bits.
/// @param rows for each bit the songs that have it
void addContaining(Words &found, const Words &left, std::uint64_t bits, const std::uint64_t *rows)
{
    Words containing = left;
    for (std::uint64_t bit = bits; bit != 0 && !isEmpty(containing); bit &= bit - 1) {
        const std::uint64_t *row = rows + static_cast<std::size_t>(std::countr_zero(bit)) * WORDS;
        for (std::size_t i = 0; i < WORDS; ++i)
            containing[i] &= row[i];
    }
    Words contained = left;
    for (std::uint64_t bit = ~bits; bit != 0 && !isEmpty(contained); bit &= bit - 1) {
        const std::uint64_t *row = rows + static_cast<std::size_t>(std::countr_zero(bit)) * WORDS;
        for (std::size_t i = 0; i < WORDS; ++i)
            contained[i] &= ~row[i];
    }
    for (std::size_t i = 0; i < WORDS; ++i)
        found[i] |= containing[i] | contained[i];
}

void addToRows(std::vector<std::uint64_t> &rows, BucketPosition song, std::uint64_t bits)
{
    for (; bits != 0; bits &= bits - 1)
        rows[song / BLOCK_SONGS * BLOCK_WORDS + static_cast<std::size_t>(std::countr_zero(bits)) * WORDS +
             song / BITS_A_WORD % WORDS] |= std::uint64_t{1} << song % BITS_A_WORD;
}

} // namespace

void FullTexts::build(std::span<const PreparedSong> bucket)
{
    std::uint32_t longest = 0;
    for (const PreparedSong &song : bucket)
        longest = std::max(longest, song.fullLength);
    m_groups.assign(std::size_t{longest} + 1, {});
    m_numbers.resize(bucket.size());
    m_lengths.resize(bucket.size());
    const std::size_t blocks = (bucket.size() + BLOCK_SONGS - 1) / BLOCK_SONGS;
    m_titleBits.assign(blocks * BLOCK_WORDS, 0);
    m_nameBits.assign(blocks * BLOCK_WORDS, 0);
    m_left.assign(blocks * WORDS, 0);
    for (BucketPosition i = 0; i < bucket.size(); ++i) {
        Group &group = m_groups[bucket[i].fullLength];
        m_lengths[i] = bucket[i].fullLength;
        m_numbers[i] = static_cast<std::uint32_t>(group.songs.size());
        group.songs.push_back(i);
        group.pairs.push_back(bucket[i].fullPairs);
        addToRows(m_titleBits, i, bucket[i].titleBigrams);
        addToRows(m_nameBits, i, bucket[i].nameBigrams);
        m_left[i / BITS_A_WORD] |= std::uint64_t{1} << i % BITS_A_WORD;
    }
    for (std::size_t length = 0; length < m_groups.size(); ++length) {
        Group &group = m_groups[length];
        group.length = length;
        if (group.songs.size() <= FEWEST_PLACED || length > LONGEST_PLACED)
            continue;
        group.places.emplace();
        group.places->build(
            length, group.songs.size(), largestDistanceToSimilar(length, MATCH_TITLE_SIMILARITY),
            [&](std::size_t number) { return m_songs.fullTextOf(bucket[group.songs[number]]); });
    }
}

void FullTexts::remove(BucketPosition position)
{
    m_left[position / BITS_A_WORD] &= ~(std::uint64_t{1} << position % BITS_A_WORD);
    Group &group = m_groups[m_lengths[position]];
    if (group.places)
        group.places->remove(m_numbers[position]);
}

void FullTexts::findMatching(std::span<const Search> searches) const
{
    std::vector<std::string> texts;
    std::size_t firstBlock = m_left.size() / WORDS;
    std::size_t endBlock = 0;
    for (const Search &search : searches) {
        texts.push_back(m_songs.fullTextOf(*search.song));
        firstBlock = std::min<std::size_t>(firstBlock, search.begin / BLOCK_SONGS);
        endBlock = std::max<std::size_t>(endBlock, (search.end + BLOCK_SONGS - 1) / BLOCK_SONGS);
    }
    for (const Group &group : m_groups) {
        if (!group.songs.empty())
            findSimilar(group, searches, texts);
    }
    for (std::size_t block = firstBlock; block < endBlock; ++block) {
        for (const Search &search : searches)
            findContaining(block, search);
    }
}

void FullTexts::findSimilar(const Group &group, std::span<const Search> searches,
                            std::span<const std::string> texts) const
{
    const auto numberOf = [&group](BucketPosition position) {
        const auto at = std::lower_bound(group.songs.begin(), group.songs.end(), position);
        return static_cast<std::size_t>(at - group.songs.begin());
    };
    std::vector<CharacterPlaces<char>::Search> placed;
    std::vector<std::vector<BucketPosition> *> foundByPlaces;
    for (std::size_t i = 0; i < searches.size(); ++i) {
        const std::string &text = texts[i];
        const std::size_t longer = std::max(group.length, text.size());
        const std::size_t limit = largestDistance(longer, MATCH_TITLE_SIMILARITY);
        if (longer - std::min(group.length, text.size()) > limit)
            continue;
        std::vector<BucketPosition> &found = *searches[i].found;
        const std::size_t first = numberOf(searches[i].begin);
        const std::size_t last = numberOf(searches[i].end);
        if (group.places && text.size() <= LONGEST_PLACED) {
            placed.push_back({text, limit, first, last});
            foundByPlaces.push_back(&found);
            continue;
        }
        const std::size_t before = found.size();
        appendNear(found, static_cast<std::uint32_t>(first),
                   std::span(group.pairs).subspan(first, last - first), searches[i].song->fullPairs, limit);
        for (BucketPosition &position : std::span(found).subspan(before))
            position = group.songs[position];
    }
    if (placed.empty())
        return;
    group.places->findNear(placed, CharacterPlaces<char>::Removed::LeftOut,
                           [&](std::size_t search, std::uint32_t number) {
                               foundByPlaces[search]->push_back(group.songs[number]);
                               return true;
                           });
}

void FullTexts::findContaining(std::size_t block, const Search &search) const
{
    const std::size_t begin = block * BLOCK_SONGS;
    if (begin >= search.end || begin + BLOCK_SONGS <= search.begin)
        return;
    Words left;
    std::copy_n(&m_left[block * WORDS], WORDS, left.begin());
    if (isEmpty(left))
        return;
    Words found{};
    addContaining(found, left, search.song->titleBigrams, &m_titleBits[block * BLOCK_WORDS]);
    addContaining(found, left, search.song->nameBigrams, &m_nameBits[block * BLOCK_WORDS]);
    for (std::size_t i = 0; i < WORDS; ++i) {
        for (std::uint64_t word = found[i]; word != 0; word &= word - 1) {
            const std::size_t song =
                begin + i * BITS_A_WORD + static_cast<std::size_t>(std::countr_zero(word));
            if (song >= search.begin && song < search.end)
                search.found->push_back(static_cast<BucketPosition>(song));
        }
    }
}

} // namespace sonavo
