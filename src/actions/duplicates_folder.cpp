#include "actions/duplicates_folder.h"

#include "actions/folders.h"
#include "actions/volume.h"
#include "model/file_name.h"

#include <QFile>
#include <QLocale>
#include <QSet>

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace sonavo {
namespace {

const QString PREFIX = QStringLiteral("Duplicates_");

/// @param number 0 for the name itself
QString numberedName(const QString &name, int number)
{
    if (number == 0)
        return name;
    const QString extension = pathExtension(name).toString();
    const QString stem = extension.isNull() ? name : name.chopped(extension.size() + 1);
    return joinedFileName(stem, QStringLiteral(" (%1).").arg(number) + extension, MAX_FILE_NAME);
}

} // namespace

DuplicatesFolder::DuplicatesFolder(QString path)
    : m_path(std::move(path))
    , m_top(volumeTopOf(QFile::encodeName(m_path)))
    , m_list(QFile::encodeName(m_path))
{}

std::variant<DuplicatesFolder, Failure> DuplicatesFolder::create(const QString &parent, const QDateTime &now)
{
    const QString name = PREFIX + QLocale::c().toString(now, QStringLiteral("yyyy-MM-dd_HH-mm-ss"));
    const QString path = parent.endsWith(u'/') ? parent + name : parent + u'/' + name;
    if (const int error = makeFolders(QFile::encodeName(path)))
        return Failure{errorText(error)};
    return DuplicatesFolder(path);
}

void DuplicatesFolder::makeAgainIfRemoved()
{
    const QByteArray path = QFile::encodeName(m_path);
    // Where its disk is missing, the folder would be made on another one.
    if (isNothingAt(path) && volumeTopOf(path) == m_top && makeFolders(path) == 0)
        m_nextNumbers.clear();
}

std::variant<MovedFile, Failure> DuplicatesFolder::moveHere(const QString &source, const MoveOptions &options)
{
    const QByteArray from = QFile::encodeName(source);
    makeAgainIfRemoved();
    const QByteArray top = volumeTopOf(parentFolderOf(from));
    const QString name = fileNameOf(source).toString();
    for (int number = m_nextNumbers.value(name, 0);; ++number) {
        const QByteArray to = QFile::encodeName(m_path + u'/' + numberedName(name, number));
        if (isTaken(to))
            continue;
        auto line = m_list.add(from, to, options.journal);
        if (const int *error = std::get_if<int>(&line))
            return Failure{errorText(*error)};
        auto &entry = std::get<MoveJournal::Entry>(line);
        const MoveResult result = moveWithoutReplacing(from, to, options);
        if (result.state == MoveResult::State::Moved) {
            m_nextNumbers.insert(name, number + 1);
            MovedFile moved = describeMove(from, to, result);
            moved.list = m_list.path();
            moved.originalTop = top;
            return moved;
        }
        const bool isSettled = result.state == MoveResult::State::NotMoved && m_list.takeBack();
        if (!isSettled)
            entry.keep();
        if (result.state != MoveResult::State::NotMoved || result.error != EEXIST)
            return toFailure(result, from, to);
    }
}

PutBackResult DuplicatesFolder::moveBack(const MovedFile &file, const MoveOptions &options)
{
    MoveJournal::Entry entry = MovedFilesList::recordRemoval(file, options.journal);
    PutBackResult result = sonavo::moveBack(file, options);
    if (result.state == PutBackResult::State::Back && !MovedFilesList::removeLast(file))
        entry.keep();
    return result;
}

void DuplicatesFolder::forget(const QList<MovedFile> &files)
{
    MovedFilesList::remove(files);
    QSet<QByteArray> folders;
    for (const MovedFile &file : files)
        folders.insert(parentFolderOf(file.path));
    for (const QByteArray &folder : std::as_const(folders)) {
        if (fileNameOf(QFile::decodeName(folder)).startsWith(PREFIX))
            ::rmdir(folder.constData()); // only if nothing is in it
    }
}

} // namespace sonavo
