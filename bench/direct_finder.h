#pragma once

#include "analysis/duplicate_finder.h"

#include <span>
#include <vector>

namespace sonavo {

/// The analysis without an index and on one core: songsMatch() is asked for every two songs of a bucket.
class DirectFinder final : public DuplicateFinder
{
public:
    using DuplicateFinder::DuplicateFinder;

protected:
    [[nodiscard]] std::vector<std::vector<Cluster>> clustersOf(std::span<const Bucket> buckets,
                                                               ArtistFilter filter) override;

private:
    [[nodiscard]] std::vector<Cluster> clustersOfOne(const Bucket &bucket) const;
};

/// Takes a finder through all of its steps.
[[nodiscard]] QList<DuplicateGroup> groupsOf(DuplicateFinder &finder);

} // namespace sonavo
