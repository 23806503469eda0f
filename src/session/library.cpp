#include "session/library.h"

#include "session/release.h"

#include <QPointer>

#include <utility>

namespace sonavo {

void Library::setSongs(const QList<Song> &songs, const QList<FileNote> &notes, const LosslessSongs &lossless)
{
    ScanResult result;
    result.id = ++m_lastScanId;
    result.songs = songs;
    result.notes = notes;
    result.lossless = lossless;
    releaseLater(std::exchange(m_scanResult, std::move(result)));
    SongLists lists = m_lists;
    lists.songs = songs;
    showOther(lists);
}

void Library::setDuplicateGroups(const QList<DuplicateGroup> &groups)
{
    releaseLater(std::exchange(m_scanResult.groups, groups));
    SongLists lists;
    lists.songs = m_lists.songs;
    lists.groups = groups;
    lists.totals = totalsOf(groups);
    show(lists);
}

void Library::setFurtherGroups(const QList<DuplicateGroup> &groups)
{
    releaseLater(std::exchange(m_scanResult.furtherGroups, groups));
}

void Library::clear()
{
    releaseLater(std::exchange(m_scanResult, {}));
    setNotes({});
    showOther({});
}

void Library::showOther(const SongLists &lists)
{
    m_history = m_history.keptFor(m_scanResult.id);
    const QPointer<Library> self(this);
    show(lists);
    if (self)
        Q_EMIT historyChanged();
}

void Library::setHistory(const UndoHistory &history)
{
    releaseLater(std::exchange(m_history, history.keptFor(m_scanResult.id)));
    Q_EMIT historyChanged();
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
