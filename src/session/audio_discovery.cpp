#include "session/audio_discovery.h"

#include "session/audio_formats.h"
#include "session/folder_enumeration.h"

#include <QFileInfo>

#include <limits>

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

qint64 saturatingProduct(qint64 count, qint64 factor)
{
    constexpr qint64 MAXIMUM = std::numeric_limits<qint64>::max();
    return count > MAXIMUM / factor ? MAXIMUM : count * factor;
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

qint64 estimateSongCount(const QList<QUrl> &urls)
{
    qint64 count = 0;
    for (const QUrl &url : urls) {
        const QString path = localPath(url);
        if (!isFolder(path)) {
            count += audioFormatOf(path) ? 1 : 0;
            continue;
        }
        std::size_t entries = 0;
        enumerateFolder(path, {FolderEnumeration::Packages::Enter, SAMPLED_ENTRIES},
                        [&](const QString &entry) {
                            count += audioFormatOf(entry) ? 1 : 0;
                            return ++entries < SAMPLED_ENTRIES;
                        });
        if (entries == SAMPLED_ENTRIES)
            count = saturatingProduct(count, EXTRAPOLATION);
    }
    return count;
}

} // namespace sonavo
