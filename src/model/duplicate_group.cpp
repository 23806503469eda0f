#include "model/duplicate_group.h"

#include <optional>

namespace sonavo {
namespace {

/// The group without one song, if it was a member; nothing if it was the only one.
std::optional<DuplicateGroup> withoutMember(DuplicateGroup group, const QUuid &deletedId)
{
    if (group.original.id == deletedId) {
        if (group.duplicates.isEmpty())
            return std::nullopt;
        group.original = group.duplicates.takeFirst();
    } else {
        group.duplicates.removeIf([&deletedId](const Song &song) { return song.id == deletedId; });
    }
    return group;
}

} // namespace

QList<Song> membersOf(const DuplicateGroup &group)
{
    return QList<Song>{group.original} + group.duplicates;
}

QList<Song> duplicatesOf(const QList<DuplicateGroup> &groups)
{
    QList<Song> songs;
    for (const DuplicateGroup &group : groups)
        songs.append(group.duplicates);
    return songs;
}

QList<DuplicateGroup> withoutSong(const QList<DuplicateGroup> &groups, const QUuid &songId)
{
    QList<DuplicateGroup> remaining;
    remaining.reserve(groups.size());
    for (const DuplicateGroup &group : groups) {
        if (const auto kept = withoutMember(group, songId))
            remaining.append(*kept);
    }
    return remaining;
}

} // namespace sonavo
