#pragma once

#include "analysis/candidates.h"
#include "analysis/prepared_songs.h"

#include <vector>

namespace sonavo {

/// Songs that an analysis compares with one another, ascending.
using Bucket = std::vector<SongIndex>;
/// Songs of one recording: a seed and the songs that match it.
using Cluster = std::vector<SongIndex>;

/// Splits a bucket into clusters. Each song that is in no cluster yet becomes a seed, in order, and gathers
/// every such song that matches it (see songsMatch()); members are compared with the seed only. A seed that
/// gathers nothing is dropped and joins no later cluster.
/// @param bucket each song once
/// @param candidates an index of `songs`; what it holds is replaced
/// @return clusters of at least two songs in the order of their seeds, seed first, the others ascending
[[nodiscard]] std::vector<Cluster> clusterSongs(const PreparedSongs &songs, const Bucket &bucket,
                                                CandidateIndex &candidates);

} // namespace sonavo
