#include "actions/duplicates_folder.h"

#include "actions/file_operations.h"
#include "model/file_name.h"

#include <QFile>
#include <QLocale>
#include <QTemporaryFile>

#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <utility>

namespace sonavo {
namespace {

QString numberedName(QStringView name, int number)
{
    const QStringView extension = pathExtension(name);
    const QStringView stem = extension.isNull() ? name : name.chopped(extension.size() + 1);
    return QStringLiteral("%1 (%2).%3").arg(stem, QString::number(number), extension);
}

bool isLink(const QByteArray &path)
{
    struct stat status
    {};
    return ::lstat(path.constData(), &status) == 0 && S_ISLNK(status.st_mode);
}

/// Whether two looks saw the same file, not written to in between.
bool isUnchanged(const struct stat &before, const struct stat &after)
{
    return before.st_dev == after.st_dev && before.st_ino == after.st_ino &&
           before.st_size == after.st_size && before.st_mtim.tv_sec == after.st_mtim.tv_sec &&
           before.st_mtim.tv_nsec == after.st_mtim.tv_nsec;
}

/// Copies all that is in `source` and makes it safe on the disk.
/// @return whether `target` holds the whole of it
bool copyContent(QFile &source, QFile &target)
{
    constexpr qint64 PIECE = 1024 * 1024;
    struct stat before
    {};
    if (::fstat(source.handle(), &before) != 0)
        return false;
    QByteArray piece(PIECE, Qt::Uninitialized);
    qint64 size = 0;
    while ((size = source.read(piece.data(), PIECE)) > 0) {
        if (target.write(piece.constData(), size) != size)
            return false;
    }
    struct stat after
    {};
    struct stat copied
    {};
    return size == 0 && target.flush() && ::fsync(target.handle()) == 0 &&
           ::fstat(source.handle(), &after) == 0 && ::fstat(target.handle(), &copied) == 0 &&
           isUnchanged(before, after) && copied.st_size == before.st_size;
}

/// Gives a copy the permissions and times of its source, as far as its file system knows such things.
void keepAttributes(const QFile &source, const QFile &target)
{
    struct stat status
    {};
    if (::fstat(source.handle(), &status) != 0)
        return;
    constexpr mode_t PERMISSIONS = 07777;
    const timespec times[] = {status.st_atim, status.st_mtim};
    [[maybe_unused]] const int ignored =
        ::fchmod(target.handle(), status.st_mode & PERMISSIONS) | ::futimens(target.handle(), times);
}

/// Removes the file that was opened as `source`, unless its path leads to another one by now.
/// @return an error number, 0 for success
int removeSource(const QFile &source, const QByteArray &path)
{
    struct stat opened
    {};
    struct stat named
    {};
    if (::fstat(source.handle(), &opened) != 0)
        return errno;
    // What somebody else removed meanwhile is gone, as it should be: the copy may be the last one.
    if (::lstat(path.constData(), &named) != 0)
        return errno == ENOENT ? 0 : errno;
    if (!isUnchanged(opened, named))
        return EBUSY;
    return ::unlink(path.constData()) == 0 || errno == ENOENT ? 0 : errno;
}

/// Whether a name can be taken out of a folder, to know it before everything is copied for nothing.
bool canRemoveFrom(const QByteArray &path)
{
    return ::access(path.first(path.lastIndexOf('/') + 1).constData(), W_OK | X_OK) == 0;
}

} // namespace

DuplicatesFolder::DuplicatesFolder(QString path)
    : m_path(std::move(path))
{}

std::variant<DuplicatesFolder, Failure> DuplicatesFolder::create(const QString &parent, const QDateTime &now)
{
    const QString name =
        QStringLiteral("Duplicates_") + QLocale().toString(now, QStringLiteral("yyyy-MM-dd_HH-mm-ss"));
    const QString path = parent.endsWith(u'/') ? parent + name : parent + u'/' + name;
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(path).constData(), error);
    if (error)
        return Failure{QString::fromLocal8Bit(error.message())};
    return DuplicatesFolder(path);
}

bool DuplicatesFolder::moveHere(const QString &source)
{
    const QByteArray from = QFile::encodeName(source);
    const bool movesLink = isLink(from);
    const int error = placeUnderFreeName(fileNameOf(source), [&](const QByteArray &destination) {
        return movesLink ? moveLinkWithoutReplacing(from, destination)
                         : renameWithoutReplacing(from, destination);
    });
    return error == 0 || (error == EXDEV && copyHere(source) == 0);
}

int DuplicatesFolder::copyHere(const QString &source)
{
    QFile original(source);
    QTemporaryFile copy(m_path + QStringLiteral("/.sonavo-XXXXXX"));
    const QByteArray from = QFile::encodeName(source);
    if (!canRemoveFrom(from) || !original.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || !copy.open() ||
        !copyContent(original, copy))
        return EIO;
    keepAttributes(original, copy);

    const QByteArray temporary = QFile::encodeName(copy.fileName());
    QByteArray placed;
    const int error = placeUnderFreeName(fileNameOf(source), [&](const QByteArray &destination) {
        placed = destination;
        return renameWithoutReplacing(temporary, destination);
    });
    if (error != 0)
        return error;
    copy.setAutoRemove(false);
    int finalError = flushFolder(QFile::encodeName(m_path));
    if (finalError == 0)
        finalError = removeSource(original, from);
    if (finalError != 0)
        ::unlink(placed.constData());
    return finalError;
}

int DuplicatesFolder::placeUnderFreeName(QStringView name, const Placing &place)
{
    const QString key = name.toString();
    int number = m_nextNumbers.value(key, 0);
    while (true) {
        const QString candidate = number == 0 ? key : numberedName(name, number);
        const int error = place(QFile::encodeName(m_path + u'/' + candidate));
        if (error != 0 && error != EEXIST)
            return error;
        ++number;
        if (error == 0) {
            m_nextNumbers.insert(key, number);
            return 0;
        }
    }
}

} // namespace sonavo
