#pragma once

#include "model/song.h"

#include <QList>
#include <QMetaType>
#include <QUuid>

namespace sonavo {

/// Background tints that groups take in turn.
inline constexpr int GROUP_TINT_COUNT = 6;

/// Songs that are the same recording: one that is kept and its copies. A plain value.
struct DuplicateGroup
{
    Q_GADGET
    Q_PROPERTY(QUuid id MEMBER id CONSTANT)
    Q_PROPERTY(sonavo::Song original MEMBER original CONSTANT)
    Q_PROPERTY(QList<sonavo::Song> duplicates MEMBER duplicates CONSTANT)
    Q_PROPERTY(int color MEMBER color CONSTANT)

public:
    /// Identity of the group, fresh for each group that an analysis makes.
    QUuid id;
    /// The song that is kept; never among the duplicates.
    Song original;
    /// The other songs, in the order in which they joined.
    QList<Song> duplicates;
    /// Slot of the group's background tint, from 0 to below GROUP_TINT_COUNT; the theme knows the colour.
    int color = 0;
};

/// All songs of a group, the original first.
[[nodiscard]] QList<Song> membersOf(const DuplicateGroup &group);

/// The duplicates of all groups, in the groups' order and theirs.
[[nodiscard]] QList<Song> duplicatesOf(const QList<DuplicateGroup> &groups);

/// The groups after one song was deleted: the first duplicate of a group takes the place of its deleted
/// original. A group can be left with its original alone; it leaves the list with its last song.
[[nodiscard]] QList<DuplicateGroup> withoutSong(const QList<DuplicateGroup> &groups, const QUuid &songId);

} // namespace sonavo

Q_DECLARE_METATYPE(sonavo::DuplicateGroup)
