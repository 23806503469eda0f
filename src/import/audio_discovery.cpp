#include "import/audio_discovery.h"

#include "import/folder_enumeration.h"
#include "model/audio_formats.h"
#include "model/saturating.h"

#include <QFileInfo>

namespace sonavo {
namespace {

constexpr std::size_t SAMPLED_ENTRIES = 101;
constexpr qint64 EXTRAPOLATION = 10;

QString localPath(const QUrl &url)
{
    QString path = url.toLocalFile();
    while (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    return path;
}

bool isFolder(const QString &path)
{
    return QFileInfo(path).isDir();
}

qint64 songsNamedBy(const QString &path)
{
    return audioFormatOf(path) ? 1 : 0;
}

} // namespace

QStringList discoverAudioFiles(const QList<QUrl> &urls, const std::stop_token &stop)
{
    QStringList files;
    const auto takeIfAudio = [&](const QString &path) {
        if (audioFormatOf(path))
            files.append(path);
        return !stop.stop_requested();
    };
    for (const QUrl &url : urls) {
        const QString path = localPath(url);
        if (isFolder(path))
            enumerateFolder(path, {}, takeIfAudio);
        else
            takeIfAudio(path);
        if (stop.stop_requested())
            break;
    }
    return files;
}

bool isImportable(const QUrl &url)
{
    const QString path = localPath(url);
    return isFolder(path) || audioFormatOf(path).has_value();
}

qint64 estimateSongCount(const QList<QUrl> &urls)
{
    qint64 count = 0;
    for (const QUrl &url : urls) {
        const QString path = localPath(url);
        if (!isFolder(path)) {
            count = saturatingSum(count, songsNamedBy(path));
            continue;
        }
        std::size_t entries = 0;
        enumerateFolder(path, {FolderEnumeration::Packages::Enter, SAMPLED_ENTRIES},
                        [&](const QString &entry) {
                            count = saturatingSum(count, songsNamedBy(entry));
                            return ++entries < SAMPLED_ENTRIES;
                        });
        if (entries == SAMPLED_ENTRIES)
            count = saturatingProduct(count, EXTRAPOLATION);
    }
    return count;
}

} // namespace sonavo
