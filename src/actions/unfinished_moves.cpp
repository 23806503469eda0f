#include "actions/unfinished_moves.h"

#include "actions/file_move.h"
#include "actions/file_removal.h"
#include "actions/folders.h"
#include "actions/move_journal.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <utility>

namespace sonavo {
namespace {

using Kind = Leftover::Kind;

enum class Outcome
{
    Finished,
    TryLater,
};

enum class Presence
{
    There,
    NotThere,
    /// The disk is not there, or does not tell.
    Unknown,
};

Presence presenceOf(const QByteArray &path)
{
    if (std::holds_alternative<FileSnapshot>(takeSnapshot(path)))
        return Presence::There;
    return isNothingAt(path) ? Presence::NotThere : Presence::Unknown;
}

Presence presenceOfSource(const Leftover &leftover)
{
    const auto snapshot = lookAt(leftover.source);
    const auto *now = std::get_if<FileSnapshot>(&snapshot);
    if (!now)
        return presenceOf(leftover.source) == Presence::NotThere ? Presence::NotThere : Presence::Unknown;
    const bool isSame = leftover.sourceSnapshot && isSameFileAfterRemount(*now, *leftover.sourceSnapshot);
    return isSame ? Presence::There : Presence::NotThere;
}

QByteArray contentOf(const QByteArray &path, qint64 maxSize)
{
    QFile file(QFile::decodeName(path));
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ? file.read(maxSize) : QByteArray();
}

bool isMadeAfterRecord(const FileSnapshot &file, const MoveJournal::Unfinished &record)
{
    return record.made ? isSameFileAfterRemount(file, *record.made)
                       : file.modified >= record.recorded - COARSEST_TIME;
}

/// A file can have been left over before all of it was written.
bool isWrittenBy(const QByteArray &path, const FileSnapshot &file, const MoveJournal::Unfinished &record)
{
    const QByteArray &all = record.leftover.content;
    if (!S_ISREG(file.mode) || file.size > all.size())
        return false;
    const QByteArray content = contentOf(path, all.size() + 1);
    return content == all || (all.startsWith(content) && isMadeAfterRecord(file, record));
}

/// Whether what is at a path is what the record is about.
bool isLeftover(const QByteArray &path, const MoveJournal::Unfinished &record)
{
    const Leftover &leftover = record.leftover;
    const auto snapshot = takeSnapshot(path);
    const auto *file = std::get_if<FileSnapshot>(&snapshot);
    if (!file)
        return false;
    switch (leftover.kind) {
    case Kind::Copy:
        return S_ISREG(file->mode) && record.made && isSameFileAfterRemount(*file, *record.made) &&
               file->size == leftover.sourceSnapshot->size;
    case Kind::Placeholder:
        return S_ISREG(file->mode) && file->size == 0 && isMadeAfterRecord(*file, record);
    case Kind::SecondName:
        return file->hardLinks > 1 && isSameFileAfterRemount(*file, *leftover.sourceSnapshot);
    case Kind::NewLink:
        return S_ISLNK(file->mode) && linkTarget(path) == leftover.content;
    case Kind::Note:
    case Kind::Line:
        return isWrittenBy(path, *file, record);
    case Kind::PrivateName:
        break;
    }
    return false;
}

/// Renames what is under a private name back to its old one.
Outcome putBack(const QByteArray &privateName, const QByteArray &oldName, MoveJournal &journal)
{
    const MoveResult result = renameWithoutReplacing(privateName, oldName, {.stop = {}, .journal = &journal});
    if (result.state == MoveResult::State::Moved)
        return Outcome::Finished;
    const auto aside = takeSnapshot(privateName);
    const auto old = takeSnapshot(oldName);
    const auto *asideFile = std::get_if<FileSnapshot>(&aside);
    const auto *oldFile = std::get_if<FileSnapshot>(&old);
    // Where renaming takes a second name in between, the file can have both.
    const bool hasBoth = asideFile && oldFile && asideFile->hasLastingInode && asideFile->hardLinks > 1 &&
                         isSameFile(*asideFile, *oldFile);
    return hasBoth && ::unlink(privateName.constData()) == 0 ? Outcome::Finished : Outcome::TryLater;
}

/// Removes a file if it may go.
Outcome remove(const QByteArray &path, MoveJournal &journal,
               const std::function<bool(const QByteArray &)> &mayGo)
{
    if (!mayGo(path))
        return Outcome::Finished;
    const RemovalResult removal = removeFileIf(path, mayGo, &journal);
    // Somebody has put another one in its place, or has removed it.
    const bool isOther =
        removal.state == RemovalResult::State::Kept && (removal.error == EBUSY || meansGone(removal.error));
    return removal.state == RemovalResult::State::Removed || isOther ? Outcome::Finished : Outcome::TryLater;
}

/// Removes what stands beside the source: a copy, a second name, a link or an empty file.
Outcome removeBesideSource(const MoveJournal::Unfinished &record, MoveJournal &journal)
{
    const Leftover &leftover = record.leftover;
    if (!leftover.sourceSnapshot)
        return Outcome::Finished;
    // An empty file cannot be a source with content, wherever that is now.
    const bool needsSource = leftover.kind != Kind::Placeholder || leftover.sourceSnapshot->size == 0;
    const Presence source = needsSource ? presenceOfSource(leftover) : Presence::There;
    if (source != Presence::There)
        return source == Presence::NotThere ? Outcome::Finished : Outcome::TryLater;
    if (presenceOf(leftover.path) == Presence::Unknown)
        return Outcome::TryLater;

    const auto mayGo = [&](const QByteArray &path) {
        return isLeftover(path, record) && (!needsSource || presenceOfSource(leftover) == Presence::There);
    };
    if (leftover.kind != Kind::Copy)
        return remove(leftover.path, journal, mayGo);
    // The name of a copy that is not complete is its proof: nobody else makes such a name.
    if (::unlink(leftover.path.constData()) != 0 && !meansGone(errno))
        return Outcome::TryLater;
    return remove(leftover.finalPath, journal, mayGo);
}

Outcome putBackSource(const Leftover &leftover, MoveJournal &journal)
{
    switch (presenceOf(leftover.path)) {
    case Presence::There:
        return putBack(leftover.path, leftover.source, journal);
    case Presence::NotThere:
        return Outcome::Finished;
    case Presence::Unknown:
        break;
    }
    return Outcome::TryLater;
}

Outcome removeNote(const MoveJournal::Unfinished &record, MoveJournal &journal)
{
    const Leftover &leftover = record.leftover;
    const Presence file = presenceOf(leftover.finalPath);
    if (file == Presence::Unknown || presenceOf(leftover.path) == Presence::Unknown)
        return Outcome::TryLater;
    if (file == Presence::There)
        return Outcome::Finished;
    return remove(leftover.path, journal, [&](const QByteArray &path) {
        return isLeftover(path, record) && presenceOf(leftover.finalPath) == Presence::NotThere;
    });
}

Outcome removeLine(const MoveJournal::Unfinished &record, MoveJournal &journal)
{
    const Leftover &leftover = record.leftover;
    const Presence file = presenceOf(leftover.finalPath);
    if (file == Presence::Unknown)
        return Outcome::TryLater;
    if (file == Presence::There || presenceOf(leftover.path) == Presence::NotThere)
        return Outcome::Finished;
    if (leftover.offset == 0)
        return remove(leftover.path, journal,
                      [&](const QByteArray &path) { return isLeftover(path, record); });
    QFile list(QFile::decodeName(leftover.path));
    if (!list.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered) ||
        !list.seek(leftover.offset))
        return Outcome::TryLater;
    const QByteArray end = list.read(leftover.content.size() + 1);
    const bool isLast = !end.isEmpty() && leftover.content.startsWith(end);
    return !isLast || list.resize(leftover.offset) ? Outcome::Finished : Outcome::TryLater;
}

Outcome cleanUp(const MoveJournal::Unfinished &record, MoveJournal &journal)
{
    switch (record.leftover.kind) {
    case Kind::Copy:
    case Kind::Placeholder:
    case Kind::SecondName:
    case Kind::NewLink:
        return removeBesideSource(record, journal);
    case Kind::PrivateName:
        return putBackSource(record.leftover, journal);
    case Kind::Note:
        return removeNote(record, journal);
    case Kind::Line:
        return removeLine(record, journal);
    }
    return Outcome::Finished; // a later version's
}

} // namespace

void cleanUpUnfinishedMoves(const QString &folder)
{
    const QDir journals(folder);
    for (const QString &name : journals.entryList({QStringLiteral("*.moves")}, QDir::Files | QDir::Hidden)) {
        const auto journal = MoveJournal::takeOver(journals.filePath(name));
        if (!journal)
            continue;
        auto records = journal->takeUnfinished();
        while (!records.empty() && cleanUp(records.back(), *journal) == Outcome::Finished)
            records.pop_back();
        // Those before one that has to wait can depend on it.
        for (MoveJournal::Unfinished &record : records)
            record.entry.keep();
    }
}

} // namespace sonavo
