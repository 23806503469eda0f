#pragma once

#include "model/song.h"

#include <QList>
#include <QMetaType>
#include <QSet>
#include <QUuid>

namespace sonavo {

/// Number of background tints, which groups take in turn.
inline constexpr int GROUP_TINT_COUNT = 6;

/// Copies of one recording: the song that is kept, and its duplicates. A plain value.
struct DuplicateGroup
{
    Q_GADGET
    Q_PROPERTY(QUuid id MEMBER id CONSTANT)
    Q_PROPERTY(sonavo::Song original MEMBER original CONSTANT)
    Q_PROPERTY(QList<sonavo::Song> duplicates MEMBER duplicates CONSTANT)
    Q_PROPERTY(int color MEMBER color CONSTANT)

public:
    /// Random; unique to each group that an analysis creates.
    QUuid id;
    /// The song that is kept; not one of the duplicates.
    Song original;
    /// The other songs, in the order in which they joined.
    QList<Song> duplicates;
    /// Slot of the group's background tint, in [0, GROUP_TINT_COUNT); the theme defines its colour.
    int color = 0;
};

/// All songs of a group, the original first.
[[nodiscard]] QList<Song> membersOf(const DuplicateGroup &group);

/// Duplicates of some groups; originals do not count.
struct DuplicateTotals
{
    int count = 0;
    /// The sum of their sizes.
    qint64 bytes = 0;

    friend bool operator==(const DuplicateTotals &, const DuplicateTotals &) = default;
};
[[nodiscard]] DuplicateTotals totalsOf(const QList<DuplicateGroup> &groups);

/// The groups after some songs were deleted. The first duplicate that is left replaces a deleted original. A
/// group may be left with its original alone; a group of which nothing is left is dropped.
[[nodiscard]] QList<DuplicateGroup> withoutSongs(const QList<DuplicateGroup> &groups,
                                                 const QSet<QUuid> &songIds);

} // namespace sonavo

Q_DECLARE_METATYPE(sonavo::DuplicateGroup)
