#include "session/library.h"

#include <QPointer>
#include <QSet>

#include <numeric>

namespace sonavo {

int Library::duplicateCount() const
{
    const auto add = [](qsizetype sum, const DuplicateGroup &group) { return sum + group.duplicates.size(); };
    return static_cast<int>(
        std::accumulate(m_duplicateGroups.begin(), m_duplicateGroups.end(), qsizetype{0}, add));
}

void Library::setSongs(const QList<Song> &songs)
{
    set(songs, m_duplicateGroups);
}

void Library::setDuplicateGroups(const QList<DuplicateGroup> &groups)
{
    set(m_songs, groups);
}

void Library::removeSong(const QUuid &id)
{
    QList<Song> rest = m_songs;
    if (rest.removeIf([&id](const Song &song) { return song.id == id; }) > 0)
        setSongs(rest);
}

void Library::removeFromGroups(const QUuid &id)
{
    setDuplicateGroups(withoutSong(m_duplicateGroups, id));
}

void Library::removeDuplicates()
{
    const QList<Song> duplicates = duplicatesOf(m_duplicateGroups);
    const QSet<Song> removed(duplicates.begin(), duplicates.end());
    QList<Song> rest = m_songs;
    rest.removeIf([&removed](const Song &song) { return removed.contains(song); });
    set(rest, {});
}

void Library::clear()
{
    m_notes.clear();
    set({}, {});
}

void Library::set(const QList<Song> &songs, const QList<DuplicateGroup> &groups)
{
    const auto differ = [](const auto &a, const auto &b) {
        return !a.isSharedWith(b) && !(a.isEmpty() && b.isEmpty());
    };
    const bool haveSongsChanged = differ(m_songs, songs);
    const bool haveGroupsChanged = differ(m_duplicateGroups, groups);
    // Both are set before either is announced, so that nothing here overrides what a listener does.
    m_songs = songs;
    m_duplicateGroups = groups;
    const QPointer<Library> self(this);
    if (haveSongsChanged)
        Q_EMIT songsChanged();
    if (self && haveGroupsChanged)
        Q_EMIT duplicateGroupsChanged();
}

} // namespace sonavo
