#include "analysis/duplicate_finder.h"

#include "analysis/number_table.h"
#include "analysis/similarity.h"

#include <QHashFunctions>

#include <algorithm>
#include <numeric>

namespace sonavo {
namespace {

/// Puts positions that share a key into one bucket; buckets come in the order of their first member. Buckets
/// of a single song are left out.
/// @param keyOf gives an integer for each position
template <typename KeyOf>
std::vector<std::vector<std::size_t>> bucketsOf(const std::vector<std::size_t> &positions, KeyOf keyOf)
{
    NumberTable keyNumbers;
    std::vector<std::size_t> firstPositions;
    std::vector<std::uint32_t> bucketNumbers;
    std::vector<std::uint32_t> sizes;
    bucketNumbers.reserve(positions.size());
    for (const std::size_t position : positions) {
        const auto key = static_cast<quint64>(keyOf(position));
        const std::uint32_t number = keyNumbers.numberOf(::qHash(key), [&](std::uint32_t other) {
            return static_cast<quint64>(keyOf(firstPositions[other])) == key;
        });
        if (number == firstPositions.size()) {
            firstPositions.push_back(position);
            sizes.push_back(0);
        }
        ++sizes[number];
        bucketNumbers.push_back(number);
    }

    // Most keys are those of a single song and need no bucket.
    std::vector<std::vector<std::size_t>> buckets;
    std::vector<std::size_t> places(sizes.size());
    for (std::size_t number = 0; number < sizes.size(); ++number) {
        if (sizes[number] < 2)
            continue;
        places[number] = buckets.size();
        buckets.emplace_back().reserve(sizes[number]);
    }
    for (std::size_t i = 0; i < positions.size(); ++i) {
        if (sizes[bucketNumbers[i]] >= 2)
            buckets[places[bucketNumbers[i]]].push_back(positions[i]);
    }
    return buckets;
}

/// Gives each song the number of its path.
std::vector<std::uint32_t> pathNumbersOf(const QList<Song> &songs)
{
    NumberTable table;
    QList<QStringView> paths;
    std::vector<std::uint32_t> numbers;
    paths.reserve(songs.size());
    numbers.reserve(static_cast<std::size_t>(songs.size()));
    for (const Song &song : songs) {
        const QStringView path = song.path;
        const std::uint32_t number =
            table.numberOf(::qHash(path), [&](std::uint32_t other) { return paths[other] == path; });
        if (number == paths.size())
            paths.append(path);
        numbers.push_back(number);
    }
    return numbers;
}

std::vector<std::size_t> allPositions(std::size_t count)
{
    std::vector<std::size_t> positions(count);
    std::iota(positions.begin(), positions.end(), std::size_t{0});
    return positions;
}

} // namespace

DuplicateFinder::DuplicateFinder(QList<Song> songs)
    : m_songs(std::move(songs))
    , m_prepared(m_songs)
    , m_clusterer(m_songs, m_prepared)
    , m_pathNumbers(pathNumbersOf(m_songs))
    , m_isPathPlaced(m_prepared.size(), false)
{}

void DuplicateFinder::groupByTitle()
{
    const auto buckets = bucketsOf(allPositions(m_prepared.size()),
                                   [this](std::size_t position) { return m_prepared[position].titleNumber; });
    for (const Positions &bucket : buckets) {
        for (const Positions &cluster : clustersOf(bucket)) {
            if (!makeGroup(cluster, ArtistFilter::On))
                break;
        }
    }
}

void DuplicateFinder::groupByFileName()
{
    auto buckets = bucketsOf(allPositions(m_prepared.size()),
                             [this](std::size_t position) { return m_prepared[position].nameNumber; });
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
        const PreparedSong &song = m_prepared[position];
        return quint64{song.artistNumber} << 32 | song.titleNumber;
    });
    for (const Positions &bucket : buckets)
        groupBucket(bucket);
    return m_nextBatch < m_waitingForBatches.size() ? Batches::MoreToCome : Batches::Done;
}

void DuplicateFinder::groupByWholeSeconds()
{
    const auto buckets = bucketsOf(unplacedSongs(), [this](std::size_t position) {
        return wholeSeconds(m_prepared[position].duration);
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
    Positions positions = allPositions(m_prepared.size());
    std::erase_if(positions, [this](std::size_t position) { return isPlaced(position); });
    return positions;
}

std::vector<DuplicateFinder::Positions> DuplicateFinder::clustersOf(const Positions &bucket)
{
    return m_clusterer.clustersOf(bucket);
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
    if (filter == ArtistFilter::On)
        keepCompatible(duplicates, best);
    if (duplicates.empty())
        return false;

    DuplicateGroup group{
        QUuid::createUuid(), original, {}, static_cast<int>(m_groups.size() % GROUP_TINT_COUNT)};
    m_isPathPlaced[m_pathNumbers[best]] = true;
    for (const std::size_t position : duplicates) {
        group.duplicates.append(songAt(position));
        m_isPathPlaced[m_pathNumbers[position]] = true;
    }
    m_groups.append(std::move(group));
    return true;
}

void DuplicateFinder::keepCompatible(Positions &duplicates, std::size_t original) const
{
    const std::uint32_t originalArtist = m_prepared[original].artistNumber;
    const bool hasArtistWords = !m_prepared.artist(m_prepared[original]).empty();
    const auto isOfSameArtist = [&](std::size_t position) {
        return hasArtistWords && m_prepared[position].artistNumber == originalArtist;
    };
    if (std::all_of(duplicates.begin(), duplicates.end(), isOfSameArtist))
        return;
    const WordSet originalArtistWords = artistWordsOf(songAt(original));
    std::erase_if(duplicates, [&](std::size_t position) {
        return !isOfSameArtist(position) &&
               !artistsCompatible(songAt(position), originalArtistWords, songAt(original));
    });
}

} // namespace sonavo
