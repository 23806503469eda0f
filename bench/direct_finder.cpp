#include "bench/direct_finder.h"

#include "analysis/clustering.h"
#include "analysis/similarity.h"

#include <algorithm>

namespace sonavo {
namespace {

/// Similar by so much, or both empty.
bool areAlike(const std::string &a, const std::string &b, double threshold)
{
    return (a.empty() && b.empty()) || calculateSimilarity(a, b) >= threshold;
}

bool areTitlesAlike(const ComparableSong &a, const ComparableSong &b)
{
    return oneContainsTheOther(a.loweredTitle, b.loweredTitle) ||
           oneContainsTheOther(a.loweredName, b.loweredName) ||
           areAlike(a.normalizedArtistAndTitle, b.normalizedArtistAndTitle, MATCH_TITLE_SIMILARITY);
}

bool shareAWord(const std::vector<std::string> &a, const std::vector<std::string> &b)
{
    return std::find_first_of(a.begin(), a.end(), b.begin(), b.end()) != a.end();
}

bool isMatch(const ComparableSong &a, const ComparableSong &b)
{
    return areDurationsClose(a.duration, b.duration) && areTitlesAlike(a, b) &&
           areAlike(a.normalizedArtist, b.normalizedArtist, MATCH_ARTIST_SIMILARITY) &&
           shareAWord(a.titleWords, b.titleWords);
}

} // namespace

DirectFinder::DirectFinder(const QList<Song> &songs)
    : DuplicateFinder(songs)
    , m_songs(songs)
{}

void DirectFinder::prepareTexts()
{
    m_texts = std::vector<ComparableSong>(m_songs.begin(), m_songs.end());
}

std::vector<DirectFinder::Positions> DirectFinder::clustersOf(const Positions &bucket)
{
    return clusterPositions(bucket, [this](std::size_t seed, std::size_t candidate) {
        return isMatch(m_texts[seed], m_texts[candidate]);
    });
}

QList<DuplicateGroup> groupsOf(DuplicateFinder &finder)
{
    finder.groupByTitle();
    finder.groupByFileName();
    finder.prepareBatches();
    while (finder.groupNextBatchByArtistAndTitle() == DuplicateFinder::Batches::MoreToCome)
        continue;
    finder.groupByWholeSeconds();
    return finder.takeGroups();
}

} // namespace sonavo
