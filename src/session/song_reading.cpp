#include "session/song_reading.h"

#include "session/audio_duration.h"
#include "session/audio_formats.h"

#include <QFile>

#include <sys/stat.h>

namespace sonavo {
namespace {

std::optional<qint64> entrySize(const QString &path)
{
    struct stat status = {};
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return status.st_size;
}

/// The file name without its last extension.
QString baseOf(const QString &name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot >= 0 && dot + 1 < name.size() ? name.first(dot) : name;
}

/// Without the blanks and tabs, and nothing else, at both ends.
QString withoutOuterBlanks(QStringView text)
{
    const auto isBlank = [](QChar character) { return character == u' ' || character == u'\t'; };
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text.toString();
}

QString folderNameOf(const QString &path)
{
    const QStringView folder = QStringView(path).first(path.lastIndexOf(u'/'));
    return folder.isEmpty() ? QStringLiteral("/") : folder.sliced(folder.lastIndexOf(u'/') + 1).toString();
}

} // namespace

std::optional<Song> loadSong(const QString &path, const std::stop_token &stop)
{
    if (pathExtension(path).compare(u"ds_store", Qt::CaseInsensitive) == 0)
        return std::nullopt;
    const std::optional<double> duration = readAudioDuration(path, stop);
    if (!duration)
        return std::nullopt;
    const std::optional<qint64> size = entrySize(path);
    if (!size)
        return std::nullopt;

    Song song;
    song.id = QUuid::createUuid();
    song.path = path;
    song.name = path.sliced(path.lastIndexOf(u'/') + 1);
    song.duration = *duration;
    song.size = *size;
    song.fileType = pathExtension(path).toString().toUpper();
    const QString base = baseOf(song.name);
    const qsizetype hyphen = base.indexOf(u'-');
    if (hyphen >= 0) {
        song.artist = withoutOuterBlanks(QStringView(base).first(hyphen));
        song.title = withoutOuterBlanks(QStringView(base).sliced(hyphen + 1));
    } else {
        song.title = base;
    }
    song.folderName = folderNameOf(path);
    return song;
}

} // namespace sonavo
