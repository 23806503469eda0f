#pragma once

#include "analysis/comparable_song.h"
#include "analysis/duplicate_finder.h"

#include <vector>

namespace sonavo {

/// The analysis with the plain clustering: every two songs of a bucket are compared, by the four conditions
/// of a pair in the order in which they are stated. Only the texts of each song are computed beforehand.
class DirectFinder final : public DuplicateFinder
{
public:
    explicit DirectFinder(const QList<Song> &songs);

    /// To be called before the first step.
    void prepareTexts();

protected:
    [[nodiscard]] std::vector<Positions> clustersOf(const Positions &bucket) override;

private:
    const QList<Song> m_songs;
    std::vector<ComparableSong> m_texts;
};

/// Takes a finder through all of its steps.
[[nodiscard]] QList<DuplicateGroup> groupsOf(DuplicateFinder &finder);

} // namespace sonavo
