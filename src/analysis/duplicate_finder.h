#pragma once

#include "analysis/clustering.h"
#include "analysis/prepared_songs.h"
#include "model/duplicate_group.h"
#include "model/song.h"

#include <QList>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <stop_token>
#include <vector>

namespace sonavo {

/// The working state of one analysis and its four steps, to be called in the order of their declaration. Each
/// step puts songs that share a key into a bucket, clusters every bucket (see clusterSongs()) and makes a
/// group of every cluster. Buckets are visited in the order in which their keys first appear.
///
/// A song in a group is placed, and with it every song of the same path: placed songs take no part in later
/// steps.
///
/// Works on all cores, one step at a time. For one thread at a time, which can be any.
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

    /// @param stop ends the steps early; then there is no result
    explicit DuplicateFinder(QList<Song> songs, std::stop_token stop = {});
    virtual ~DuplicateFinder() = default;
    Q_DISABLE_COPY_MOVE(DuplicateFinder)

    /// Step 1: songs of the same title whose artists are compatible. Once a cluster has no compatible
    /// duplicates, the rest of its bucket is skipped.
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
    [[nodiscard]] const PreparedSongs &songs() const { return m_songs; }

    enum class ArtistFilter
    {
        Off,
        /// Leaves only duplicates whose artist is compatible with the original's.
        On
    };

    /// The clusters of each bucket (see Clustering). With the filter, what comes after a cluster without
    /// duplicates may be missing. Benchmarks put a slower way in its place.
    [[nodiscard]] virtual std::vector<std::vector<Cluster>> clustersOf(std::span<const Bucket> buckets,
                                                                       ArtistFilter filter);

private:
    [[nodiscard]] bool isPlaced(SongIndex song) const { return m_isPathPlaced[m_songs.pathIdOf(song)]; }
    void markPlaced(SongIndex song) { m_isPathPlaced[m_songs.pathIdOf(song)] = true; }
    [[nodiscard]] std::vector<SongIndex> unplacedSongs() const;
    /// By song: songs of one number above 0 have been compared with one another and do not match.
    using ComparedSongs = std::vector<std::uint32_t>;
    static void noteComparedSongs(ComparedSongs &compared, const Bucket &bucket,
                                  std::span<const Cluster> clusters);
    [[nodiscard]] bool isCompared(const Bucket &bucket) const;
    void groupBuckets(std::span<const Bucket> buckets);
    void makeGroups(std::span<const Cluster> clusters);
    [[nodiscard]] SongIndex originalOf(const Cluster &cluster) const;
    [[nodiscard]] Cluster duplicatesOf(const Cluster &cluster, SongIndex original, ArtistFilter filter) const;
    /// @return whether a group was made: the filter can leave a cluster without duplicates
    bool makeGroup(const Cluster &cluster, ArtistFilter filter);

    const std::stop_token m_stop;
    const PreparedSongs m_songs;
    /// One for each thread, made when it is needed.
    std::vector<std::unique_ptr<Clustering>> m_clusterings;
    /// By path id.
    std::vector<bool> m_isPathPlaced;
    /// In the first step, and in the second.
    ComparedSongs m_comparedByTitle;
    ComparedSongs m_comparedByName;
    std::vector<SongIndex> m_waitingForBatches;
    std::size_t m_nextBatch = 0;
    QList<DuplicateGroup> m_groups;
};

} // namespace sonavo
