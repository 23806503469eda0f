#pragma once

#include "analysis/candidates.h"
#include "analysis/prepared_songs.h"

#include <cstddef>
#include <functional>
#include <span>
#include <stop_token>
#include <vector>

namespace sonavo {

/// Songs that an analysis compares with one another, ascending.
using Bucket = std::vector<SongIndex>;
/// Songs of one recording: a seed and the songs that match it.
using Cluster = std::vector<SongIndex>;

/// Splits buckets into clusters, one bucket after the other. For one thread at a time; works on all cores
/// where a bucket is large.
class Clustering
{
public:
    /// @param songs must outlive this
    /// @param stop ends the work early
    explicit Clustering(const PreparedSongs &songs, std::stop_token stop = {});

    /// Each song that is in no cluster yet becomes a seed, in order, and gathers every such song that matches
    /// it (see songsMatch()); members are compared with the seed only. A seed that gathers nothing is dropped
    /// and joins no later cluster.
    /// @param bucket each song once
    /// @param isLast called with each cluster in turn; no cluster is looked for after the one for which it
    ///     gives true. Always false if it is empty
    /// @return clusters of at least two songs in the order of their seeds, seed first, the others ascending;
    ///     only some of them when it was stopped
    [[nodiscard]] std::vector<Cluster> clustersOf(const Bucket &bucket,
                                                  const std::function<bool(const Cluster &)> &isLast = {});

private:
    struct Seed
    {
        BucketPosition position = 0;
        std::vector<BucketPosition> matches;
        std::size_t comparisons = 0;
    };

    void start(const Bucket &bucket);
    void dropRemoved();
    void takeSeeds();
    void compareSeeds();
    void compareSeeds(std::span<Seed> seeds, CandidateIndex::Query &query) const;
    [[nodiscard]] std::vector<Cluster> gather();
    [[nodiscard]] Cluster gatherMatches(const Seed &seed);
    void remove(BucketPosition position);

    const PreparedSongs &m_songs;
    const std::stop_token m_stop;
    CandidateIndex m_candidates;
    /// One for each thread.
    std::vector<CandidateIndex::Query> m_queries;
    /// The songs in the index, in the order of the bucket.
    Bucket m_bucket;
    /// The next seed, as an index into the order of the bucket.
    std::size_t m_next = 0;
    std::size_t m_removed = 0;
    /// The seeds of this round, of which the first m_seedCount count; the others are kept for their memory.
    std::vector<Seed> m_seeds;
    std::size_t m_seedCount = 0;
    std::size_t m_mostSeeds = 1;
};

} // namespace sonavo
