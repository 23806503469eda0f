#include "analysis/clustering.h"

#include "analysis/comparable_song.h"

#include <numeric>

namespace sonavo {

QList<QList<Song>> clusterSongs(const QList<Song> &songs)
{
    const std::vector<ComparableSong> comparable(songs.begin(), songs.end());
    std::vector<std::size_t> positions(comparable.size());
    std::iota(positions.begin(), positions.end(), std::size_t{0});

    QList<QList<Song>> result;
    const auto clusters = clusterPositions(positions, [&comparable](std::size_t seed, std::size_t candidate) {
        return songsMatch(comparable[seed], comparable[candidate]);
    });
    for (const std::vector<std::size_t> &cluster : clusters) {
        QList<Song> members;
        for (const std::size_t position : cluster)
            members.append(songs[static_cast<qsizetype>(position)]);
        result.append(members);
    }
    return result;
}

} // namespace sonavo
