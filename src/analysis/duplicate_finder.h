#pragma once

#include "analysis/bucket_clusterer.h"
#include "analysis/prepared_songs.h"
#include "model/duplicate_group.h"
#include "model/song.h"

#include <QList>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace sonavo {

/// The working state of one analysis and its four steps, to be called in the order of their declaration. Each
/// step puts songs that share a key into a bucket, clusters every bucket (see clusterSongs()) and makes a
/// group of every cluster. Buckets are visited in the order in which their keys first appear.
///
/// A song in a group is placed, and with it every song of the same path: placed songs take no part in later
/// steps.
class DuplicateFinder
{
public:
    /// Step 3 compares at most this many songs at a time.
    static constexpr std::size_t BATCH_SIZE = 5000;
    enum class Batches
    {
        Done,
        MoreToCome
    };

    explicit DuplicateFinder(QList<Song> songs);
    virtual ~DuplicateFinder() = default;
    Q_DISABLE_COPY_MOVE(DuplicateFinder)

    /// Step 1: songs of the same title whose artists are compatible. The first cluster of a bucket that is
    /// left without duplicates ends its bucket.
    void groupByTitle();

    /// Step 2: songs of the same file name.
    void groupByFileName();

    /// Step 3: songs of the same artist and title. The songs that are unplaced when it is prepared are cut
    /// into batches of BATCH_SIZE; songs in different batches are not compared.
    void prepareBatches();
    [[nodiscard]] Batches groupNextBatchByArtistAndTitle();

    /// Step 4: songs of the same playing time in whole seconds.
    void groupByWholeSeconds();

    [[nodiscard]] QList<DuplicateGroup> takeGroups();

protected:
    /// Positions in the list of songs, ascending.
    using Positions = BucketClusterer::Positions;

    /// The clusters of one bucket. Benchmarks put the plain clustering in its place.
    [[nodiscard]] virtual std::vector<Positions> clustersOf(const Positions &bucket);

private:
    enum class ArtistFilter
    {
        Off,
        On
    };

    [[nodiscard]] const Song &songAt(std::size_t position) const;
    [[nodiscard]] bool isPlaced(std::size_t position) const;
    [[nodiscard]] Positions unplacedSongs() const;
    void groupBucket(const Positions &bucket);
    /// @return whether the artist filter left a group to make
    bool makeGroup(const Positions &cluster, ArtistFilter filter);
    void keepCompatible(Positions &duplicates, std::size_t original) const;

    const QList<Song> m_songs;
    const PreparedSongs m_prepared;
    BucketClusterer m_clusterer;
    /// For each song the number of its path, and for each of these numbers whether it is placed.
    std::vector<std::uint32_t> m_pathNumbers;
    std::vector<bool> m_isPathPlaced;
    Positions m_waitingForBatches;
    std::size_t m_nextBatch = 0;
    QList<DuplicateGroup> m_groups;
};

} // namespace sonavo
