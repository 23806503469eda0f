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

bool furtherArtistsMatch(const FurtherSongs &songs, const FurtherSong &a, const FurtherSong &b)
{
    if (a.artistId == b.artistId)
        return true;
    const std::size_t limit =
        largestDistance(std::max(a.artistLength, b.artistLength), MATCH_ARTIST_SIMILARITY);
    return mayBeWithin(limit, a.artistLength, b.artistLength, a.artistBag, b.artistBag) &&
           calculateSimilarity(songs.artistOf(a), songs.artistOf(b), MATCH_ARTIST_SIMILARITY) >=
               MATCH_ARTIST_SIMILARITY;
}

bool oneTitleContainsTheOther(const FurtherSongs &songs, const FurtherSong &a, const FurtherSong &b,
                              TrackNumber number)
{
    if ((a.titleBigrams & ~b.titleBigrams) != 0 && (b.titleBigrams & ~a.titleBigrams) != 0)
        return false;
    const std::u32string_view titleA = songs.titleOf(a, number);
    const std::u32string_view titleB = songs.titleOf(b, number);
    return titleA.size() >= titleB.size() ? containsWords(titleA, titleB) : containsWords(titleB, titleA);
}

bool furtherFullTextsSimilar(const FurtherSongs &songs, const FurtherSong &a, const FurtherSong &b,
                             TrackNumber number)
{
    const FurtherSong::FullText &fullA = a.fullText(number);
    const FurtherSong::FullText &fullB = b.fullText(number);
    const std::size_t limit = largestDistance(std::max(fullA.length, fullB.length), MATCH_TITLE_SIMILARITY);
    if (!mayBeWithin(limit, fullA.length, fullB.length, fullA.bag, fullB.bag))
        return false;
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
    std::u32string artist = normalizeAllScripts(song.artist);
    dropLeadingThe(artist);

    FurtherSong prepared;
    prepared.duration = song.duration;
    prepared.artistBag = characterBag(artist);
    prepared.artistLength = static_cast<std::uint32_t>(artist.size());
    prepared.artistId = m_artists.add(artist);
    prepared.titleId = m_titles.add(title);
    prepared.numberLength = numberLengthOf(title);
    prepared.titleBigrams = bigramBitsOf(titleOf(prepared, TrackNumber::Dropped));
    prepared.index = index;

    std::u32string full;
    const auto describe = [&](TrackNumber number) {
        fullTextInto(full, prepared, number);
        return FurtherSong::FullText{characterBag(full), static_cast<std::uint32_t>(full.size())};
    };
    prepared.whole = describe(TrackNumber::Kept);
    prepared.withoutNumber = prepared.isNumbered() ? describe(TrackNumber::Dropped) : prepared.whole;
    m_songs.push_back(prepared);
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
    if (!(std::abs(a.duration - b.duration) <= MATCH_DURATION_DIFF) || !furtherArtistsMatch(songs, a, b))
        return false;
    const TrackNumber number = a.isNumbered() == b.isNumbered() ? TrackNumber::Kept : TrackNumber::Dropped;
    return (a.titleId == b.titleId || oneTitleContainsTheOther(songs, a, b, number) ||
            furtherFullTextsSimilar(songs, a, b, number)) &&
           haveTitleWordInCommon(songs.titleOf(a, TrackNumber::Kept), songs.titleOf(b, TrackNumber::Kept));
}

} // namespace sonavo
