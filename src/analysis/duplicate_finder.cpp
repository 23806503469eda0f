#include "analysis/duplicate_finder.h"

#include "analysis/id_table.h"
#include "analysis/matching.h"
#include "analysis/parallel.h"

#include <QHashFunctions>

#include <algorithm>
#include <numeric>

namespace sonavo {
namespace {

/// Puts songs that share a key into one bucket. Buckets of a single song are left out.
/// @param idOf gives an integer below `idCount` for each position in `songs`, equal for songs of one key; the
/// buckets come in the order of these ids
template <typename IdOf>
std::vector<Bucket> bucketsById(std::span<const SongIndex> songs, std::size_t idCount, IdOf idOf)
{
    std::vector<std::uint32_t> sizes(idCount);
    for (std::size_t i = 0; i < songs.size(); ++i)
        ++sizes[idOf(i)];

    // Most keys are those of a single song and need no bucket.
    constexpr std::uint32_t NONE = UINT32_MAX;
    std::vector<Bucket> buckets;
    std::vector<std::uint32_t> bucketOfId(idCount, NONE);
    for (std::size_t id = 0; id < idCount; ++id) {
        if (sizes[id] < 2)
            continue;
        bucketOfId[id] = static_cast<std::uint32_t>(buckets.size());
        buckets.emplace_back().reserve(sizes[id]);
    }
    for (std::size_t i = 0; i < songs.size(); ++i) {
        if (const std::uint32_t bucket = bucketOfId[idOf(i)]; bucket != NONE)
            buckets[bucket].push_back(songs[i]);
    }
    return buckets;
}

/// The same for keys of any size; buckets come in the order of their first song.
/// @param keyOf gives an integer for each song
template <typename KeyOf>
std::vector<Bucket> bucketsByKey(std::span<const SongIndex> songs, KeyOf keyOf)
{
    std::vector<std::uint32_t> ids(songs.size());
    std::transform(songs.begin(), songs.end(), ids.begin(), [&](SongIndex song) {
        return static_cast<std::uint32_t>(::qHash(static_cast<quint64>(keyOf(song))));
    });
    const std::size_t idCount = replaceByIds(
        ids, [&](std::uint32_t a, std::uint32_t b) { return keyOf(songs[a]) == keyOf(songs[b]); });
    return bucketsById(songs, idCount, [&](std::size_t i) { return ids[i]; });
}

std::vector<SongIndex> allOf(const PreparedSongs &songs)
{
    std::vector<SongIndex> all(songs.size());
    std::iota(all.begin(), all.end(), SongIndex{0});
    return all;
}

} // namespace

DuplicateFinder::DuplicateFinder(QList<Song> songs, std::stop_token stop)
    : m_stop(std::move(stop))
    , m_songs(std::move(songs), m_stop)
    , m_clusterings(computingThreads())
    , m_isPathPlaced(m_songs.size(), false)
    , m_comparedByTitle(m_songs.size(), 0)
    , m_comparedByName(m_songs.size(), 0)
{}

void DuplicateFinder::groupByTitle()
{
    if (m_stop.stop_requested())
        return;
    const auto buckets = bucketsById(allOf(m_songs), m_songs.size(), [this](std::size_t song) {
        return m_songs[static_cast<SongIndex>(song)].titleId;
    });
    const auto clusters = clustersOf(buckets, ArtistFilter::On);
    for (std::size_t i = 0; i < buckets.size(); ++i) {
        const bool isComplete =
            std::all_of(clusters[i].begin(), clusters[i].end(),
                        [&](const Cluster &cluster) { return makeGroup(cluster, ArtistFilter::On); });
        if (isComplete)
            noteComparedSongs(m_comparedByTitle, buckets[i], clusters[i]);
    }
}

void DuplicateFinder::groupByFileName()
{
    if (m_stop.stop_requested())
        return;
    auto buckets = bucketsById(allOf(m_songs), m_songs.size(), [this](std::size_t song) {
        return m_songs.nameIdOf(static_cast<SongIndex>(song));
    });
    const auto erasePlaced = [this](Bucket &bucket) {
        return std::erase_if(bucket, [this](SongIndex song) { return isPlaced(song); });
    };
    std::erase_if(buckets, [&](Bucket &bucket) {
        erasePlaced(bucket);
        return isCompared(bucket);
    });
    const auto clusters = clustersOf(buckets, ArtistFilter::Off);
    for (std::size_t i = 0; i < buckets.size(); ++i) {
        // Songs of one path can have several names: then an earlier bucket places songs of a later one.
        if (erasePlaced(buckets[i]) > 0) {
            groupBuckets(std::span(buckets).subspan(i, 1));
            continue;
        }
        makeGroups(clusters[i]);
        noteComparedSongs(m_comparedByName, buckets[i], clusters[i]);
    }
}

void DuplicateFinder::prepareBatches()
{
    m_waitingForBatches = m_stop.stop_requested() ? std::vector<SongIndex>() : unplacedSongs();
    m_nextBatch = 0;
}

DuplicateFinder::Batches DuplicateFinder::groupNextBatchByArtistAndTitle()
{
    if (m_stop.stop_requested())
        return Batches::Done;
    const std::size_t end = std::min(m_nextBatch + BATCH_SIZE, m_waitingForBatches.size());
    const auto at = [this](std::size_t index) {
        return m_waitingForBatches.cbegin() + static_cast<std::ptrdiff_t>(index);
    };
    const std::vector<SongIndex> batch(at(m_nextBatch), at(end));
    m_nextBatch = end;

    auto buckets = bucketsByKey(batch, [this](SongIndex song) {
        return quint64{m_songs[song].artistId} << 32 | m_songs[song].titleId;
    });
    std::erase_if(buckets, [this](const Bucket &bucket) { return isCompared(bucket); });
    groupBuckets(buckets);
    return m_nextBatch < m_waitingForBatches.size() ? Batches::MoreToCome : Batches::Done;
}

void DuplicateFinder::groupByWholeSeconds()
{
    if (m_stop.stop_requested())
        return;
    auto buckets = bucketsByKey(unplacedSongs(),
                                [this](SongIndex song) { return wholeSeconds(m_songs[song].duration); });
    std::erase_if(buckets, [this](const Bucket &bucket) { return isCompared(bucket); });
    groupBuckets(buckets);
}

QList<DuplicateGroup> DuplicateFinder::takeGroups()
{
    return std::exchange(m_groups, {});
}

std::vector<std::vector<Cluster>> DuplicateFinder::clustersOf(std::span<const Bucket> buckets,
                                                              ArtistFilter filter)
{
    // Most buckets are small.
    constexpr std::size_t BUCKETS_AT_A_TIME = 16;
    std::vector<std::vector<Cluster>> clusters(buckets.size());
    const auto clusteringOf = [this](std::size_t thread) {
        if (!m_clusterings[thread])
            m_clusterings[thread] = std::make_unique<Clustering>(m_songs, m_stop);
        return m_clusterings[thread].get();
    };
    // What follows such a cluster can be most of a large bucket.
    const auto hasNoDuplicates = [this, filter](const Cluster &cluster) {
        return filter == ArtistFilter::On && duplicatesOf(cluster, originalOf(cluster), filter).empty();
    };
    forEachInParallel(buckets.size(), BUCKETS_AT_A_TIME, m_stop, clusteringOf,
                      [&](Clustering *clustering, std::size_t i) {
                          clusters[i] = clustering->clustersOf(buckets[i], hasNoDuplicates);
                      });
    return clusters;
}

std::vector<SongIndex> DuplicateFinder::unplacedSongs() const
{
    std::vector<SongIndex> unplaced = allOf(m_songs);
    std::erase_if(unplaced, [this](SongIndex song) { return isPlaced(song); });
    return unplaced;
}

void DuplicateFinder::noteComparedSongs(ComparedSongs &compared, const Bucket &bucket,
                                        std::span<const Cluster> clusters)
{
    // Members of a cluster were compared with its seed only.
    for (const SongIndex song : bucket)
        compared[song] = bucket.front() + 1;
    for (const Cluster &cluster : clusters) {
        for (const SongIndex song : cluster)
            compared[song] = 0;
    }
}

bool DuplicateFinder::isCompared(const Bucket &bucket) const
{
    const auto isOneSet = [&bucket](const ComparedSongs &compared) {
        const std::uint32_t number = bucket.empty() ? 0 : compared[bucket.front()];
        return number != 0 && std::all_of(bucket.begin(), bucket.end(),
                                          [&](SongIndex song) { return compared[song] == number; });
    };
    return isOneSet(m_comparedByTitle) || isOneSet(m_comparedByName);
}

void DuplicateFinder::groupBuckets(std::span<const Bucket> buckets)
{
    for (const std::vector<Cluster> &clusters : clustersOf(buckets, ArtistFilter::Off))
        makeGroups(clusters);
}

void DuplicateFinder::makeGroups(std::span<const Cluster> clusters)
{
    for (const Cluster &cluster : clusters)
        makeGroup(cluster, ArtistFilter::Off);
}

SongIndex DuplicateFinder::originalOf(const Cluster &cluster) const
{
    // The largest file is kept; among equally large ones the first.
    const auto isSmaller = [this](SongIndex a, SongIndex b) {
        return m_songs.song(a).size < m_songs.song(b).size;
    };
    return *std::max_element(cluster.begin(), cluster.end(), isSmaller);
}

Cluster DuplicateFinder::duplicatesOf(const Cluster &cluster, SongIndex original, ArtistFilter filter) const
{
    Cluster duplicates = cluster;
    std::erase_if(duplicates, [&](SongIndex song) {
        return song == original ||
               (filter == ArtistFilter::On && !artistsCompatible(m_songs, m_songs[song], m_songs[original]));
    });
    return duplicates;
}

bool DuplicateFinder::makeGroup(const Cluster &cluster, ArtistFilter filter)
{
    const SongIndex original = originalOf(cluster);
    const Cluster duplicates = duplicatesOf(cluster, original, filter);
    if (duplicates.empty())
        return false;

    DuplicateGroup group{QUuid::createUuid(),
                         m_songs.song(original),
                         {},
                         static_cast<int>(m_groups.size() % GROUP_TINT_COUNT)};
    markPlaced(original);
    for (const SongIndex song : duplicates) {
        group.duplicates.append(m_songs.song(song));
        markPlaced(song);
    }
    m_groups.append(std::move(group));
    return true;
}

} // namespace sonavo
