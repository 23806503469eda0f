#pragma once

#include "analysis/pauses.h"
#include "model/duplicate_group.h"
#include "model/song.h"

#include <QCoroTask>
#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace sonavo {

/// How far an analysis has come.
struct AnalysisProgress
{
    /// Between 0.0 and 1.0; never goes back within a run.
    double fraction = 0.0;
    /// Describes the step that begins now; absent when the previous message still applies.
    std::optional<QString> message;
};

using AnalysisProgressSink = std::function<void(const AnalysisProgress &)>;

/// Groups songs that are the same recording, in four steps of increasing cost: by title, by file name, by
/// artist and title, and by whole seconds of playing time.
///
/// Runs in the caller's thread, which is free only during the pauses, and cannot be cancelled. The
/// same songs in the same order always give the same groups.
/// @param songs distinct ids, finite durations; several songs may have the same path
/// @param reportProgress called in the caller's thread before each step and at the end
/// @return the groups in the order in which they were made; a song is in at most one of them
[[nodiscard]] QCoro::Task<QList<DuplicateGroup>>
analyzeDuplicates(QList<Song> songs, std::shared_ptr<Pauses> pauses, AnalysisProgressSink reportProgress);

} // namespace sonavo
