#pragma once

#include "analysis/character_counts.h"
#include "analysis/matching.h"
#include "analysis/normalization.h"
#include "analysis/packed_text.h"
#include "model/song.h"

#include <QList>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace sonavo {

/// Whether a title is compared with its track number.
enum class TrackNumber : std::uint8_t
{
    Kept,
    Dropped
};

/// Whether a title is compared with what stands behind it in brackets or behind a dash.
enum class Tail : std::uint8_t
{
    Kept,
    Dropped
};

/// What a comparison of two songs checks first when looking further: most pairs are rejected without reading
/// their texts. In two cache lines, of which most comparisons read the first only.
struct alignas(64) FurtherSong
{
    [[nodiscard]] bool isNumbered() const { return numberLength > 0; }
    [[nodiscard]] bool hasTail() const { return tailLength > 0; }
    /// Characters of artist and title joined.
    [[nodiscard]] std::uint32_t fullLength(TrackNumber number, Tail tail) const
    {
        return wholeLength - (number == TrackNumber::Kept ? 0 : numberLength) -
               (tail == Tail::Kept ? 0 : tailLength);
    }
    /// One bit for each number in the title; different numbers can share a bit.
    [[nodiscard]] std::uint64_t numberBits(TrackNumber number) const
    {
        const bool hasTrackNumber = number == TrackNumber::Kept && isNumbered();
        return otherNumberBits | std::uint64_t{hasTrackNumber} << trackNumberBit;
    }

    /// Seconds.
    double duration = 0.0;
    /// One bit for each title word (see isTitleWord()); different words can share a bit.
    std::uint64_t titleWordBits = 0;
    /// See numberBits(): the bits of all numbers but the track number.
    std::uint64_t otherNumberBits = 0;
    /// Of the title without its number; see pairBitsOf(). A title that contains another has all of its bits.
    std::uint64_t titlePairBits = 0;
    /// Artist and title joined, and the guests behind them; see artistOf() and so on.
    const void *text = nullptr;
    /// Characters of artist and title joined, of the artist, and of the tail with the blank before it.
    std::uint32_t wholeLength = 0;
    std::uint32_t artistLength = 0;
    std::uint32_t tailLength = 0;
    /// Of the artist; different artists can share it.
    std::uint32_t artistHash = 0;
    /// Where the song stands in the list.
    std::uint32_t index = 0;
    /// Characters of the track number with the blank behind it, and which bit it has in numberBits().
    std::uint8_t numberLength = 0;
    std::uint8_t trackNumberBit : 6 = 0;
    /// Whether `text` has code points, not bytes.
    bool isWide : 1 = false;
    /// Characters of the artist's guests, no more than fit: they stand behind the text.
    std::uint16_t guestsLength = 0;
    /// Of artist and title joined.
    alignas(64) PairCounts pairs;
};

/// The songs that are compared when looking further, sorted by playing time. Their texts are prepared in
/// another way than for the four passes:
/// - letters and digits of every script count (see normalizeAllScripts());
/// - "The" before an artist, or behind it as in "Beatles, The", is dropped;
/// - what follows "feat.", "ft." or "featuring" in an artist are guests, which are compared only where the
///   other artist has some, too;
/// - a title that begins with one to three digits and a blank has a track number, which is compared only
///   where the other title has one, too;
/// - a title that ends in brackets, or else holds a dash between blanks, has a tail: the brackets, or the
///   last dash and what follows.
///
/// Songs that can match no other are left out: those without a title word (see forEachTitleWord()), and those
/// of a path that an earlier song has, since one file is no copy of itself. Immutable; any thread may read
/// it.
class FurtherSongs
{
public:
    /// The position of a song among those that are compared.
    using Position = std::uint32_t;

    /// Prepares the texts on all cores.
    /// @param songs fewer than 2^32, with finite durations
    /// @param stop leaves some songs out once a stop is requested
    FurtherSongs(const QList<Song> &songs, const std::stop_token &stop);

    [[nodiscard]] std::size_t size() const { return m_songs.size(); }
    [[nodiscard]] const FurtherSong &operator[](Position position) const { return m_songs[position]; }
    [[nodiscard]] auto begin() const { return m_songs.begin(); }
    [[nodiscard]] auto end() const { return m_songs.end(); }

private:
    /// The texts of some songs, which point into them.
    struct Texts
    {
        std::string ascii;
        std::u32string others;
    };
    class Preparer;

    std::vector<FurtherSong> m_songs;
    std::vector<Texts> m_texts;
};

[[nodiscard]] PackedText artistOf(const FurtherSong &song);
[[nodiscard]] PackedText titleOf(const FurtherSong &song, TrackNumber number, Tail tail);
/// Artist and title joined by a blank. Overwrites `result` and reuses its memory.
void fullTextInto(std::u32string &result, const FurtherSong &song, TrackNumber number, Tail tail);

/// Calls `visit` with each way in which the full text of a song is compared.
template <typename Visit>
void forEachTextOf(const FurtherSong &song, Visit visit)
{
    for (const TrackNumber number : {TrackNumber::Kept, TrackNumber::Dropped}) {
        for (const Tail tail : {Tail::Kept, Tail::Dropped}) {
            if ((number == TrackNumber::Kept || song.isNumbered()) && (tail == Tail::Kept || song.hasTail()))
                visit(number, tail);
        }
    }
}

/// Calls `visit` with each number in a text, in order: its runs of the digits 0 to 9, without leading zeros.
template <typename Character, typename Visit>
void forEachNumber(std::basic_string_view<Character> text, Visit visit)
{
    const auto isDigit = [](Character character) { return character >= '0' && character <= '9'; };
    auto end = text.begin();
    for (auto begin = std::find_if(end, text.end(), isDigit); begin != text.end();
         begin = std::find_if(end, text.end(), isDigit)) {
        end = std::find_if_not(begin, text.end(), isDigit);
        begin = std::find_if(begin, end - 1, [](Character digit) { return digit != '0'; });
        visit(std::basic_string_view<Character>(begin, end));
    }
}

/// Whether two titles that share this word can be those of one recording: it has at least three characters,
/// or one of a script in which words are short.
[[nodiscard]] bool isTitleWord(std::u32string_view word);
[[nodiscard]] inline bool isTitleWord(std::string_view word)
{
    return word.size() >= MATCH_WORD_LENGTH;
}

/// Calls `visit` with the title without its track number written as one word, with its tail and without, if
/// that has three characters and the title more than one word. So titles that differ in their blanks share a
/// word.
/// @param title see titleOf()
template <typename Character, typename Visit>
void forEachJoinedTitle(std::basic_string_view<Character> title, std::uint32_t numberLength,
                        std::uint32_t tailLength, Visit visit)
{
    constexpr Character BLANK{' '};
    std::basic_string<Character> joined;
    const auto join = [&](std::basic_string_view<Character> text) {
        if (text.find(BLANK) == text.npos)
            return;
        joined = text;
        std::erase(joined, BLANK);
        if (joined.size() >= MATCH_WORD_LENGTH)
            visit(std::basic_string_view<Character>(joined));
    };
    const std::basic_string_view<Character> bare = title.substr(numberLength);
    join(bare);
    if (tailLength > 0)
        join(bare.substr(0, bare.size() - tailLength));
}

/// Calls `visit` with each word that two titles of one recording can share, some of them more than once: the
/// words of the title for which isTitleWord() is true, and those of forEachJoinedTitle().
template <typename Character, typename Visit>
void forEachTitleWord(std::basic_string_view<Character> title, std::uint32_t numberLength,
                      std::uint32_t tailLength, Visit visit)
{
    forEachWord(title, [&](std::basic_string_view<Character> word) {
        if (isTitleWord(word))
            visit(word);
    });
    forEachJoinedTitle(title, numberLength, tailLength, visit);
}

/// Whether two songs are the same recording when looking further: the four conditions of songsMatch() over
/// the texts of FurtherSongs, and one more.
/// - One title contains another where it has all of its words in a row. File names are not compared: artist
///   and title are read from them.
/// - Artists are similar without their guests, and where both have some, with them, too.
/// - Where only one title has a tail, the texts may also be similar without it.
/// - Titles with different numbers are different songs ("Part 1" and "Part 2"): one of them must hold all
///   numbers of the other.
///
/// Symmetric and pure, but not transitive; any thread may call it. FurtherMatches relies on the second,
/// third and fourth condition and on that of the numbers.
[[nodiscard]] bool songsMatchFurther(const FurtherSong &a, const FurtherSong &b);

/// A quick test that leaves out artists and playing times: false only for songs that do not match.
[[nodiscard]] bool mayMatchFurther(const FurtherSong &a, const FurtherSong &b);

} // namespace sonavo
