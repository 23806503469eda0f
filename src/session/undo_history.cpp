#include "session/undo_history.h"

#include <algorithm>
#include <utility>

namespace sonavo {
namespace {

void unite(Removal &removal, const Removal &other)
{
    removal.songs.unite(other.songs);
    removal.members.unite(other.members);
    removal.cleanedUp.unite(other.cleanedUp);
}

QSet<QUuid> idsOf(const auto &entries)
{
    QSet<QUuid> ids;
    ids.reserve(entries.size());
    for (const auto &entry : entries)
        ids.insert(entry.song.id);
    return ids;
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

void UndoHistory::undone(const UndoOutcome &outcome, quint64 scan)
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
    const auto removalOf = [&step](const QSet<QUuid> &ids) {
        return Removal{.songs = ids, .members = ids, .cleanedUp = step->summaryBefore ? ids : QSet<QUuid>()};
    };
    rest.removal = removalOf(idsOf(rest.files));
    if (step->scan == scan)
        addRemoval(scan, removalOf(gone));
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
    const auto isIn = [](const QSet<QUuid> &ids) {
        return [&ids](const Song &song) { return ids.contains(song.id); };
    };
    const auto isCleanedUp = [&](const DuplicateGroup &group) {
        const QList<Song> members = membersOf(group);
        return std::ranges::any_of(members, isIn(removal.cleanedUp)) &&
               members.size() - std::ranges::count_if(members, isIn(removal.members)) < 2;
    };
    SongLists lists{.songs = scan.songs, .groups = scan.groups, .totals = {}};
    lists.songs.removeIf(isIn(removal.songs));
    lists.groups.removeIf(isCleanedUp);
    lists.groups = withoutSongs(lists.groups, removal.members);
    lists.totals = totalsOf(lists.groups);
    return lists;
}

} // namespace sonavo
