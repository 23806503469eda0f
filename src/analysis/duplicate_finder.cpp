#include "analysis/duplicate_finder.h"

#include "analysis/clustering.h"
#include "analysis/normalization.h"
#include "analysis/similarity.h"

#include <QHash>

#include <algorithm>
#include <numeric>
#include <unordered_map>

namespace sonavo {
namespace {

/// Puts positions that share a key into one bucket; buckets come in the order of their first member. Buckets
/// of a single song are left out.
template <typename KeyOf>
std::vector<std::vector<std::size_t>> bucketsOf(const std::vector<std::size_t> &positions, KeyOf keyOf)
{
    using Key = decltype(keyOf(std::size_t{}));
    std::unordered_map<Key, std::size_t> bucketNumbers;
    bucketNumbers.reserve(positions.size());
    std::vector<std::vector<std::size_t>> buckets;
    for (const std::size_t position : positions) {
        const auto [entry, isNew] = bucketNumbers.try_emplace(keyOf(position), buckets.size());
        if (isNew)
            buckets.emplace_back();
        buckets[entry->second].push_back(position);
    }
    std::erase_if(buckets, [](const auto &bucket) { return bucket.size() < 2; });
    return buckets;
}

std::vector<std::size_t> allPositions(std::size_t count)
{
    std::vector<std::size_t> positions(count);
    std::iota(positions.begin(), positions.end(), std::size_t{0});
    return positions;
}

} // namespace

DuplicateFinder::DuplicateFinder(QList<Song> songs, QList<Color> colors)
    : m_songs(std::move(songs))
    , m_colors(std::move(colors))
    , m_comparable(m_songs.cbegin(), m_songs.cend())
{
    Q_ASSERT(!m_colors.isEmpty());
    m_pathNumbers.reserve(m_comparable.size());
    QHash<QStringView, std::size_t> numbers;
    numbers.reserve(m_songs.size());
    for (const Song &song : std::as_const(m_songs)) {
        const auto next = static_cast<std::size_t>(numbers.size());
        auto number = numbers.constFind(song.path);
        if (number == numbers.constEnd())
            number = numbers.insert(song.path, next);
        m_pathNumbers.push_back(*number);
    }
    m_isPathPlaced.resize(static_cast<std::size_t>(numbers.size()), false);
}

void DuplicateFinder::groupByTitle()
{
    const auto buckets = bucketsOf(allPositions(m_comparable.size()), [this](std::size_t position) {
        return std::string_view(m_comparable[position].normalizedTitle);
    });
    for (const Positions &bucket : buckets) {
        for (const Positions &cluster : clustersOf(bucket)) {
            if (!makeGroup(cluster, ArtistFilter::On))
                break;
        }
    }
}

void DuplicateFinder::groupByFileName()
{
    auto buckets = bucketsOf(allPositions(m_comparable.size()),
                             [this](std::size_t position) { return normalizeString(songAt(position).name); });
    for (Positions &bucket : buckets) {
        std::erase_if(bucket, [this](std::size_t position) { return isPlaced(position); });
        groupBucket(bucket);
    }
}

void DuplicateFinder::prepareBatches()
{
    m_waitingForBatches = unplacedSongs();
    m_nextBatch = 0;
}

DuplicateFinder::Batches DuplicateFinder::groupNextBatchByArtistAndTitle()
{
    const std::size_t end = std::min(m_nextBatch + BATCH_SIZE, m_waitingForBatches.size());
    const auto at = [this](std::size_t index) {
        return m_waitingForBatches.cbegin() + static_cast<std::ptrdiff_t>(index);
    };
    const Positions batch(at(m_nextBatch), at(end));
    m_nextBatch = end;

    const auto buckets = bucketsOf(batch, [this](std::size_t position) {
        const ComparableSong &song = m_comparable[position];
        return song.normalizedArtist + '_' + song.normalizedTitle;
    });
    for (const Positions &bucket : buckets)
        groupBucket(bucket);
    return m_nextBatch < m_waitingForBatches.size() ? Batches::MoreToCome : Batches::Done;
}

void DuplicateFinder::groupByWholeSeconds()
{
    const auto buckets = bucketsOf(unplacedSongs(), [this](std::size_t position) {
        return wholeSeconds(m_comparable[position].duration);
    });
    for (const Positions &bucket : buckets)
        groupBucket(bucket);
}

QList<DuplicateGroup> DuplicateFinder::takeGroups()
{
    return std::exchange(m_groups, {});
}

const Song &DuplicateFinder::songAt(std::size_t position) const
{
    return m_songs[static_cast<qsizetype>(position)];
}

bool DuplicateFinder::isPlaced(std::size_t position) const
{
    return m_isPathPlaced[m_pathNumbers[position]];
}

DuplicateFinder::Positions DuplicateFinder::unplacedSongs() const
{
    Positions positions = allPositions(m_comparable.size());
    std::erase_if(positions, [this](std::size_t position) { return isPlaced(position); });
    return positions;
}

std::vector<DuplicateFinder::Positions> DuplicateFinder::clustersOf(const Positions &bucket) const
{
    return clusterPositions(bucket, [this](std::size_t seed, std::size_t candidate) {
        return songsMatch(m_comparable[seed], m_comparable[candidate]);
    });
}

void DuplicateFinder::groupBucket(const Positions &bucket)
{
    for (const Positions &cluster : clustersOf(bucket))
        makeGroup(cluster, ArtistFilter::Off);
}

bool DuplicateFinder::makeGroup(const Positions &cluster, ArtistFilter filter)
{
    // The largest file is kept; among equally large ones the first.
    const std::size_t best =
        *std::max_element(cluster.begin(), cluster.end(),
                          [this](std::size_t a, std::size_t b) { return songAt(a).size < songAt(b).size; });
    const Song &original = songAt(best);

    Positions duplicates = cluster;
    std::erase(duplicates, best);
    if (filter == ArtistFilter::On) {
        const WordSet originalArtistWords = artistWordsOf(original);
        std::erase_if(duplicates, [&](std::size_t position) {
            return !artistsCompatible(songAt(position), originalArtistWords, original);
        });
    }
    if (duplicates.empty())
        return false;

    DuplicateGroup group{QUuid::createUuid(), original, {}, m_colors[m_groups.size() % m_colors.size()]};
    m_isPathPlaced[m_pathNumbers[best]] = true;
    for (const std::size_t position : duplicates) {
        group.duplicates.append(songAt(position));
        m_isPathPlaced[m_pathNumbers[position]] = true;
    }
    m_groups.append(std::move(group));
    return true;
}

} // namespace sonavo
