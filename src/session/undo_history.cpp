#include "session/undo_history.h"

#include <algorithm>
#include <utility>

namespace sonavo {
namespace {

void unite(Removal &removal, const Removal &other)
{
    removal.songs.unite(other.songs);
    removal.members.unite(other.members);
}

QSet<QUuid> idsOf(const auto &entries)
{
    QSet<QUuid> ids;
    ids.reserve(entries.size());
    for (const auto &entry : entries)
        ids.insert(entry.song.id);
    return ids;
}

/// What a step still removes when only some of its files are away.
/// @param before what it has removed
/// @param others what is removed by others
Removal removalWhileAway(const QSet<QUuid> &away, const Removal &before, const Removal &others,
                         const QList<DuplicateGroup> &groups)
{
    Removal removal{away, away};
    for (const DuplicateGroup &group : groups) {
        const QList<Song> members = membersOf(group);
        const auto isIn = [](const QSet<QUuid> &ids) {
            return [&ids](const Song &song) { return ids.contains(song.id); };
        };
        QList<Song> present = members;
        present.removeIf(isIn(others.members));
        present.removeIf(isIn(away));
        // A group that the step has dropped as a whole comes back when there are two songs to compare.
        const bool isDropped = present.size() == 1 && std::ranges::any_of(members, isIn(away)) &&
                               before.members.contains(present.first().id);
        if (isDropped)
            removal.members.insert(present.first().id);
    }
    return removal;
}

} // namespace

std::shared_ptr<const UndoStep> UndoHistory::next() const
{
    return m_steps.isEmpty() ? nullptr : m_steps.last();
}

void UndoHistory::add(UndoStep step)
{
    m_steps.append(std::make_shared<const UndoStep>(std::move(step)));
}

void UndoHistory::addRemoval(quint64 scan, const Removal &removal)
{
    if (std::exchange(m_scan, scan) != scan)
        m_removal = {};
    unite(m_removal, removal);
}

void UndoHistory::undone(const UndoOutcome &outcome, const ScanResult &scan)
{
    const std::shared_ptr<const UndoStep> step = m_steps.takeLast();
    if (outcome.restored.isEmpty() && outcome.gone.isEmpty()) {
        m_steps.insert(outcome.failures.isEmpty() ? m_steps.size() : 0, step);
        return;
    }
    QSet<QUuid> restored;
    for (const Song &song : outcome.restored)
        restored.insert(song.id);
    const QSet<QUuid> gone = idsOf(outcome.gone);
    UndoStep rest = *step;
    rest.files.removeIf([&](const DisposedSong &disposed) {
        return restored.contains(disposed.song.id) || gone.contains(disposed.song.id);
    });
    if (step->scan == scan.id) {
        addRemoval(scan.id, {gone, gone});
        rest.removal =
            removalWhileAway(idsOf(rest.files) + gone, step->removal, removalFrom(scan.id), scan.groups);
        if (rest.files.isEmpty())
            addRemoval(scan.id, rest.removal);
    }
    if (!rest.files.isEmpty())
        m_steps.insert(outcome.restored.isEmpty() ? 0 : m_steps.size(),
                       std::make_shared<const UndoStep>(std::move(rest)));
}

Removal UndoHistory::removalFrom(quint64 scan) const
{
    Removal removal = m_scan == scan ? m_removal : Removal();
    for (const auto &step : m_steps) {
        if (step->scan == scan)
            unite(removal, step->removal);
    }
    return removal;
}

SongLists UndoHistory::applyTo(const ScanResult &scan) const
{
    const Removal removal = removalFrom(scan.id);
    SongLists lists{.songs = scan.songs, .groups = withoutSongs(scan.groups, removal.members), .totals = {}};
    lists.songs.removeIf([&removal](const Song &song) { return removal.songs.contains(song.id); });
    lists.totals = totalsOf(lists.groups);
    return lists;
}

} // namespace sonavo
