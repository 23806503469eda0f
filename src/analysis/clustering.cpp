#include "analysis/clustering.h"

#include "analysis/matching.h"

#include <algorithm>

namespace sonavo {

std::vector<Cluster> clusterSongs(const PreparedSongs &songs, const Bucket &bucket,
                                  CandidateIndex &candidates)
{
    std::vector<Cluster> clusters;
    candidates.build(bucket);
    for (BucketPosition seed = 0; seed < candidates.size(); ++seed) {
        if (candidates.isRemoved(seed))
            continue;
        candidates.remove(seed);
        Cluster cluster;
        for (const BucketPosition candidate : candidates.candidatesFor(seed)) {
            if (songsMatch(songs, candidates[seed], candidates[candidate])) {
                candidates.remove(candidate);
                cluster.push_back(bucket[candidate]);
            }
        }
        if (cluster.empty())
            continue;
        std::sort(cluster.begin(), cluster.end());
        cluster.insert(cluster.begin(), bucket[seed]);
        clusters.push_back(std::move(cluster));
    }
    return clusters;
}

} // namespace sonavo
