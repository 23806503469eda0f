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

/// @param lastFolder the folder that was created last
void createFolderOf(const QString &path, QString &lastFolder)
{
    const QStringView folder = QStringView(path).first(path.lastIndexOf(u'/'));
    if (folder == lastFolder)
        return;
    lastFolder = folder.toString();
    if (!QDir().mkpath(lastFolder))
        throw std::runtime_error("cannot create the folder " + lastFolder.toStdString());
}

bool link(const QString &from, const QString &to)
{
    return ::link(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

} // namespace

QList<Song> writeLibrary(QList<Song> songs, LibraryFiles files)
{
    // By playing time as written: long songs of some types are cut short.
    QHash<std::pair<QString, double>, QString> linkTargets;
    QString lastFolder;
    for (Song &song : songs) {
        const bool isLinked = files == LibraryFiles::Linked;
        const SmallAudio audio =
            smallAudio(song.fileType, isLinked ? std::trunc(song.duration) + 0.5 : song.duration);
        song.duration = audio.duration;
        song.size = audio.content.size();
        createFolderOf(song.path, lastFolder);
        QString &target = linkTargets[{song.fileType, song.duration}];
        // The number of links to a file is limited; when it is reached, another file is begun.
        if (isLinked && !target.isEmpty() && link(target, song.path))
            continue;
        writeFile(song.path, audio.content);
        target = song.path;
    }
    return songs;
}

} // namespace sonavo
