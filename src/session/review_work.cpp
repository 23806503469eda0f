#include "session/review_work.h"

#include "analysis/find_further.h"

#include <QHash>

#include <utility>

namespace sonavo {
namespace {

/// Adds what the files of members were when they were read. What is known already can be newer.
void addNotes(FileNotes &notes, const QList<DuplicateGroup> &groups, const ScanResult &scan)
{
    QSet<QUuid> missing;
    for (const DuplicateGroup &group : groups) {
        for (const Song &song : membersOf(group)) {
            if (!notes.contains(song.id))
                missing.insert(song.id);
        }
    }
    for (qsizetype i = 0; i < scan.notes.size(); ++i) {
        if (missing.contains(scan.songs[i].id))
            notes.insert(scan.songs[i].id, scan.notes[i]);
    }
}

qint64 changedOriginals(const QList<DuplicateGroup> &before, const QList<DuplicateGroup> &after)
{
    QHash<QUuid, QUuid> originals;
    for (const DuplicateGroup &group : before)
        originals.insert(group.id, group.original.id);
    qint64 count = 0;
    for (const DuplicateGroup &group : after)
        count += originals.value(group.id) != group.original.id ? 1 : 0;
    return count;
}

} // namespace

std::optional<Reviewed> reviewed(const WorkBasis &basis, const UndoStep &step,
                                 const FileJob::Control &control)
{
    Reviewed result;
    result.history = basis.history;
    result.notes = basis.notes;
    ScanResult scan = basis.scan;
    if (step.depth == SearchDepth::Further && !scan.furtherGroups) {
        const auto reportProgress = [&control](double fraction) {
            control.reportProgress(static_cast<qint64>(fraction * static_cast<double>(FURTHER_PARTS)));
        };
        scan.furtherGroups = findFurther(scan.songs, control.stop, reportProgress);
        if (!scan.furtherGroups)
            return std::nullopt;
        result.furtherGroups = scan.furtherGroups;
        addNotes(result.notes, *scan.furtherGroups, scan);
    }

    result.history.add(step);
    result.makeLists(scan);
    if (step.depth == SearchDepth::Further)
        result.count = result.lists.onlyFurther.size();
    else if (step.kept)
        result.count = changedOriginals(basis.groups, result.lists.groups);
    else
        result.count = songsWithRow(basis.groups).size() - result.withRow.size();
    result.isTaken = result.count > 0 || step.depth == SearchDepth::FourPasses;
    return result;
}

} // namespace sonavo
