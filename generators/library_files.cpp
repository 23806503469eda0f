#include "generators/library_files.h"

#include "generators/small_audio.h"

#include <QDir>
#include <QFile>
#include <QHash>

#include <unistd.h>

#include <cmath>
#include <stdexcept>
#include <utility>

namespace sonavo {
namespace {

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) || file.write(content) != content.size() ||
        !file.flush())
        throw std::runtime_error("cannot write " + path.toStdString() + ": " +
                                 file.errorString().toStdString());
}

/// @param known the folder that was made last
void makeFolderOf(const QString &path, QString &known)
{
    const QStringView folder = QStringView(path).first(path.lastIndexOf(u'/'));
    if (folder == known)
        return;
    known = folder.toString();
    if (!QDir().mkpath(known))
        throw std::runtime_error("cannot make the folder " + known.toStdString());
}

bool link(const QString &from, const QString &to)
{
    return ::link(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

} // namespace

QList<Song> writeLibrary(QList<Song> songs, LibraryFiles files)
{
    QHash<std::pair<QString, qint64>, QString> linkable;
    QString folder;
    for (Song &song : songs) {
        const bool isLinked = files == LibraryFiles::Linked;
        const SmallAudio audio =
            smallAudio(song.fileType, isLinked ? std::trunc(song.duration) + 0.5 : song.duration);
        song.duration = audio.duration;
        song.size = audio.content.size();
        makeFolderOf(song.path, folder);
        QString &known = linkable[{song.fileType, wholeSeconds(song.duration)}];
        // A file can have only so many links; then another one begins.
        if (isLinked && !known.isEmpty() && link(known, song.path))
            continue;
        writeFile(song.path, audio.content);
        known = song.path;
    }
    return songs;
}

} // namespace sonavo
