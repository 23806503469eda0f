#include "analysis/further_songs.h"

#include "analysis/distance.h"
#include "analysis/matching.h"
#include "analysis/normalization.h"
#include "analysis/parallel.h"

#include <QSet>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <span>
#include <utility>

namespace sonavo {
namespace {

/// @param artist as it is written
/// @param normalized the same, see normalizeAllScripts()
void dropThe(std::u32string &normalized, const QString &artist)
{
    constexpr std::u32string_view BEFORE = U"the ";
    constexpr std::u32string_view BEHIND = U" the";
    if (normalized.starts_with(BEFORE))
        normalized.erase(0, BEFORE.size());
    else if (artist.endsWith(u", the", Qt::CaseInsensitive) && normalized.ends_with(BEHIND))
        normalized.erase(normalized.size() - BEHIND.size());
}

/// Takes the guests off an artist.
std::u32string takeGuests(std::u32string &artist)
{
    std::u32string_view guests;
    forEachWord(std::u32string_view(artist), [&](std::u32string_view word) {
        const auto begin = static_cast<std::size_t>(word.data() - artist.data());
        const bool announces = word == U"feat" || word == U"ft" || word == U"featuring";
        if (announces && begin > 0 && guests.empty())
            guests = std::u32string_view(artist).substr(begin);
    });
    const std::size_t end = std::min(guests.find(U' '), guests.size());
    std::u32string taken(guests.substr(std::min(end + 1, guests.size())));
    if (!guests.empty())
        artist.resize(artist.size() - guests.size() - 1);
    return taken;
}

/// Characters of the track number at the front of a title and of the blank behind it.
std::uint8_t numberLengthOf(std::u32string_view title)
{
    constexpr std::size_t MOST_DIGITS = 3;
    const std::size_t digits = title.find_first_not_of(U"0123456789");
    const bool isNumbered = digits > 0 && digits <= MOST_DIGITS && title[digits] == U' ';
    return isNumbered ? static_cast<std::uint8_t>(digits + 1) : std::uint8_t{0};
}

/// Characters of the tail and of the blank before it.
/// @param title as it is written
/// @param normalized the same, see normalizeAllScripts()
std::uint32_t tailLengthOf(const QString &title, std::u32string_view normalized, std::uint32_t numberLength)
{
    const QString trimmed = title.trimmed();
    const bool endsInBrackets = trimmed.endsWith(u')') || trimmed.endsWith(u']');
    const qsizetype bracket = std::max(trimmed.lastIndexOf(u'('), trimmed.lastIndexOf(u'['));
    const qsizetype begin = endsInBrackets && bracket >= 0 ? bracket : trimmed.lastIndexOf(u" - ");
    if (begin <= 0)
        return 0;
    const std::u32string before = normalizeAllScripts(trimmed.first(begin));
    const bool isTail = before.size() > numberLength && before.size() < normalized.size() &&
                        normalized.starts_with(before) && normalized[before.size()] == U' ';
    return isTail ? static_cast<std::uint32_t>(normalized.size() - before.size()) : 0;
}

std::uint8_t numberBitOf(std::u32string_view number)
{
    return static_cast<std::uint8_t>(std::hash<std::u32string_view>{}(number) % 64);
}

std::uint64_t numberBitsOf(std::u32string_view title)
{
    std::uint64_t bits = 0;
    forEachNumber(title,
                  [&](std::u32string_view number) { bits |= std::uint64_t{1} << numberBitOf(number); });
    return bits;
}

std::uint64_t titleWordBitsOf(std::u32string_view title, const FurtherSong &song)
{
    std::uint64_t bits = 0;
    forEachTitleWord(title, song.numberLength, song.tailLength, [&](std::u32string_view word) {
        bits |= std::uint64_t{1} << std::hash<std::u32string_view>{}(word) % 64;
    });
    return bits;
}

template <typename Character>
bool containsWords(std::basic_string_view<Character> text, std::basic_string_view<Character> words)
{
    constexpr Character BLANK{' '};
    for (std::size_t at = text.find(words); at != text.npos; at = text.find(words, at + 1)) {
        const std::size_t end = at + words.size();
        if ((at == 0 || text[at - 1] == BLANK) && (end == text.size() || text[end] == BLANK))
            return true;
    }
    return false;
}

template <typename Character>
bool haveWordInCommon(std::basic_string_view<Character> titleA, std::basic_string_view<Character> titleB)
{
    bool isFound = false;
    forEachWord(titleA, [&](std::basic_string_view<Character> word) {
        isFound = isFound || (isTitleWord(word) && containsWords(titleB, word));
    });
    return isFound;
}

/// The same of titles written as one word.
template <typename Character>
bool haveJoinedTitleInCommon(std::basic_string_view<Character> titleA, const FurtherSong &a,
                             std::basic_string_view<Character> titleB, const FurtherSong &b)
{
    using View = std::basic_string_view<Character>;
    bool isFound = false;
    forEachJoinedTitle(titleA, a.numberLength, a.tailLength, [&](View joinedA) {
        isFound = isFound || containsWords(titleB, joinedA);
        forEachJoinedTitle(titleB, b.numberLength, b.tailLength,
                           [&](View joinedB) { isFound = isFound || joinedA == joinedB; });
    });
    forEachJoinedTitle(titleB, b.numberLength, b.tailLength,
                       [&](View joinedB) { isFound = isFound || containsWords(titleA, joinedB); });
    return isFound;
}

bool haveTitleWordInCommon(const FurtherSong &a, const FurtherSong &b)
{
    return visitBoth(titleOf(a, TrackNumber::Kept, Tail::Kept), titleOf(b, TrackNumber::Kept, Tail::Kept),
                     [&](auto titleA, auto titleB) {
                         // Most have a plain one, which is found sooner.
                         return haveWordInCommon(titleA, titleB) ||
                                haveJoinedTitleInCommon(titleA, a, titleB, b);
                     });
}

bool haveSameArtist(const FurtherSong &a, const FurtherSong &b)
{
    return a.artistHash == b.artistHash && artistOf(a) == artistOf(b);
}

bool areSimilarArtists(const PackedText &a, const PackedText &b)
{
    return visitBoth(a, b, [](auto left, auto right) {
        return calculateSimilarity(left, right, MATCH_ARTIST_SIMILARITY) >= MATCH_ARTIST_SIMILARITY;
    });
}

/// Some characters of a song's text.
PackedText textAt(const FurtherSong &song, std::size_t begin, std::size_t size)
{
    if (song.isWide)
        return std::u32string_view(static_cast<const char32_t *>(song.text) + begin, size);
    return std::string_view(static_cast<const char *>(song.text) + begin, size);
}

void append(std::u32string &text, const PackedText &more)
{
    more.visit([&text](auto characters) { text.append(characters.begin(), characters.end()); });
}

/// The artist with the guests.
std::u32string allArtistsOf(const FurtherSong &song)
{
    std::u32string artists;
    append(artists, artistOf(song));
    artists += U' ';
    append(artists, textAt(song, song.wholeLength, song.guestsLength));
    return artists;
}

/// Artist and title joined.
/// @param memory holds the text where it is not in one piece
PackedText fullTextOf(const FurtherSong &song, TrackNumber number, Tail tail, std::u32string &memory)
{
    const bool isWhole = number == TrackNumber::Kept || !song.isNumbered();
    if (isWhole || song.artistLength == 0)
        return textAt(song, isWhole ? 0 : song.numberLength, song.fullLength(number, tail));
    fullTextInto(memory, song, number, tail);
    return std::u32string_view(memory);
}

bool artistsMatchFurther(const FurtherSong &a, const FurtherSong &b)
{
    return (haveSameArtist(a, b) || areSimilarArtists(artistOf(a), artistOf(b))) &&
           (a.guestsLength == 0 || b.guestsLength == 0 ||
            areSimilarArtists(std::u32string_view(allArtistsOf(a)), std::u32string_view(allArtistsOf(b))));
}

TrackNumber comparedNumber(const FurtherSong &a, const FurtherSong &b)
{
    return a.isNumbered() == b.isNumbered() ? TrackNumber::Kept : TrackNumber::Dropped;
}

/// A quick test before haveCompatibleNumbers().
bool mayHaveCompatibleNumbers(const FurtherSong &a, const FurtherSong &b, TrackNumber number)
{
    const std::uint64_t bitsA = a.numberBits(number);
    const std::uint64_t bitsB = b.numberBits(number);
    return (bitsA & ~bitsB) == 0 || (bitsB & ~bitsA) == 0;
}

bool haveCompatibleNumbers(const FurtherSong &a, const FurtherSong &b, TrackNumber number)
{
    if (a.numberBits(number) == 0 || b.numberBits(number) == 0)
        return true;
    const auto numbersOf = [](auto title) {
        std::vector<decltype(title)> numbers;
        forEachNumber(title, [&numbers](auto found) { numbers.push_back(found); });
        std::sort(numbers.begin(), numbers.end());
        return numbers;
    };
    return visitBoth(titleOf(a, number, Tail::Kept), titleOf(b, number, Tail::Kept),
                     [&numbersOf](auto titleA, auto titleB) {
                         const auto x = numbersOf(titleA);
                         const auto y = numbersOf(titleB);
                         return std::includes(x.begin(), x.end(), y.begin(), y.end()) ||
                                std::includes(y.begin(), y.end(), x.begin(), x.end());
                     });
}

/// A quick test before oneTitleContainsTheOther().
bool mayOneTitleContainTheOther(const FurtherSong &a, const FurtherSong &b)
{
    return (a.titlePairBits & ~b.titlePairBits) == 0 || (b.titlePairBits & ~a.titlePairBits) == 0;
}

bool oneTitleContainsTheOther(const FurtherSong &a, const FurtherSong &b, TrackNumber number)
{
    if (!mayOneTitleContainTheOther(a, b))
        return false;
    return visitBoth(titleOf(a, number, Tail::Kept), titleOf(b, number, Tail::Kept),
                     [](auto titleA, auto titleB) {
                         return titleA.size() >= titleB.size() ? containsWords(titleA, titleB)
                                                               : containsWords(titleB, titleA);
                     });
}

bool hasFinePairs(const FurtherSong &song)
{
    constexpr std::uint32_t LONG = 256;
    return song.wholeLength > LONG && !song.isWide;
}

/// Those of artist and title joined; they are kept behind the text.
FinePairCounts finePairsOf(const FurtherSong &song)
{
    FinePairCounts pairs;
    std::memcpy(&pairs, static_cast<const char *>(song.text) + song.wholeLength + song.guestsLength,
                sizeof pairs);
    return pairs;
}

/// On its own, so that the test of all other texts stays small.
[[gnu::noinline]] bool mayLongTextsBeWithin(std::size_t limit, const FurtherSong &a, const FurtherSong &b)
{
    return mayBeWithin(limit, a.wholeLength, b.wholeLength, finePairsOf(a), finePairsOf(b));
}

/// A quick test before areFullTextsSimilarFurther(), with or without track numbers and tails.
bool mayFullTextsBeSimilar(const FurtherSong &a, const FurtherSong &b)
{
    const std::size_t limit = largestDistance(std::max(a.wholeLength, b.wholeLength), MATCH_TITLE_SIMILARITY);
    const bool isWithin = a.isNumbered() <= b.isNumbered() && a.hasTail() <= b.hasTail();
    const bool isWithout = b.isNumbered() <= a.isNumbered() && b.hasTail() <= a.hasTail();
    if (isWithin && isWithout)
        return mayBeWithin(limit, a.wholeLength, b.wholeLength, a.pairs, b.pairs) &&
               (!hasFinePairs(a) || !hasFinePairs(b) || mayLongTextsBeWithin(limit, a, b));
    // The counts of longer texts may have reached their limits.
    const bool isLong = std::max(a.wholeLength, b.wholeLength) > UINT8_MAX;
    if (isLong || (!isWithin && !isWithout))
        return true;
    // One text is compared without its number or its tail. It has the fewer pairs then, so only pairs that
    // the other one has more often count, which are half of the difference but for the surplus.
    const std::size_t whole = isWithin ? a.wholeLength : b.wholeLength;
    const std::size_t shortened = isWithin ? b.wholeLength : a.wholeLength;
    return difference(a.pairs, b.pairs) + whole <= 4 * limit + shortened;
}

bool areFullTextsSimilarFurther(const FurtherSong &a, const FurtherSong &b, TrackNumber number, Tail tail)
{
    const std::uint32_t lengthA = a.fullLength(number, tail);
    const std::uint32_t lengthB = b.fullLength(number, tail);
    const std::uint32_t longer = std::max(lengthA, lengthB);
    const std::size_t limit = largestDistance(longer, MATCH_TITLE_SIMILARITY);
    if (longer - std::min(lengthA, lengthB) > limit)
        return false;
    std::u32string memoryA;
    std::u32string memoryB;
    // What two texts begin with alike does not change their distance.
    const bool isTitleEnough = haveSameArtist(a, b);
    const std::size_t distance =
        visitBoth(isTitleEnough ? titleOf(a, number, tail) : fullTextOf(a, number, tail, memoryA),
                  isTitleEnough ? titleOf(b, number, tail) : fullTextOf(b, number, tail, memoryB),
                  [limit](auto textA, auto textB) { return levenshteinDistance(textA, textB, limit); });
    return 1.0 - static_cast<double>(distance) / longer >= MATCH_TITLE_SIMILARITY;
}

/// The songs that are the first of their path, by playing time.
std::vector<FurtherSong> distinctSongs(const QList<Song> &songs)
{
    struct Place
    {
        double duration = 0.0;
        std::uint32_t index = 0;
    };
    std::vector<Place> places;
    places.reserve(static_cast<std::size_t>(songs.size()));
    QSet<QStringView> paths;
    paths.reserve(songs.size());
    for (std::uint32_t i = 0; i < static_cast<std::size_t>(songs.size()); ++i) {
        const qsizetype known = paths.size();
        paths.insert(songs[i].path);
        if (paths.size() > known)
            places.push_back({songs[i].duration, i});
    }
    std::sort(places.begin(), places.end(), [](const Place &a, const Place &b) {
        return a.duration != b.duration ? a.duration < b.duration : a.index < b.index;
    });
    std::vector<FurtherSong> distinct(places.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        distinct[i].duration = places[i].duration;
        distinct[i].index = places[i].index;
    }
    return distinct;
}

} // namespace

/// Prepares one song after the other.
class FurtherSongs::Preparer
{
public:
    /// @return whether the song can match another; its text is not set yet
    bool prepare(FurtherSong &prepared, const Song &song)
    {
        const std::u32string title = normalizeAllScripts(song.title);
        prepared.numberLength = numberLengthOf(title);
        prepared.tailLength = tailLengthOf(song.title, title, prepared.numberLength);
        prepared.titleWordBits = titleWordBitsOf(title, prepared);
        if (prepared.titleWordBits == 0)
            return false;
        std::u32string text = normalizeAllScripts(song.artist);
        dropThe(text, song.artist);
        const std::u32string guests = takeGuests(text);
        prepared.guestsLength = static_cast<std::uint16_t>(std::min<std::size_t>(guests.size(), UINT16_MAX));
        prepared.artistHash = static_cast<std::uint32_t>(std::hash<std::u32string>{}(text));
        prepared.artistLength = static_cast<std::uint32_t>(text.size());
        if (!text.empty())
            text += U' ';
        text += title;
        prepared.pairs = PairCounts(text);
        prepared.wholeLength = static_cast<std::uint32_t>(text.size());
        const std::u32string_view bare = std::u32string_view(title).substr(prepared.numberLength);
        prepared.titlePairBits = pairBitsOf(bare);
        prepared.otherNumberBits = numberBitsOf(bare);
        forEachNumber(
            std::u32string_view(title).substr(0, prepared.numberLength),
            [&](std::u32string_view number) { prepared.trackNumberBit = numberBitOf(number) & 0x3F; });
        text.append(guests, 0, prepared.guestsLength);
        prepared.isWide =
            std::any_of(text.begin(), text.end(), [](char32_t character) { return character >= 0x80; });
        if (prepared.isWide)
            m_texts.others += text;
        else
            m_texts.ascii.append(text.begin(), text.end());
        if (hasFinePairs(prepared)) {
            const FinePairCounts pairs(std::u32string_view(text).substr(0, prepared.wholeLength));
            m_texts.ascii.append(reinterpret_cast<const char *>(&pairs), sizeof pairs);
        }
        return true;
    }

    /// Ends the work.
    /// @return the texts of the songs that were prepared, in order
    Texts takeTexts()
    {
        m_texts.ascii.shrink_to_fit();
        m_texts.others.shrink_to_fit();
        return std::move(m_texts);
    }

    /// Lets songs point to their texts.
    /// @param texts where they stay: a string that is moved can take its characters to another place
    static void setTexts(std::span<FurtherSong> songs, const Texts &texts)
    {
        const char *ascii = texts.ascii.data();
        const char32_t *other = texts.others.data();
        for (FurtherSong &song : songs) {
            const std::size_t length =
                song.wholeLength + song.guestsLength + (hasFinePairs(song) ? sizeof(FinePairCounts) : 0);
            if (song.isWide)
                song.text = std::exchange(other, other + length);
            else
                song.text = std::exchange(ascii, ascii + length);
        }
    }

private:
    Texts m_texts;
};

FurtherSongs::FurtherSongs(const QList<Song> &songs, const std::stop_token &stop)
    : m_songs(distinctSongs(songs))
{
    constexpr std::size_t SONGS_PER_TEXT = 1024;
    const std::size_t textCount = (m_songs.size() + SONGS_PER_TEXT - 1) / SONGS_PER_TEXT;
    m_texts.resize(textCount);
    const auto prepareSongsOf = [&](std::size_t text) {
        const std::size_t begin = text * SONGS_PER_TEXT;
        const std::span part =
            std::span(m_songs).subspan(begin, std::min(SONGS_PER_TEXT, m_songs.size() - begin));
        Preparer preparer;
        std::size_t kept = 0;
        for (FurtherSong &song : part) {
            if (preparer.prepare(song, songs[song.index]))
                part[kept++] = song;
        }
        m_texts[text] = preparer.takeTexts();
        Preparer::setTexts(part.first(kept), m_texts[text]);
        std::fill(part.begin() + static_cast<std::ptrdiff_t>(kept), part.end(), FurtherSong());
    };
    (void)forEachInParallel(textCount, 1, stop, prepareSongsOf);
    const auto isLeftOut = [](const FurtherSong &song) { return song.text == nullptr; };
    m_songs.erase(std::remove_if(m_songs.begin(), m_songs.end(), isLeftOut), m_songs.end());
}

PackedText artistOf(const FurtherSong &song)
{
    return textAt(song, 0, song.artistLength);
}

PackedText titleOf(const FurtherSong &song, TrackNumber number, Tail tail)
{
    const std::uint32_t begin = (song.artistLength > 0 ? song.artistLength + 1 : 0) +
                                (number == TrackNumber::Kept ? 0 : song.numberLength);
    const std::uint32_t end = song.wholeLength - (tail == Tail::Kept ? 0 : song.tailLength);
    return textAt(song, begin, end - begin);
}

void fullTextInto(std::u32string &result, const FurtherSong &song, TrackNumber number, Tail tail)
{
    result.clear();
    append(result, artistOf(song));
    if (!result.empty())
        result += U' ';
    append(result, titleOf(song, number, tail));
}

bool isTitleWord(std::u32string_view word)
{
    return word.size() >= MATCH_WORD_LENGTH ||
           std::any_of(word.begin(), word.end(), isOfScriptWithShortWords);
}

bool songsMatchFurther(const FurtherSong &a, const FurtherSong &b)
{
    // The order changes only the speed: the sooner a condition fails, the less there is to do.
    if (!(std::abs(a.duration - b.duration) <= MATCH_DURATION_DIFF) || !mayMatchFurther(a, b))
        return false;
    const TrackNumber number = comparedNumber(a, b);
    const auto areSimilar = [&] {
        return mayFullTextsBeSimilar(a, b) &&
               (areFullTextsSimilarFurther(a, b, number, Tail::Kept) ||
                (a.hasTail() != b.hasTail() && areFullTextsSimilarFurther(a, b, number, Tail::Dropped)));
    };
    return (oneTitleContainsTheOther(a, b, number) || areSimilar()) && artistsMatchFurther(a, b) &&
           haveCompatibleNumbers(a, b, number) && haveTitleWordInCommon(a, b);
}

bool mayMatchFurther(const FurtherSong &a, const FurtherSong &b)
{
    return (a.titleWordBits & b.titleWordBits) != 0 && mayHaveCompatibleNumbers(a, b, comparedNumber(a, b)) &&
           (mayOneTitleContainTheOther(a, b) || mayFullTextsBeSimilar(a, b));
}

} // namespace sonavo
