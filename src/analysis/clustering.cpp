#include "analysis/clustering.h"

#include "analysis/matching.h"
#include "analysis/parallel.h"

#include <algorithm>
#include <array>
#include <utility>

namespace sonavo {
namespace {

/// Smaller buckets are done before another thread would have woken up.
constexpr std::size_t LARGE_BUCKET = 512;
/// Comparisons after which the threads of a round may meet.
constexpr std::size_t ENOUGH_COMPARISONS = 100'000;
constexpr std::size_t MOST_SEEDS = 256;
/// Of those, the ones that a thread compares together.
constexpr std::size_t SEEDS_AT_A_TIME = 64;

} // namespace

// Seeds are compared with the bucket side by side, a round of them at a time, and then gather their songs in
// turn: a song that two of them match goes to the first, and a seed that another has gathered is dropped.
// That gives the same clusters as one seed after the other.

Clustering::Clustering(const PreparedSongs &songs, std::stop_token stop)
    : m_songs(songs)
    , m_stop(std::move(stop))
    , m_candidates(songs)
    , m_queries(computingThreads())
{}

std::vector<Cluster> Clustering::clustersOf(const Bucket &bucket,
                                            const std::function<bool(const Cluster &)> &isLast)
{
    std::vector<Cluster> clusters;
    start(bucket);
    m_mostSeeds = 1;
    while (m_next < m_bucket.size() && !m_stop.stop_requested()) {
        takeSeeds();
        compareSeeds();
        for (Cluster &cluster : gather()) {
            clusters.push_back(std::move(cluster));
            if (isLast && isLast(clusters.back()))
                return clusters;
        }
        if (m_removed > m_bucket.size() / 2)
            dropRemoved();
    }
    return clusters;
}

void Clustering::start(const Bucket &bucket)
{
    m_bucket = bucket;
    m_candidates.build(m_bucket);
    m_next = 0;
    m_removed = 0;
}

void Clustering::dropRemoved()
{
    constexpr std::size_t WORTH_INDEXING_AGAIN = 64;
    if (m_bucket.size() < WORTH_INDEXING_AGAIN)
        return;
    Bucket left;
    for (std::size_t i = m_next; i < m_bucket.size(); ++i) {
        if (!m_candidates.isRemoved(m_candidates.order()[i]))
            left.push_back(m_bucket[i]);
    }
    start(left);
}

void Clustering::takeSeeds()
{
    m_seeds.resize(std::max(m_seeds.size(), m_mostSeeds));
    m_seedCount = 0;
    for (; m_next < m_bucket.size() && m_seedCount < m_mostSeeds; ++m_next) {
        const BucketPosition position = m_candidates.order()[m_next];
        if (!m_candidates.isRemoved(position))
            m_seeds[m_seedCount++].position = position;
    }
}

void Clustering::compareSeeds()
{
    const std::size_t partSize =
        std::clamp<std::size_t>(m_seedCount / (2 * m_queries.size()), 1, SEEDS_AT_A_TIME);
    const auto queryOf = [this](std::size_t thread) { return &m_queries[thread]; };
    forEachInParallel((m_seedCount + partSize - 1) / partSize, 1, {}, queryOf,
                      [&](CandidateIndex::Query *query, std::size_t part) {
                          const std::span seeds = std::span(m_seeds).first(m_seedCount);
                          const std::size_t begin = part * partSize;
                          compareSeeds(seeds.subspan(begin, std::min(partSize, seeds.size() - begin)),
                                       *query);
                      });
}

void Clustering::compareSeeds(std::span<Seed> seeds, CandidateIndex::Query &query) const
{
    std::array<BucketPosition, SEEDS_AT_A_TIME> positions;
    std::transform(seeds.begin(), seeds.end(), positions.begin(),
                   [](const Seed &seed) { return seed.position; });
    m_candidates.findCandidates(std::span(positions).first(seeds.size()), query);
    for (std::size_t i = 0; i < seeds.size(); ++i) {
        Seed &seed = seeds[i];
        const auto candidates = query.candidatesOf(i);
        seed.comparisons = candidates.size();
        seed.matches.clear();
        for (const BucketPosition candidate : candidates) {
            if (songsMatch(m_songs, m_candidates[seed.position], m_candidates[candidate]))
                seed.matches.push_back(candidate);
        }
    }
}

std::vector<Cluster> Clustering::gather()
{
    std::vector<Cluster> clusters;
    std::size_t comparisons = 0;
    std::size_t gathered = 0;
    for (const Seed &seed : std::span(m_seeds).first(m_seedCount)) {
        comparisons += seed.comparisons;
        if (m_candidates.isRemoved(seed.position)) {
            ++gathered;
            continue;
        }
        if (Cluster cluster = gatherMatches(seed); cluster.size() > 1)
            clusters.push_back(std::move(cluster));
    }
    // Seeds that others gather were compared in vain.
    if (gathered * 8 > m_seedCount)
        m_mostSeeds = std::max<std::size_t>(m_mostSeeds / 2, 1);
    else if (m_bucket.size() >= LARGE_BUCKET && comparisons < ENOUGH_COMPARISONS)
        m_mostSeeds = std::min(m_mostSeeds * 2, MOST_SEEDS);
    return clusters;
}

Cluster Clustering::gatherMatches(const Seed &seed)
{
    remove(seed.position);
    Cluster cluster{m_candidates[seed.position].index};
    for (const BucketPosition match : seed.matches) {
        if (m_candidates.isRemoved(match))
            continue;
        remove(match);
        cluster.push_back(m_candidates[match].index);
    }
    std::sort(cluster.begin() + 1, cluster.end());
    return cluster;
}

void Clustering::remove(BucketPosition position)
{
    m_candidates.remove(position);
    ++m_removed;
}

} // namespace sonavo
