#pragma once

#include "model/duplicate_group.h"
#include "model/file_note.h"
#include "model/song.h"

#include <QList>
#include <QObject>

namespace sonavo {

/// What a scan has found.
struct ScanResult
{
    /// A number of its own for every scan; 0 without one.
    quint64 id = 0;
    /// In import order.
    QList<Song> songs;
    /// In the order in which the analysis made them; empty until it is done.
    QList<DuplicateGroup> groups;
};

/// What is left of a scan's result.
struct SongLists
{
    QList<Song> songs;
    QList<DuplicateGroup> groups;
    /// Of the groups.
    DuplicateTotals totals;
};

/// The songs of the session and the duplicates among them. No operation takes longer for longer lists, except
/// setDuplicateGroups(), which counts. Main thread only.
class Library : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// In import order.
    [[nodiscard]] const QList<Song> &songs() const { return m_lists.songs; }
    /// In the order in which the analysis made them.
    [[nodiscard]] const QList<DuplicateGroup> &duplicateGroups() const { return m_lists.groups; }
    [[nodiscard]] const DuplicateTotals &duplicateTotals() const { return m_lists.totals; }
    /// All that the scan has found, with what was removed since.
    [[nodiscard]] const ScanResult &scanResult() const { return m_scanResult; }

    /// What the files of the songs in the groups were when they were read, for clean-ups.
    [[nodiscard]] const FileNotes &notes() const { return m_notes; }

    /// The songs that a new scan has read. The groups stay until it has found its own.
    void setSongs(const QList<Song> &songs);
    /// The groups that this scan has found.
    void setDuplicateGroups(const QList<DuplicateGroup> &groups);
    /// What is left of them.
    void show(const SongLists &lists);
    /// Not announced; to be set before the groups.
    void setNotes(const FileNotes &notes);
    void clear();

Q_SIGNALS:
    void songsChanged();
    void duplicateGroupsChanged();

private:
    SongLists m_lists;
    ScanResult m_scanResult;
    FileNotes m_notes;
    quint64 m_lastScanId = 0;
};

} // namespace sonavo
