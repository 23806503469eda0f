#pragma once

#include "actions/clean_up.h"
#include "actions/duplicates_folder.h"
#include "model/duplicate_group.h"

#include <QList>
#include <QString>

#include <memory>

namespace sonavo {

/// Where a clean-up moves files to.
enum class CleanUpTarget
{
    Trash,
    Folder,
};

/// What a clean-up of all duplicates has done.
struct CleanUpSummary
{
    CleanUpTarget target = CleanUpTarget::Trash;
    qint64 moved = 0;
    /// Bytes.
    qint64 saved = 0;
    qint64 notReached = 0;
    /// What the folder could not store; empty when nothing was lost.
    QString losses = {};
    QList<SongFailure> failures = {};
    /// The groups of the failures, with these alone as duplicates.
    QList<DuplicateGroup> failedGroups = {};
    /// The folder that the files were moved into; null for the Trash.
    std::shared_ptr<DuplicatesFolder> folder = {};
};

} // namespace sonavo
