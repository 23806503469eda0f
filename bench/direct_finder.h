#pragma once

#include "analysis/duplicate_finder.h"

#include <vector>

namespace sonavo {

/// The analysis without an index: songsMatch() is asked for every two songs of a bucket.
class DirectFinder final : public DuplicateFinder
{
public:
    using DuplicateFinder::DuplicateFinder;

protected:
    [[nodiscard]] std::vector<Cluster> clustersOf(const Bucket &bucket) override;
};

/// Takes a finder through all of its steps.
[[nodiscard]] QList<DuplicateGroup> groupsOf(DuplicateFinder &finder);

} // namespace sonavo
