#include "bench/direct_finder.h"

#include "analysis/matching.h"

namespace sonavo {

std::vector<std::vector<Cluster>> DirectFinder::clustersOf(std::span<const Bucket> buckets, ArtistFilter)
{
    std::vector<std::vector<Cluster>> clusters;
    for (const Bucket &bucket : buckets)
        clusters.push_back(clustersOfOne(bucket));
    return clusters;
}

std::vector<Cluster> DirectFinder::clustersOfOne(const Bucket &bucket) const
{
    std::vector<Cluster> clusters;
    std::vector<SongIndex> rest(bucket.begin(), bucket.end());
    while (!rest.empty()) {
        Cluster cluster{rest.front()};
        std::vector<SongIndex> others;
        for (const SongIndex song : std::span(rest).subspan(1))
            (songsMatch(songs(), songs()[cluster.front()], songs()[song]) ? cluster : others).push_back(song);
        if (cluster.size() > 1)
            clusters.push_back(std::move(cluster));
        rest = std::move(others);
    }
    return clusters;
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
