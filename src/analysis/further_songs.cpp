#include "analysis/further_songs.h"

#include "analysis/distance.h"
#include "analysis/matching.h"
#include "analysis/normalization.h"

#include <QSet>

#include <algorithm>
#include <cmath>

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

bool artistsMatchFurther(const FurtherSongs &songs, const FurtherSong &a, const FurtherSong &b)
{
    if (a.artistId == b.artistId)
        return true;
    const std::size_t limit =
        largestDistance(std::max(a.artistLength, b.artistLength), MATCH_ARTIST_SIMILARITY);
    return mayBeWithin(limit, a.artistLength, b.artistLength, a.artistBag, b.artistBag) &&
           calculateSimilarity(songs.artistOf(a), songs.artistOf(b), MATCH_ARTIST_SIMILARITY) >=
               MATCH_ARTIST_SIMILARITY;
}

/// A quick test before oneTitleContainsTheOther().
bool mayOneTitleContainTheOther(const FurtherSong &a, const FurtherSong &b)
{
    return (a.titleBigrams & ~b.titleBigrams) == 0 || (b.titleBigrams & ~a.titleBigrams) == 0;
}

bool oneTitleContainsTheOther(const FurtherSongs &songs, const FurtherSong &a, const FurtherSong &b,
                              TrackNumber number)
{
    const std::u32string_view titleA = songs.titleOf(a, number);
    const std::u32string_view titleB = songs.titleOf(b, number);
    return titleA.size() >= titleB.size() ? containsWords(titleA, titleB) : containsWords(titleB, titleA);
}

/// A quick test before areFullTextsSimilarFurther().
bool mayFullTextsBeSimilar(const FurtherSong &a, const FurtherSong &b, TrackNumber number)
{
    const std::uint32_t lengthA = a.fullLength(number);
    const std::uint32_t lengthB = b.fullLength(number);
    const std::size_t limit = largestDistance(std::max(lengthA, lengthB), MATCH_TITLE_SIMILARITY);
    // The bags hold the number, too.
    const std::uint64_t otherBag = number == TrackNumber::Kept ? b.fullBag : a.fullBag;
    return mayBeWithin(limit, lengthA, lengthB, a.fullBag, otherBag);
}

bool areFullTextsSimilarFurther(const FurtherSongs &songs, const FurtherSong &a, const FurtherSong &b,
                                TrackNumber number)
{
    if (a.artistId == b.artistId) {
        // What two texts begin with alike does not change their distance.
        const std::uint32_t longer = std::max(a.fullLength(number), b.fullLength(number));
        const std::size_t distance = levenshteinDistance(songs.titleOf(a, number), songs.titleOf(b, number),
                                                         largestDistance(longer, MATCH_TITLE_SIMILARITY));
        return 1.0 - static_cast<double>(distance) / longer >= MATCH_TITLE_SIMILARITY;
    }
    std::u32string textA;
    std::u32string textB;
    songs.fullTextInto(textA, a, number);
    songs.fullTextInto(textB, b, number);
    return calculateSimilarity(textA, textB, MATCH_TITLE_SIMILARITY) >= MATCH_TITLE_SIMILARITY;
}

} // namespace

FurtherSongs::FurtherSongs(const QList<Song> &songs, const std::stop_token &stop)
{
    const auto count = static_cast<std::size_t>(songs.size());
    m_titles.reserve(count);
    m_songs.reserve(count);
    QSet<QStringView> paths;
    paths.reserve(songs.size());
    for (std::uint32_t i = 0; i < count && !stop.stop_requested(); ++i) {
        const Song &song = songs[i];
        const qsizetype known = paths.size();
        paths.insert(song.path);
        if (paths.size() > known)
            add(song, i);
    }
    std::sort(m_songs.begin(), m_songs.end(), [](const FurtherSong &a, const FurtherSong &b) {
        return a.duration != b.duration ? a.duration < b.duration : a.index < b.index;
    });
}

void FurtherSongs::add(const Song &song, std::uint32_t index)
{
    const std::u32string title = normalizeAllScripts(song.title);
    if (!hasTitleWord(title))
        return;
    // Neighbours in a folder are mostly by one artist.
    if (m_songs.empty() || song.artist != m_lastArtist)
        readArtist(song.artist);
    m_last.duration = song.duration;
    m_last.titleId = m_titles.add(title);
    m_last.numberLength = numberLengthOf(title);
    m_last.titleBigrams = bigramBitsOf(titleOf(m_last, TrackNumber::Dropped));
    fullTextInto(m_text, m_last, TrackNumber::Kept);
    m_last.fullBag = characterBag(m_text);
    m_last.wholeLength = static_cast<std::uint32_t>(m_text.size());
    m_last.index = index;
    m_songs.push_back(m_last);
}

void FurtherSongs::readArtist(const QString &artist)
{
    m_lastArtist = artist;
    m_text = normalizeAllScripts(artist);
    dropLeadingThe(m_text);
    m_last.artistBag = characterBag(m_text);
    m_last.artistLength = static_cast<std::uint32_t>(m_text.size());
    m_last.artistId = m_artists.add(m_text);
}

void FurtherSongs::fullTextInto(std::u32string &result, const FurtherSong &song, TrackNumber number) const
{
    result = artistOf(song);
    if (!result.empty())
        result += U' ';
    result += titleOf(song, number);
}

bool isTitleWord(std::u32string_view word)
{
    return word.size() >= MATCH_WORD_LENGTH ||
           std::any_of(word.begin(), word.end(), isOfScriptWithShortWords);
}

bool songsMatchFurther(const FurtherSongs &songs, const FurtherSong &a, const FurtherSong &b)
{
    // The order changes only the speed: the sooner a condition fails, the less there is to do.
    if (!(std::abs(a.duration - b.duration) <= MATCH_DURATION_DIFF))
        return false;
    const TrackNumber number = a.isNumbered() == b.isNumbered() ? TrackNumber::Kept : TrackNumber::Dropped;
    const bool mayContain = mayOneTitleContainTheOther(a, b);
    const bool mayBeSimilar = mayFullTextsBeSimilar(a, b, number);
    return (mayContain || mayBeSimilar) && artistsMatchFurther(songs, a, b) &&
           ((mayContain && oneTitleContainsTheOther(songs, a, b, number)) ||
            (mayBeSimilar && areFullTextsSimilarFurther(songs, a, b, number))) &&
           haveTitleWordInCommon(songs.titleOf(a, TrackNumber::Kept), songs.titleOf(b, TrackNumber::Kept));
}

} // namespace sonavo
