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
#include <stop_token>

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

/// Does work in another thread, and suspends the caller until it is done; the caller resumes in the thread
/// that it was suspended in. Never fails.
using BackgroundThread = std::function<QCoro::Task<>(std::function<void()> work)>;

/// Groups songs that are the same recording, in four steps of increasing cost: by title, by file name, by
/// artist and title, and by whole seconds of playing time.
///
/// Everything that takes long is done in the background thread, and with the help of all cores. The same
/// songs in the same order always give the same groups.
/// @param songs distinct ids, finite durations; several songs may have the same path
/// @param background one piece of work at a time
/// @param stop ends the work early; pauses and reports go on
/// @param reportProgress called in the caller's thread before each step and at the end
/// @return the groups in the order in which they were made; a song is in at most one of them. When it was
///     stopped, no more than some of them
[[nodiscard]] QCoro::Task<QList<DuplicateGroup>>
analyzeDuplicates(QList<Song> songs, std::shared_ptr<Pauses> pauses, BackgroundThread background,
                  std::stop_token stop, AnalysisProgressSink reportProgress);

} // namespace sonavo
