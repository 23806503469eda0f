#include "import/audio_discovery.h"

#include "import/folder_enumeration.h"
#include "model/audio_formats.h"
#include "model/saturating.h"

#include <QFileInfo>

namespace sonavo {
namespace {

constexpr std::size_t MAX_SAMPLED_ENTRIES = 101;
constexpr qint64 EXTRAPOLATION_FACTOR = 10;

/// Empty unless it is absolute: "file:a.mp3" names no folder.
QString localPath(const QUrl &url)
{
    QString path = url.toLocalFile();
    while (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    return path.startsWith(u'/') ? path : QString();
}

bool isFolder(const QString &path)
{
    return QFileInfo(path).isDir();
}

bool hasAudioExtension(const QString &path)
{
    return audioFormatOf(path).has_value();
}

} // namespace

QStringList discoverAudioFiles(const QList<QUrl> &urls, const std::stop_token &stop)
{
    QStringList files;
    const auto addIfAudio = [&](const QString &path) {
        if (hasAudioExtension(path))
            files.append(path);
        return !stop.stop_requested();
    };
    for (const QUrl &url : urls) {
        const QString path = localPath(url);
        if (isFolder(path))
            enumerateFolder(path, {}, addIfAudio);
        else
            addIfAudio(path);
        if (stop.stop_requested())
            break;
    }
    return files;
}

bool isImportable(const QUrl &url)
{
    const QString path = localPath(url);
    return isFolder(path) || hasAudioExtension(path);
}

qint64 estimateSongCount(const QList<QUrl> &urls)
{
    qint64 count = 0;
    for (const QUrl &url : urls) {
        const QString path = localPath(url);
        if (!isFolder(path)) {
            count = saturatingSum(count, hasAudioExtension(path) ? 1 : 0);
            continue;
        }
        std::size_t entries = 0;
        enumerateFolder(path, {EnumerationOptions::Packages::Enter, MAX_SAMPLED_ENTRIES},
                        [&](const QString &entry) {
                            count = saturatingSum(count, hasAudioExtension(entry) ? 1 : 0);
                            return ++entries < MAX_SAMPLED_ENTRIES;
                        });
        if (entries == MAX_SAMPLED_ENTRIES)
            count = saturatingProduct(count, EXTRAPOLATION_FACTOR);
    }
    return count;
}

} // namespace sonavo
