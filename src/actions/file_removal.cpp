#include "actions/file_removal.h"

#include "actions/file_move.h"
#include "actions/folders.h"
#include "actions/move_journal.h"

#include <QRandomGenerator>

#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace sonavo {
namespace {

using State = RemovalResult::State;

constexpr QByteArrayView PRIVATE_PREFIX = ".sonavo-";
constexpr int RANDOM_DIGITS = 16;

bool isPrivateName(const QByteArray &path)
{
    const QByteArrayView name = QByteArrayView(path).sliced(path.lastIndexOf('/') + 1);
    return name.startsWith(PRIVATE_PREFIX) && name.size() == PRIVATE_PREFIX.size() + RANDOM_DIGITS;
}

/// Whether nothing was done to a file but giving it another name, which changes the time of the last change.
bool isOnlyRenamed(const std::variant<FileSnapshot, int> &now, FileSnapshot before)
{
    const auto *renamed = std::get_if<FileSnapshot>(&now);
    if (renamed)
        before.changed = renamed->changed;
    return renamed && isUntouched(*renamed, before);
}

/// @return an error number, 0 for success
int unlinkFile(const QByteArray &path)
{
    const int error = ::unlink(path.constData()) == 0 ? 0 : errno;
    return error != 0 && isNothingAt(path) ? 0 : error;
}

RemovalResult stillThere(const KnownFile &file, int error)
{
    const bool isKept = stateOfName(file) == FileState::Same;
    return {isKept ? State::Kept : State::Uncertain, error != 0 ? error : EBUSY};
}

} // namespace

QByteArray privateNameBeside(const QByteArray &path)
{
    constexpr int HEXADECIMAL = 16;
    const quint64 number = QRandomGenerator::system()->generate64();
    return parentFolderOf(path) + '/' + PRIVATE_PREFIX.toByteArray() +
           QByteArray::number(number, HEXADECIMAL).rightJustified(RANDOM_DIGITS, '0');
}

RemovalResult removeFile(const KnownFile &file, MoveJournal *journal)
{
    if (isPrivateName(file.path)) {
        const int error = unlinkFile(file.path);
        return error == 0 ? RemovalResult() : stillThere(file, error);
    }
    const QByteArray aside = privateNameBeside(file.path);
    auto entry = MoveJournal::recordIn(journal, {.kind = Leftover::Kind::PrivateName,
                                                 .path = aside,
                                                 .source = file.path,
                                                 .sourceSnapshot = file.snapshot});
    // Replaces nothing: nobody else has this name.
    int error = ::rename(file.path.constData(), aside.constData()) == 0 ? 0 : errno;
    if (isOnlyRenamed(lookAt(aside), file.snapshot)) {
        error = unlinkFile(aside);
        if (error == 0)
            return {};
    }
    if (isNothingAt(aside))
        return stillThere(file, error);
    const MoveResult back = renameWithoutReplacing(aside, file.path, {.stop = {}, .journal = journal});
    if (back.state == MoveResult::State::Moved || isNothingAt(aside))
        return stillThere(file, error);
    entry.keep();
    return {State::Uncertain, error != 0 ? error : EBUSY, aside};
}

} // namespace sonavo
