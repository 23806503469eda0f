#include "actions/clean_up.h"

#include "actions/file_identity.h"
#include "actions/trash.h"
#include "model/saturating.h"

#include <algorithm>

namespace sonavo {
namespace {

FileSet filesOfOriginals(const QList<DuplicateGroup> &groups)
{
    FileSet files;
    for (const DuplicateGroup &group : groups) {
        if (const auto identity = identityOf(group.original.path))
            files.insert(*identity);
    }
    return files;
}

/// Goes through the duplicates that must not stay: `dispose` takes a song's path and tells whether the file
/// was moved, `vanished` counts a song without a file.
template <typename Dispose, typename Vanished>
CleanUpOutcome cleanUp(const QList<DuplicateGroup> &groups, const Dispose &dispose, const Vanished &vanished)
{
    const FileSet originals = filesOfOriginals(groups);
    CleanUpOutcome outcome;
    for (const DuplicateGroup &group : groups) {
        for (const Song &song : group.duplicates) {
            const auto identity = identityOf(song.path);
            if (isGone(song.path)) {
                vanished(outcome);
            } else if (identity && originals.contains(*identity)) {
                continue;
            } else if (identity && identityOf(group.original.path) && dispose(song.path)) {
                ++outcome.moved;
                outcome.savedBytes = saturatingSum(outcome.savedBytes, song.size);
            } else {
                ++outcome.failed;
            }
        }
    }
    return outcome;
}

/// Whether the file of a song is also that of another member of a group that holds the song.
bool isListedTwice(const Song &song, const QList<DuplicateGroup> &groups)
{
    const auto identity = identityOf(song.path);
    if (!identity)
        return false;
    const auto isOther = [&](const Song &member) {
        if (member.id == song.id)
            return false;
        const auto other = identityOf(member.path);
        return other && areOneFile(*identity, *other);
    };
    return std::any_of(groups.begin(), groups.end(), [&](const DuplicateGroup &group) {
        const QList<Song> members = membersOf(group);
        const bool holdsSong = std::any_of(members.begin(), members.end(),
                                           [&song](const Song &member) { return member.id == song.id; });
        return holdsSong && std::any_of(members.begin(), members.end(), isOther);
    });
}

} // namespace

CleanUpOutcome trashDuplicates(const QList<DuplicateGroup> &groups)
{
    return cleanUp(
        groups, [](const QString &path) { return !moveToTrash(path); }, [](CleanUpOutcome &) {});
}

CleanUpOutcome moveDuplicates(const QList<DuplicateGroup> &groups, DuplicatesFolder &folder)
{
    return cleanUp(
        groups, [&folder](const QString &path) { return folder.moveHere(path); },
        [](CleanUpOutcome &outcome) { ++outcome.failed; });
}

std::optional<Failure> trashSong(const Song &song, const QList<DuplicateGroup> &groups)
{
    if (isListedTwice(song, groups))
        return Failure{
            QStringLiteral("Another song of this group is the very same file and would be gone as well.")};
    return moveToTrash(song.path);
}

} // namespace sonavo
