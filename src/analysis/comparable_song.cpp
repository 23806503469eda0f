#include "analysis/comparable_song.h"

#include "analysis/normalization.h"
#include "analysis/similarity.h"

#include <algorithm>

namespace sonavo {
namespace {

std::vector<std::string> countingWordsOf(const std::string &normalizedTitle)
{
    std::vector<std::string> words;
    for (const std::string_view word : wordsOf(normalizedTitle)) {
        if (word.size() >= MATCH_WORD_LENGTH)
            words.emplace_back(word);
    }
    std::sort(words.begin(), words.end());
    words.erase(std::unique(words.begin(), words.end()), words.end());
    return words;
}

bool shareAWord(const std::vector<std::string> &a, const std::vector<std::string> &b)
{
    auto wordOfA = a.begin();
    auto wordOfB = b.begin();
    while (wordOfA != a.end() && wordOfB != b.end()) {
        const int order = wordOfA->compare(*wordOfB);
        if (order == 0)
            return true;
        ++(order < 0 ? wordOfA : wordOfB);
    }
    return false;
}

bool artistsMatch(const ComparableSong &a, const ComparableSong &b)
{
    if (a.normalizedArtist.empty() && b.normalizedArtist.empty())
        return true;
    return calculateSimilarity(a.normalizedArtist, b.normalizedArtist) >= MATCH_ARTIST_SIMILARITY;
}

bool titlesMatch(const ComparableSong &a, const ComparableSong &b)
{
    if (a.normalizedArtistAndTitle.empty() && b.normalizedArtistAndTitle.empty())
        return true;
    return oneContainsTheOther(a.loweredTitle, b.loweredTitle) ||
           oneContainsTheOther(a.loweredName, b.loweredName) ||
           calculateSimilarity(a.normalizedArtistAndTitle, b.normalizedArtistAndTitle) >=
               MATCH_TITLE_SIMILARITY;
}

} // namespace

ComparableSong::ComparableSong(const Song &song)
    : duration(song.duration)
    , loweredTitle(song.title.toLower())
    , loweredName(song.name.toLower())
    , normalizedArtist(normalizeString(song.artist))
    , normalizedTitle(normalizeString(song.title))
    , normalizedArtistAndTitle(normalizeString(song.artist + QStringLiteral(" - ") + song.title))
    , titleWords(countingWordsOf(normalizedTitle))
{}

bool songsMatch(const ComparableSong &seed, const ComparableSong &candidate)
{
    // The conditions are independent of one another, so the cheap ones come first.
    return areDurationsClose(seed.duration, candidate.duration) &&
           shareAWord(seed.titleWords, candidate.titleWords) && artistsMatch(seed, candidate) &&
           titlesMatch(seed, candidate);
}

} // namespace sonavo
