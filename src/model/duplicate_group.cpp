#include "model/duplicate_group.h"

#include "model/saturating.h"

#include <algorithm>

namespace sonavo {

QList<Song> membersOf(const DuplicateGroup &group)
{
    return QList<Song>{group.original} + group.duplicates;
}

DuplicateTotals totalsOf(const QList<DuplicateGroup> &groups)
{
    DuplicateTotals totals;
    for (const DuplicateGroup &group : groups) {
        totals.count += static_cast<int>(group.duplicates.size());
        for (const Song &song : group.duplicates)
            totals.bytes = saturatingSum(totals.bytes, song.size);
    }
    return totals;
}

QList<DuplicateGroup> withoutSongs(const QList<DuplicateGroup> &groups, const QSet<QUuid> &songIds)
{
    const auto isDeleted = [&songIds](const Song &song) { return songIds.contains(song.id); };
    QList<DuplicateGroup> remaining;
    remaining.reserve(groups.size());
    for (const DuplicateGroup &group : groups) {
        DuplicateGroup rest = group;
        rest.duplicates.removeIf(isDeleted);
        if (isDeleted(rest.original)) {
            if (rest.duplicates.isEmpty())
                continue;
            rest.original = rest.duplicates.takeFirst();
        }
        remaining.append(std::move(rest));
    }
    return remaining;
}

} // namespace sonavo
