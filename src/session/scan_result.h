#pragma once

#include "model/duplicate_group.h"
#include "model/file_note.h"
#include "model/lossless_songs.h"
#include "model/song.h"

#include <QList>
#include <QSet>
#include <QUuid>

#include <optional>

namespace sonavo {

/// How duplicates are looked for.
enum class SearchDepth
{
    /// By the four passes of a scan.
    FourPasses,
    /// By comparing every song with every other (see findFurther()).
    Further
};

/// What a scan has found.
struct ScanResult
{
    /// A number of its own for every scan; 0 without one.
    quint64 id = 0;
    /// In import order.
    QList<Song> songs;
    /// What their files were when they were read: as many, in the same order, or none.
    QList<FileNote> notes;
    LosslessSongs lossless;
    /// In the order in which the analysis made them; empty until it is done.
    QList<DuplicateGroup> groups;
    /// What looking further has found among the same songs; absent until somebody has.
    std::optional<QList<DuplicateGroup>> furtherGroups;
};

/// What is left of a scan's result.
struct SongLists
{
    QList<Song> songs;
    QList<DuplicateGroup> groups;
    /// Of the groups.
    DuplicateTotals totals;
    /// How the groups were found.
    SearchDepth depth = SearchDepth::FourPasses;
    /// Ids of the duplicates that only looking further has found; none after the four passes.
    QSet<QUuid> onlyFurther;
};

} // namespace sonavo
