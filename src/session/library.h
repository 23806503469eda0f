#pragma once

#include "model/duplicate_group.h"
#include "model/file_note.h"
#include "model/lossless_songs.h"
#include "model/song.h"
#include "session/scan_result.h"
#include "session/undo_history.h"

#include <QList>
#include <QObject>

namespace sonavo {

/// The songs of the session, the duplicates among them, and the steps that have changed them. No operation
/// takes longer for longer lists, except setDuplicateGroups(), which counts. Main thread only.
class Library : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// What is shown.
    [[nodiscard]] const SongLists &lists() const { return m_lists; }
    /// In import order.
    [[nodiscard]] const QList<Song> &songs() const { return m_lists.songs; }
    /// In the order in which the analysis made them.
    [[nodiscard]] const QList<DuplicateGroup> &duplicateGroups() const { return m_lists.groups; }
    [[nodiscard]] const DuplicateTotals &duplicateTotals() const { return m_lists.totals; }
    /// All that the scan has found, with what was removed since.
    [[nodiscard]] const ScanResult &scanResult() const { return m_scanResult; }
    /// The steps that can be undone; some can be of earlier scans.
    [[nodiscard]] const UndoHistory &history() const { return m_history; }

    /// What the files of the songs in the groups were when they were read, for clean-ups.
    [[nodiscard]] const FileNotes &notes() const { return m_notes; }

    /// The songs that a new scan has read. The groups stay until it has found its own.
    /// @param notes what their files were: as many, or none
    void setSongs(const QList<Song> &songs, const QList<FileNote> &notes = {},
                  const LosslessSongs &lossless = {});
    /// The groups that this scan has found.
    void setDuplicateGroups(const QList<DuplicateGroup> &groups);
    /// What looking further has found among the songs of this scan. Not announced: it is not shown yet.
    void setFurtherGroups(const QList<DuplicateGroup> &groups);
    /// What is left of them.
    void show(const SongLists &lists);
    /// Not announced; to be set before the groups.
    void setNotes(const FileNotes &notes);
    /// Steps of other scans are kept only if they have moved files.
    void setHistory(const UndoHistory &history);
    void clear();

Q_SIGNALS:
    void songsChanged();
    void duplicateGroupsChanged();
    void historyChanged();

private:
    /// Shows lists after the scan result has become another one.
    void showOther(const SongLists &lists);

    SongLists m_lists;
    ScanResult m_scanResult;
    FileNotes m_notes;
    UndoHistory m_history;
    quint64 m_lastScanId = 0;
};

} // namespace sonavo
