#include "analysis/full_texts.h"

#include "analysis/matching.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string>

namespace sonavo {
namespace {

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
    m_texts.build(
        bucket.size(), MATCH_TITLE_SIMILARITY,
        [&](BucketPosition song) {
            return TextGroups::Key{bucket[song].fullLength, bucket[song].fullPairs};
        },
        [&](BucketPosition song) { return m_songs.fullTextOf(bucket[song]); });
    const std::size_t blocks = (bucket.size() + BLOCK_SONGS - 1) / BLOCK_SONGS;
    m_titleBits.assign(blocks * BLOCK_WORDS, 0);
    m_nameBits.assign(blocks * BLOCK_WORDS, 0);
    m_left.assign(blocks * WORDS, 0);
    for (BucketPosition i = 0; i < bucket.size(); ++i) {
        addToRows(m_titleBits, i, bucket[i].titleBigrams);
        addToRows(m_nameBits, i, bucket[i].nameBigrams);
        m_left[i / BITS_A_WORD] |= std::uint64_t{1} << i % BITS_A_WORD;
    }
}

void FullTexts::remove(BucketPosition position)
{
    m_left[position / BITS_A_WORD] &= ~(std::uint64_t{1} << position % BITS_A_WORD);
    m_texts.remove(position);
}

void FullTexts::findMatching(std::span<const SongSearch> searches) const
{
    std::vector<std::string> texts;
    std::size_t firstBlock = m_left.size() / WORDS;
    std::size_t endBlock = 0;
    for (const SongSearch &search : searches) {
        texts.push_back(m_songs.fullTextOf(*search.song));
        firstBlock = std::min<std::size_t>(firstBlock, search.begin / BLOCK_SONGS);
        endBlock = std::max<std::size_t>(endBlock, (search.end + BLOCK_SONGS - 1) / BLOCK_SONGS);
    }
    for (const TextGroup &group : m_texts.groups()) {
        std::vector<TextGroup::Search> inGroup;
        for (std::size_t i = 0; i < searches.size(); ++i) {
            if (const auto search = group.searchFor(searches[i], texts[i], searches[i].song->fullPairs))
                inGroup.push_back(*search);
        }
        group.findNear(inGroup);
    }
    for (std::size_t block = firstBlock; block < endBlock; ++block) {
        for (const SongSearch &search : searches)
            findContaining(block, search);
    }
}

void FullTexts::findContaining(std::size_t block, const SongSearch &search) const
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
