#include "import/song_reading.h"

#include "import/audio_duration.h"
#include "model/file_name.h"
#include "model/random_id.h"

#include <chrono>
#include <utility>

namespace sonavo {
namespace {

/// A part of a text, sharing its memory: half a million names and titles of their own take 100 MB. No zero
/// follows the characters unless the part ends the text, which only functions of other libraries than Qt
/// would need.
QString sharedPart(const QString &text, QStringView part)
{
    QString::DataPointer shared = text.data_ptr();
    shared.setBegin(shared.data() + (part.data() - text.constData()));
    shared.size = part.size();
    return QString(std::move(shared));
}

/// The file name without its last extension.
QStringView baseName(QStringView name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot >= 0 && dot + 1 < name.size() ? name.first(dot) : name;
}

/// Without spaces and tabs at both ends; other white space stays.
QStringView trimmed(QStringView text)
{
    const auto isBlank = [](QChar character) { return character == u' ' || character == u'\t'; };
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

QString folderNameOf(QStringView folder)
{
    return folder.isEmpty() ? QStringLiteral("/") : folder.sliced(folder.lastIndexOf(u'/') + 1).toString();
}

qint64 nanosecondsNow()
{
    const auto time = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::nanoseconds(time).count();
}

std::optional<Sound> knownOrReadSound(const RegularFile &file, const std::stop_token &stop,
                                      KnownDurations *known)
{
    if (!known || !file.isOpen())
        return readSound(file, stop);
    if (const std::optional<Sound> sound = known->find(file.path(), file.version()))
        return sound;
    const qint64 opened = nanosecondsNow();
    const std::optional<Sound> sound = readSound(file, stop);
    if (sound)
        known->add(file.path(), file.version(), opened, *sound);
    return sound;
}

} // namespace

std::optional<AudioFileInfo> readAudioFile(const QString &path, const std::stop_token &stop,
                                           ReadCounter *counter, KnownDurations *known)
{
    if (pathExtension(path).compare(u"ds_store", Qt::CaseInsensitive) == 0)
        return std::nullopt;
    const RegularFile file(path, counter);
    const std::optional<Sound> sound = knownOrReadSound(file, stop, known);
    if (!sound)
        return std::nullopt;
    return AudioFileInfo{sound->duration, file.entrySize(), file.version().note, sound->isLossless};
}

Song SongBuilder::build(const QString &path, const AudioFileInfo &info)
{
    const qsizetype slash = path.lastIndexOf(u'/');
    if (const QStringView folder = QStringView(path).first(slash);
        m_folderName.isNull() || folder != m_folder) {
        m_folder = folder.toString();
        m_folderName = folderNameOf(folder);
    }
    if (const QStringView extension = pathExtension(path); extension != m_extension) {
        m_extension = extension.toString();
        m_fileType = m_extension.toUpper();
    }

    Song song;
    song.id = randomId();
    song.path = path;
    const QStringView name = QStringView(path).sliced(slash + 1);
    song.name = sharedPart(path, name);
    song.duration = info.duration;
    song.size = info.size;
    song.fileType = m_fileType;
    const QStringView base = baseName(name);
    const qsizetype hyphen = base.indexOf(u'-');
    if (hyphen >= 0) {
        if (const QStringView artist = trimmed(base.first(hyphen)); artist != m_artist)
            m_artist = artist.toString();
        song.artist = m_artist;
        song.title = sharedPart(path, trimmed(base.sliced(hyphen + 1)));
    } else {
        song.title = sharedPart(path, base);
    }
    song.folderName = m_folderName;
    return song;
}

std::optional<Song> loadSong(const QString &path, const std::stop_token &stop)
{
    const std::optional<AudioFileInfo> info = readAudioFile(path, stop);
    return info ? std::optional(SongBuilder().build(path, *info)) : std::nullopt;
}

} // namespace sonavo
