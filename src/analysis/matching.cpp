#include "analysis/matching.h"

#include "analysis/distance.h"
#include "analysis/normalization.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace sonavo {
namespace {

bool durationsMatch(const PreparedSong &a, const PreparedSong &b)
{
    return std::abs(a.duration - b.duration) <= MATCH_DURATION_DIFF;
}

bool shareTitleWord(const PreparedSongs &songs, const PreparedSong &a, const PreparedSong &b)
{
    const auto wordsA = songs.titleWordsOf(a);
    const auto wordsB = songs.titleWordsOf(b);
    return std::find_first_of(wordsA.begin(), wordsA.end(), wordsB.begin(), wordsB.end()) != wordsA.end();
}

bool areFullTextsSimilar(const PreparedSongs &songs, const PreparedSong &a, const PreparedSong &b)
{
    // Holds for two empty texts, too.
    if (a.artistId == b.artistId && a.titleId == b.titleId)
        return true;
    const std::size_t limit = largestDistance(std::max(a.fullLength, b.fullLength), MATCH_TITLE_SIMILARITY);
    return mayBeWithin(limit, a.fullLength, b.fullLength, a.fullBag, b.fullBag) &&
           mayBeWithin(limit, a.fullPairs, b.fullPairs) &&
           calculateSimilarity(songs.fullTextOf(a), songs.fullTextOf(b), MATCH_TITLE_SIMILARITY) >=
               MATCH_TITLE_SIMILARITY;
}

/// A quick test before oneContainsTheOther().
bool mayOneContainTheOther(std::uint32_t lengthA, std::uint32_t lengthB, std::uint64_t bigramsA,
                           std::uint64_t bigramsB)
{
    if (lengthA == lengthB)
        return bigramsA == bigramsB;
    return (lengthA < lengthB ? bigramsA & ~bigramsB : bigramsB & ~bigramsA) == 0;
}

bool oneContainsTheOther(const QString &a, const QString &b)
{
    QString loweredA;
    QString loweredB;
    lowerInto(loweredA, a);
    lowerInto(loweredB, b);
    if (loweredA.isEmpty() || loweredB.isEmpty())
        return false;
    return loweredA.size() >= loweredB.size() ? loweredA.contains(loweredB) : loweredB.contains(loweredA);
}

} // namespace

bool songsMatch(const PreparedSongs &songs, const PreparedSong &seed, const PreparedSong &candidate)
{
    // The order changes only the speed: the sooner a condition fails, the less there is to do.
    return durationsMatch(seed, candidate) && artistsMatch(songs, seed, candidate) &&
           textsMatch(songs, seed, candidate) && shareTitleWord(songs, seed, candidate);
}

bool artistsMatch(const PreparedSongs &songs, const PreparedSong &a, const PreparedSong &b)
{
    if (a.artistId == b.artistId)
        return true;
    const std::size_t limit =
        largestDistance(std::max(a.artistLength, b.artistLength), MATCH_ARTIST_SIMILARITY);
    return mayBeWithin(limit, a.artistLength, b.artistLength, a.artistBag, b.artistBag) &&
           mayBeWithin(limit, a.artistPairs, b.artistPairs) &&
           calculateSimilarity(songs.artistOf(a), songs.artistOf(b), MATCH_ARTIST_SIMILARITY) >=
               MATCH_ARTIST_SIMILARITY;
}

bool textsMatch(const PreparedSongs &songs, const PreparedSong &a, const PreparedSong &b)
{
    return areFullTextsSimilar(songs, a, b) ||
           (mayOneContainTheOther(a.titleLength, b.titleLength, a.titleBigrams, b.titleBigrams) &&
            oneContainsTheOther(songs.song(a).title, songs.song(b).title)) ||
           (mayOneContainTheOther(a.nameLength, b.nameLength, a.nameBigrams, b.nameBigrams) &&
            oneContainsTheOther(songs.song(a).name, songs.song(b).name));
}

bool artistsCompatible(const PreparedSongs &songs, const PreparedSong &duplicate,
                       const PreparedSong &original)
{
    if (songs.song(original).artist.isEmpty() || songs.song(duplicate).artist.isEmpty())
        return true;
    const std::string_view words = songs.artistOf(duplicate);
    const std::string_view originalWords = songs.artistOf(original);
    if (words == originalWords)
        return !words.empty();
    bool isShared = false;
    forEachWord(words, [&](std::string_view word) {
        forEachWord(originalWords, [&](std::string_view other) { isShared |= word == other; });
    });
    return isShared;
}

} // namespace sonavo
