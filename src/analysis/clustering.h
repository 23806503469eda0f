#pragma once

#include "model/song.h"

#include <QList>

#include <cstddef>
#include <vector>

namespace sonavo {

/// Splits songs into clusters of the same recording. Each song that is not yet placed becomes a seed, in
/// list order, and gathers every unplaced song of the list that songsMatch() it; members are compared with
/// the seed only. A seed that gathers nothing is dropped and joins no later cluster.
/// @param songs songs with distinct ids
/// @return clusters of at least two songs in the order of their seeds, seed first
[[nodiscard]] QList<QList<Song>> clusterSongs(const QList<Song> &songs);

/// The same clustering over positions, for any symmetric test.
/// @param positions what to cluster, each once
/// @param matches tells whether two of the positions belong together
template <typename Match>
[[nodiscard]] std::vector<std::vector<std::size_t>>
clusterPositions(const std::vector<std::size_t> &positions, Match matches)
{
    std::vector<std::vector<std::size_t>> clusters;
    std::vector<bool> isPlaced(positions.size(), false);
    for (std::size_t seed = 0; seed < positions.size(); ++seed) {
        if (isPlaced[seed])
            continue;
        std::vector<std::size_t> cluster{positions[seed]};
        // Every song before the seed is placed by now, as a member or as a seed of its own.
        for (std::size_t other = seed + 1; other < positions.size(); ++other) {
            if (!isPlaced[other] && matches(positions[seed], positions[other])) {
                isPlaced[other] = true;
                cluster.push_back(positions[other]);
            }
        }
        if (cluster.size() > 1)
            clusters.push_back(std::move(cluster));
    }
    return clusters;
}

} // namespace sonavo
