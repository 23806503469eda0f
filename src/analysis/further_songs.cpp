#include "analysis/further_songs.h"

#include "analysis/distance.h"
#include "analysis/matching.h"
#include "analysis/normalization.h"
#include "analysis/parallel.h"

#include <QSet>

#include <algorithm>
#include <cmath>
#include <functional>
#include <span>
#include <utility>

namespace sonavo {
namespace {

void dropLeadingThe(std::u32string &artist)
{
    constexpr std::u32string_view THE = U"the ";
    if (artist.starts_with(THE))
        artist.erase(0, THE.size());
}

/// Characters of the track number at the front of a title and of the blank behind it.
std::uint32_t numberLengthOf(std::u32string_view title)
{
    constexpr std::size_t MOST_DIGITS = 3;
    const std::size_t digits = title.find_first_not_of(U"0123456789");
    const bool isNumbered = digits > 0 && digits <= MOST_DIGITS && title[digits] == U' ';
    return isNumbered ? static_cast<std::uint32_t>(digits + 1) : 0;
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

std::uint64_t numberBitsOf(std::u32string_view title)
{
    std::uint64_t bits = 0;
    forEachNumber(title, [&](std::u32string_view number) {
        bits |= std::uint64_t{1} << std::hash<std::u32string_view>{}(number) % 64;
    });
    return bits;
}

std::uint64_t bigramBitsOf(std::u32string_view title)
{
    constexpr std::uint32_t MULTIPLIER = 2654435769U;
    constexpr int SIX_BITS = 32 - 6;
    std::uint64_t bits = 0;
    for (std::size_t i = 1; i < title.size(); ++i) {
        const std::uint32_t pair = title[i - 1] << 16 ^ title[i];
        bits |= std::uint64_t{1} << (pair * MULTIPLIER >> SIX_BITS);
    }
    return bits;
}

bool hasTitleWord(std::u32string_view title)
{
    bool isFound = false;
    forEachWord(title, [&](std::u32string_view word) { isFound = isFound || isTitleWord(word); });
    return isFound;
}

bool haveTitleWordInCommon(std::u32string_view a, std::u32string_view b)
{
    bool isFound = false;
    forEachWord(a, [&](std::u32string_view word) {
        if (isFound || !isTitleWord(word))
            return;
        forEachWord(b, [&](std::u32string_view other) { isFound = isFound || word == other; });
    });
    return isFound;
}

bool containsWords(std::u32string_view text, std::u32string_view words)
{
    for (std::size_t at = text.find(words); at != text.npos; at = text.find(words, at + 1)) {
        const std::size_t end = at + words.size();
        if ((at == 0 || text[at - 1] == U' ') && (end == text.size() || text[end] == U' '))
            return true;
    }
    return false;
}

bool haveSameArtist(const FurtherSong &a, const FurtherSong &b)
{
    return a.artistHash == b.artistHash && artistOf(a) == artistOf(b);
}

bool artistsMatchFurther(const FurtherSong &a, const FurtherSong &b)
{
    if (haveSameArtist(a, b))
        return true;
    const std::size_t limit =
        largestDistance(std::max(a.artistLength, b.artistLength), MATCH_ARTIST_SIMILARITY);
    return mayBeWithin(limit, a.artistLength, b.artistLength, a.artistCounts, b.artistCounts) &&
           calculateSimilarity(artistOf(a), artistOf(b), MATCH_ARTIST_SIMILARITY) >= MATCH_ARTIST_SIMILARITY;
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
    const auto numbersOf = [number](const FurtherSong &song) {
        std::vector<std::u32string_view> numbers;
        forEachNumber(titleOf(song, number, Tail::Kept),
                      [&](std::u32string_view found) { numbers.push_back(found); });
        std::sort(numbers.begin(), numbers.end());
        return numbers;
    };
    const auto numbersA = numbersOf(a);
    const auto numbersB = numbersOf(b);
    return std::includes(numbersA.begin(), numbersA.end(), numbersB.begin(), numbersB.end()) ||
           std::includes(numbersB.begin(), numbersB.end(), numbersA.begin(), numbersA.end());
}

/// A quick test before oneTitleContainsTheOther().
bool mayOneTitleContainTheOther(const FurtherSong &a, const FurtherSong &b)
{
    return (a.titleBigrams & ~b.titleBigrams) == 0 || (b.titleBigrams & ~a.titleBigrams) == 0;
}

bool oneTitleContainsTheOther(const FurtherSong &a, const FurtherSong &b, TrackNumber number)
{
    const std::u32string_view titleA = titleOf(a, number, Tail::Kept);
    const std::u32string_view titleB = titleOf(b, number, Tail::Kept);
    return titleA.size() >= titleB.size() ? containsWords(titleA, titleB) : containsWords(titleB, titleA);
}

/// A quick test before areFullTextsSimilarFurther().
bool mayFullTextsBeSimilar(const FurtherSong &a, const FurtherSong &b, TrackNumber number, Tail tail)
{
    const std::uint32_t lengthA = a.fullLength(number, tail);
    const std::uint32_t lengthB = b.fullLength(number, tail);
    const std::size_t limit = largestDistance(std::max(lengthA, lengthB), MATCH_TITLE_SIMILARITY);
    // The counts are those of the whole texts.
    const bool areWhole = number == TrackNumber::Kept && tail == Tail::Kept;
    return mayBeWithin(limit, lengthA, lengthB, a.fullCounts, areWhole ? b.fullCounts : a.fullCounts);
}

bool areFullTextsSimilarFurther(const FurtherSong &a, const FurtherSong &b, TrackNumber number, Tail tail)
{
    if (!mayFullTextsBeSimilar(a, b, number, tail))
        return false;
    if (haveSameArtist(a, b)) {
        // What two texts begin with alike does not change their distance.
        const std::uint32_t longer = std::max(a.fullLength(number, tail), b.fullLength(number, tail));
        const std::size_t distance = levenshteinDistance(titleOf(a, number, tail), titleOf(b, number, tail),
                                                         largestDistance(longer, MATCH_TITLE_SIMILARITY));
        return 1.0 - static_cast<double>(distance) / longer >= MATCH_TITLE_SIMILARITY;
    }
    std::u32string textA;
    std::u32string textB;
    fullTextInto(textA, a, number, tail);
    fullTextInto(textB, b, number, tail);
    return calculateSimilarity(textA, textB, MATCH_TITLE_SIMILARITY) >= MATCH_TITLE_SIMILARITY;
}

/// Prepares one song after the other. All texts are kept in one string.
class Preparer
{
public:
    /// @return whether the song can match another; its text is not set yet
    bool prepare(FurtherSong &prepared, const Song &song)
    {
        const std::u32string title = normalizeAllScripts(song.title);
        if (!hasTitleWord(title))
            return false;
        std::u32string text = normalizeAllScripts(song.artist);
        dropLeadingThe(text);
        prepared.artistHash = std::hash<std::u32string>{}(text);
        prepared.artistCounts = CharacterCounts(text);
        prepared.artistLength = static_cast<std::uint32_t>(text.size());
        if (!text.empty())
            text += U' ';
        text += title;
        prepared.fullCounts = CharacterCounts(text);
        prepared.wholeLength = static_cast<std::uint32_t>(text.size());
        prepared.numberLength = numberLengthOf(title);
        prepared.tailLength = tailLengthOf(song.title, title, prepared.numberLength);
        const std::u32string_view bare = std::u32string_view(title).substr(prepared.numberLength);
        prepared.titleBigrams = bigramBitsOf(bare);
        prepared.otherNumberBits = numberBitsOf(bare);
        prepared.trackNumberBit = numberBitsOf(std::u32string_view(title).substr(0, prepared.numberLength));
        m_texts += text;
        return true;
    }

    /// Ends the work.
    /// @return the texts of the songs that were prepared, in order
    std::u32string takeTexts()
    {
        m_texts.shrink_to_fit();
        return std::move(m_texts);
    }

private:
    std::u32string m_texts;
};

/// Lets songs point to their texts.
/// @param texts where they stay: a string that is moved can take its characters to another place
void setTexts(std::span<FurtherSong> songs, const std::u32string &texts)
{
    const char32_t *text = texts.data();
    for (FurtherSong &song : songs) {
        song.text = text;
        text += song.wholeLength;
    }
}

/// The songs that are the first of their path, by playing time.
std::vector<FurtherSong> distinctSongs(const QList<Song> &songs)
{
    std::vector<FurtherSong> distinct;
    distinct.reserve(static_cast<std::size_t>(songs.size()));
    QSet<QStringView> paths;
    paths.reserve(songs.size());
    for (std::uint32_t i = 0; i < static_cast<std::size_t>(songs.size()); ++i) {
        const Song &song = songs[i];
        const qsizetype known = paths.size();
        paths.insert(song.path);
        if (paths.size() == known)
            continue;
        FurtherSong added;
        added.duration = song.duration;
        added.index = i;
        distinct.push_back(added);
    }
    std::sort(distinct.begin(), distinct.end(), [](const FurtherSong &a, const FurtherSong &b) {
        return a.duration != b.duration ? a.duration < b.duration : a.index < b.index;
    });
    return distinct;
}

} // namespace

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
        setTexts(part.first(kept), m_texts[text]);
        std::fill(part.begin() + static_cast<std::ptrdiff_t>(kept), part.end(), FurtherSong());
    };
    (void)forEachInParallel(textCount, 1, stop, prepareSongsOf);
    const auto isLeftOut = [](const FurtherSong &song) { return song.text == nullptr; };
    m_songs.erase(std::remove_if(m_songs.begin(), m_songs.end(), isLeftOut), m_songs.end());
}

std::u32string_view artistOf(const FurtherSong &song)
{
    return {song.text, song.artistLength};
}

std::u32string_view titleOf(const FurtherSong &song, TrackNumber number, Tail tail)
{
    const std::uint32_t begin = (song.artistLength > 0 ? song.artistLength + 1 : 0) +
                                (number == TrackNumber::Kept ? 0 : song.numberLength);
    const std::uint32_t end = song.wholeLength - (tail == Tail::Kept ? 0 : song.tailLength);
    return {song.text + begin, end - begin};
}

void fullTextInto(std::u32string &result, const FurtherSong &song, TrackNumber number, Tail tail)
{
    result = artistOf(song);
    if (!result.empty())
        result += U' ';
    result += titleOf(song, number, tail);
}

bool isTitleWord(std::u32string_view word)
{
    return word.size() >= MATCH_WORD_LENGTH ||
           std::any_of(word.begin(), word.end(), isOfScriptWithShortWords);
}

bool songsMatchFurther(const FurtherSong &a, const FurtherSong &b)
{
    // The order changes only the speed: the sooner a condition fails, the less there is to do.
    if (!(std::abs(a.duration - b.duration) <= MATCH_DURATION_DIFF))
        return false;
    const TrackNumber number = a.isNumbered() == b.isNumbered() ? TrackNumber::Kept : TrackNumber::Dropped;
    if (!mayHaveCompatibleNumbers(a, b, number))
        return false;
    const bool mayContain = mayOneTitleContainTheOther(a, b);
    const bool mayBeSimilar = mayFullTextsBeSimilar(a, b, number, Tail::Kept);
    const bool mayBeSimilarWithoutTail =
        a.hasTail() != b.hasTail() && mayFullTextsBeSimilar(a, b, number, Tail::Dropped);
    return (mayContain || mayBeSimilar || mayBeSimilarWithoutTail) && artistsMatchFurther(a, b) &&
           ((mayContain && oneTitleContainsTheOther(a, b, number)) ||
            (mayBeSimilar && areFullTextsSimilarFurther(a, b, number, Tail::Kept)) ||
            (mayBeSimilarWithoutTail && areFullTextsSimilarFurther(a, b, number, Tail::Dropped))) &&
           haveCompatibleNumbers(a, b, number) &&
           haveTitleWordInCommon(titleOf(a, TrackNumber::Kept, Tail::Kept),
                                 titleOf(b, TrackNumber::Kept, Tail::Kept));
}

} // namespace sonavo
