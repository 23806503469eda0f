#pragma once

#include "model/duplicate_group.h"
#include "session/clean_up_summary.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <chrono>

namespace sonavo {

// All are in the user's language, with numbers as the locale writes them.

/// What looking further has added: "14 more duplicates found" or "No more duplicates found".
[[nodiscard]] QString moreFoundText(qint64 duplicates);

/// What a clean-up would do: "Move 344 duplicates (1.2 GB) to the Trash" or "No duplicates to move".
[[nodiscard]] QString descriptionOf(const DuplicateTotals &duplicates, CleanUpTarget target);

/// "No duplicates to move"
[[nodiscard]] QString noDuplicatesText();

/// The toast after a clean-up: "Moved 12 files to Trash \u2022 Saved 84.3 MB".
[[nodiscard]] QString toastText(const CleanUpSummary &summary);
/// "30 files moved to the Trash \u2022 1.2 GB"
[[nodiscard]] QString headlineOf(const CleanUpSummary &summary);
/// "150 songs remain"
[[nodiscard]] QString remainingText(qint64 songs);

/// What the moved songs have lost on their new disk; empty when nothing was lost.
/// @param attributes names of extended attributes
[[nodiscard]] QString lossesText(const QStringList &attributes, qint64 songs);

/// The toast after an undo: "30 files put back".
/// @param notReached files that stay because the undo was stopped
[[nodiscard]] QString undoToastText(qint64 restored, qint64 failed, qint64 notReached);
/// Names the songs that were not put back, up to ten of them, and the reasons.
[[nodiscard]] QString undoAlertText(const QList<SongFailure> &failures);

/// How long a job will still take at its speed so far, as "About 2 minutes left".
/// @return empty in the first two seconds, and for a job that takes no more than five
[[nodiscard]] QString timeLeftText(std::chrono::milliseconds elapsed, qint64 done, qint64 total);

} // namespace sonavo
