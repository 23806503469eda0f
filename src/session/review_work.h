#pragma once

#include "session/clean_up_work.h"
#include "session/file_job.h"
#include "session/undo_history.h"

#include <QList>
#include <QSet>
#include <QUuid>

#include <optional>

namespace sonavo {

// What the jobs of Review do. They touch no files, but pass over all songs. They run in the thread of the
// jobs.

/// The parts into which reviewed() divides looking further.
inline constexpr qint64 FURTHER_PARTS = 1000;

struct Reviewed : WorkResult
{
    /// Whether the step has changed anything. Otherwise it is not taken.
    bool isTaken = false;
    /// Duplicates that only looking further has found, originals that are others than before, or songs that
    /// leave the list.
    qint64 count = 0;
    /// What looking further has found, when that was not known yet.
    std::optional<QList<DuplicateGroup>> furtherGroups;
    /// Those of the basis, with those of the songs that were found.
    FileNotes notes;
};

/// Takes a step that moves no files, and looks further first where it needs that.
/// @return nothing if it was stopped
[[nodiscard]] std::optional<Reviewed> reviewed(const WorkBasis &basis, const UndoStep &step,
                                               const FileJob::Control &control);

} // namespace sonavo
