#pragma once

#include "model/duplicate_group.h"
#include "model/file_note.h"
#include "model/song.h"

#include <QList>
#include <QObject>

namespace sonavo {

/// The songs of the session and the duplicates among them. Lists are implicitly shared, so that only the
/// removals and duplicateCount() take longer for longer lists. Main thread only.
class Library : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// In import order.
    [[nodiscard]] const QList<Song> &songs() const { return m_songs; }
    /// In the order in which the analysis made them.
    [[nodiscard]] const QList<DuplicateGroup> &duplicateGroups() const { return m_duplicateGroups; }
    /// Duplicates in all groups; originals do not count.
    [[nodiscard]] int duplicateCount() const;
    /// What the files of the songs in the groups were when they were read, for clean-ups.
    [[nodiscard]] const FileNotes &notes() const { return m_notes; }

    void setSongs(const QList<Song> &songs);
    void setDuplicateGroups(const QList<DuplicateGroup> &groups);

    /// Not announced; to be set before the groups.
    void setNotes(const FileNotes &notes) { m_notes = notes; }

    /// Removes a song from songs(); its group keeps it.
    void removeSong(const QUuid &id);
    /// Removes a song from its group, as withoutSong() describes.
    void removeFromGroups(const QUuid &id);
    /// Removes every duplicate from songs(), and all groups.
    void removeDuplicates();
    void clear();

Q_SIGNALS:
    void songsChanged();
    void duplicateGroupsChanged();

private:
    void set(const QList<Song> &songs, const QList<DuplicateGroup> &groups);

    QList<Song> m_songs;
    QList<DuplicateGroup> m_duplicateGroups;
    FileNotes m_notes;
};

} // namespace sonavo
