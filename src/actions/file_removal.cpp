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

using RemovalState = RemovalResult::State;

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

} // namespace

QByteArray privateNameBeside(const QByteArray &path)
{
    constexpr int HEXADECIMAL = 16;
    const quint64 number = QRandomGenerator::system()->generate64();
    return parentFolderOf(path) + '/' + PRIVATE_PREFIX.toByteArray() +
           QByteArray::number(number, HEXADECIMAL).rightJustified(RANDOM_DIGITS, '0');
}

RemovalResult removeFileIf(const QByteArray &path, const std::function<bool(const QByteArray &)> &mayGo,
                           MoveJournal *journal)
{
    const QByteArray aside = privateNameBeside(path);
    auto entry =
        MoveJournal::recordIn(journal, {.kind = Leftover::Kind::PrivateName, .path = aside, .source = path});
    // Replaces nothing: nobody else has this name.
    int error = ::rename(path.constData(), aside.constData()) == 0 ? 0 : errno;
    if (mayGo(aside)) {
        error = unlinkFile(aside);
        if (error == 0)
            return {};
    }
    const bool isBack = isNothingAt(aside) ||
                        renameWithoutReplacing(aside, path, {.stop = {}, .journal = journal}).state ==
                            MoveResult::State::Moved ||
                        isNothingAt(aside);
    if (!isBack)
        entry.keep();
    return {isBack ? RemovalState::Kept : RemovalState::Uncertain, error != 0 ? error : EBUSY,
            isBack ? QByteArray() : aside};
}

RemovalResult removeFile(const KnownFile &file, MoveJournal *journal)
{
    const auto isFile = [&file](const QByteArray &aside) {
        return isOnlyRenamed(lookAt(aside), file.snapshot);
    };
    RemovalResult result;
    if (!isPrivateName(file.path))
        result = removeFileIf(file.path, isFile, journal);
    else if (const int error = unlinkFile(file.path))
        result = {RemovalState::Kept, error};
    if (result.state == RemovalState::Kept && stateOfName(file) != FileState::Same)
        result.state = RemovalState::Uncertain;
    return result;
}

} // namespace sonavo
