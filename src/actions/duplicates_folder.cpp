#include "actions/duplicates_folder.h"

#include "model/file_name.h"

#include <QFile>
#include <QLocale>

#include <system_error>

#include <cerrno>
#include <filesystem>
#include <utility>

namespace sonavo {
namespace {

/// @param number 0 for the name itself
QString numberedName(const QString &name, int number)
{
    if (number == 0)
        return name;
    const QStringView extension = pathExtension(name);
    const QStringView stem =
        extension.isNull() ? QStringView(name) : QStringView(name).chopped(extension.size() + 1);
    return QStringLiteral("%1 (%2).%3").arg(stem, QString::number(number), extension);
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

std::variant<MovedFile, Failure> DuplicatesFolder::moveHere(const QString &source, const MoveOptions &options)
{
    const QByteArray from = QFile::encodeName(source);
    const QString name = fileNameOf(source).toString();
    for (int number = m_nextNumbers.value(name, 0);; ++number) {
        const QByteArray to = QFile::encodeName(m_path + u'/' + numberedName(name, number));
        const MoveResult result = moveWithoutReplacing(from, to, options);
        if (result.state == MoveResult::State::NotMoved && result.error == EEXIST)
            continue;
        if (result.state != MoveResult::State::Moved)
            return toFailure(result, from, to);
        m_nextNumbers.insert(name, number + 1);
        return describeMove(from, to);
    }
}

} // namespace sonavo
