#include "session/undo_history.h"

#include "analysis/find_further.h"
#include "model/translate.h"

#include <QHash>

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

auto isIn(const QSet<QUuid> &ids)
{
    return [&ids](const Song &song) { return ids.contains(song.id); };
}

/// Also in a folder below it.
bool isInFolder(const Song &song, const QString &folder)
{
    return song.path.size() > folder.size() && song.path.startsWith(folder) &&
           (folder.endsWith(u'/') || song.path[folder.size()] == u'/');
}

/// Moves the songs that are to be kept to the front, the largest first. The others follow as they were: so it
/// makes no difference whether songs leave the group before or after.
void moveToFront(DuplicateGroup &group, const auto &isFirst)
{
    if (!isFirst(group.original) && std::ranges::none_of(group.duplicates, isFirst))
        return;
    QList<Song> members = membersOf(group);
    const auto rest = std::stable_partition(members.begin(), members.end(), isFirst);
    std::stable_sort(members.begin(), rest, [](const Song &a, const Song &b) { return a.size > b.size; });
    group.original = members.takeFirst();
    group.duplicates = members;
}

/// Lets groups have the originals that were chosen one after the other.
class Originals
{
public:
    Originals(QList<DuplicateGroup> &groups, const LosslessSongs &lossless)
        : m_groups(groups)
        , m_lossless(lossless)
    {}

    void operator()(const KeptSong &kept)
    {
        if (m_groupOf.isEmpty()) {
            for (qsizetype i = 0; i < m_groups.size(); ++i) {
                for (const Song &song : membersOf(m_groups[i]))
                    m_groupOf.insert(song.id, i);
            }
        }
        if (const auto group = m_groupOf.constFind(kept.id); group != m_groupOf.cend())
            moveToFront(m_groups[*group], [&kept](const Song &song) { return song.id == kept.id; });
    }
    void operator()(const KeptFolder &kept)
    {
        moveToFrontOfAll([&kept](const Song &song) { return isInFolder(song, kept.path); });
    }
    void operator()(const KeptLossless &)
    {
        moveToFrontOfAll([this](const Song &song) { return m_lossless.contains(song); });
    }

private:
    void moveToFrontOfAll(const auto &isFirst)
    {
        for (DuplicateGroup &group : m_groups)
            moveToFront(group, isFirst);
    }

    QList<DuplicateGroup> &m_groups;
    const LosslessSongs &m_lossless;
    /// By the ids of its songs; made when it is first needed.
    QHash<QUuid, qsizetype> m_groupOf;
};

} // namespace

std::shared_ptr<const UndoStep> UndoHistory::next() const
{
    return m_steps.isEmpty() ? nullptr : m_steps.last();
}

QString undoText()
{
    return translate("UndoHistory", "Undo", "a button");
}

QString UndoHistory::nextText() const
{
    return m_steps.isEmpty()
               ? QString()
               : translate("UndoHistory", "Undo %1", "the name of a step, such as Move to Trash")
                     .arg(m_steps.last()->name);
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
    if (step->files.isEmpty())
        return;
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

SearchDepth UndoHistory::depthOf(quint64 scan) const
{
    SearchDepth depth = SearchDepth::FourPasses;
    for (const auto &step : m_steps) {
        if (step->scan == scan)
            depth = step->depth.value_or(depth);
    }
    return depth;
}

UndoHistory UndoHistory::keptFor(quint64 scan) const
{
    UndoHistory rest = *this;
    rest.m_steps.removeIf([scan](const auto &step) { return step->scan != scan && step->files.isEmpty(); });
    return rest;
}

QList<DuplicateGroup> UndoHistory::applyTo(const QList<DuplicateGroup> &groups, const ScanResult &scan) const
{
    const Removal removal = removalFrom(scan.id);
    QList<DuplicateGroup> rest = groups;
    Originals originals(rest, scan.lossless);
    for (const auto &step : m_steps) {
        if (step->scan == scan.id && step->kept)
            std::visit(originals, *step->kept);
    }
    rest.removeIf([&](const DuplicateGroup &group) {
        const QList<Song> members = membersOf(group);
        return std::ranges::any_of(members, isIn(removal.cleanedUp)) &&
               members.size() - std::ranges::count_if(members, isIn(removal.members)) < 2;
    });
    return withoutSongs(rest, removal.members);
}

SongLists UndoHistory::applyTo(const ScanResult &scan) const
{
    const Removal removal = removalFrom(scan.id);
    SongLists lists;
    lists.songs = scan.songs;
    lists.songs.removeIf(isIn(removal.songs));
    lists.groups = applyTo(scan.groups, scan);
    lists.depth = depthOf(scan.id);
    if (lists.depth == SearchDepth::Further && scan.furtherGroups) {
        const QList<DuplicateGroup> further = applyTo(*scan.furtherGroups, scan);
        lists.onlyFurther = foundOnlyFurther(further, lists.groups);
        lists.groups = further;
    }
    lists.totals = totalsOf(lists.groups);
    return lists;
}

} // namespace sonavo
