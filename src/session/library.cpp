#include "session/library.h"

#include "session/release.h"

#include <QPointer>

#include <utility>

namespace sonavo {

void Library::setSongs(const QList<Song> &songs)
{
    releaseLater(std::exchange(m_scanResult, {.id = ++m_lastScanId, .songs = songs, .groups = {}}));
    show({.songs = songs, .groups = m_lists.groups, .totals = m_lists.totals});
}

void Library::setDuplicateGroups(const QList<DuplicateGroup> &groups)
{
    releaseLater(std::exchange(m_scanResult.groups, groups));
    show({.songs = m_lists.songs, .groups = groups, .totals = totalsOf(groups)});
}

void Library::clear()
{
    releaseLater(std::exchange(m_scanResult, {}));
    setNotes({});
    show({});
}

void Library::setNotes(const FileNotes &notes)
{
    releaseLater(std::exchange(m_notes, notes));
}

void Library::show(const SongLists &lists)
{
    const auto differ = [](const auto &a, const auto &b) {
        return !a.isSharedWith(b) && !(a.isEmpty() && b.isEmpty());
    };
    // Both are set before either is announced, so that nothing here overrides what a listener does.
    SongLists before = std::exchange(m_lists, lists);
    const bool haveSongsChanged = differ(before.songs, lists.songs);
    const bool haveGroupsChanged = differ(before.groups, lists.groups);
    const QPointer<Library> self(this);
    if (haveSongsChanged)
        Q_EMIT songsChanged();
    if (self && haveGroupsChanged)
        Q_EMIT duplicateGroupsChanged();
    // Only now have the views let go of them.
    releaseLater(std::move(before));
}

} // namespace sonavo
