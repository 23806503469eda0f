#include "soak/changing_folder.h"

#include "generators/library_files.h"
#include "generators/library_generator.h"
#include "generators/small_audio.h"

#include <QDir>
#include <QDirIterator>

#include <sys/mount.h>
#include <sys/stat.h>

#include <array>
#include <chrono>
#include <utility>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr std::size_t SONGS_IN_ALBUM = 25;
constexpr qsizetype FEWEST_FILES = 200;
constexpr qsizetype MOST_FILES = 400;
/// Albums of the same seed hold the same songs.
constexpr std::size_t ALBUM_SEEDS = 5;

/// In place: a reader can see the file empty or half written. A pipe would block.
void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if ((!file.exists() || QFileInfo(path).isFile()) && file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(content);
}

void rename(const QString &from, const QString &to)
{
    ::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData());
}

QStringList filesIn(const QString &folder)
{
    QStringList files;
    for (QDirIterator it(folder, QDir::Files | QDir::System, QDirIterator::Subdirectories); it.hasNext();)
        files.append(it.next());
    return files;
}

} // namespace

ChangingFolder::ChangingFolder(QString root, std::uint64_t seed)
    : m_root(std::move(root))
    , m_random(seed)
{
    while (filesIn(m_root).size() < FEWEST_FILES)
        addAlbum(newPath(m_root));
    m_thread = std::jthread([this](const std::stop_token &stop) { run(stop); });
}

ChangingFolder::~ChangingFolder()
{
    m_thread.request_stop();
    m_thread.join();
    if (m_fileOnVolume.isOpen())
        mountOrPullVolume();
}

QString ChangingFolder::newPath(const QString &folder, const QString &extension)
{
    return u"%1/Album %2%3"_s.arg(folder).arg(++m_pathCount).arg(extension);
}

QStringList ChangingFolder::albums() const
{
    QStringList paths;
    for (const QString &name : QDir(m_root).entryList({u"Album *"_s}, QDir::Dirs))
        paths.append(m_root + u'/' + name);
    return paths;
}

void ChangingFolder::run(const std::stop_token &stop)
{
    while (!stop.stop_requested()) {
        std::size_t wait = 0;
        {
            const std::unique_lock lock = pause();
            change();
            ++m_changes;
            wait = m_random.between(2, 30);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(wait));
    }
}

void ChangingFolder::change()
{
    const auto anyOf = [this](const QStringList &paths) {
        return paths[static_cast<qsizetype>(m_random.below(static_cast<std::size_t>(paths.size())))];
    };
    const QStringList files = filesIn(m_root);
    if (files.size() < FEWEST_FILES)
        return addAlbum(newPath(m_root));
    const QStringList albums = this->albums();
    const QString file = anyOf(files);
    const QString album = anyOf(albums);
    const QString extension = file.sliced(file.lastIndexOf(u'.'));
    if (files.size() > MOST_FILES && albums.size() > 1) {
        QDir(album).removeRecursively();
        return;
    }
    switch (m_random.weighted({2, 1, 2, 3, 5, 5, 4, 2})) {
    case 0:
        return addAlbum(newPath(m_root));
    case 1:
        return rename(album, newPath(m_root));
    case 2:
        return mountOrPullVolume();
    case 3:
        if (QFileInfo(file).isFile())
            QFile::copy(file, newPath(album, extension));
        return;
    case 4:
        return rename(file, newPath(album, extension));
    case 5:
        QFile::remove(file);
        return;
    case 6:
        return changeContent(file);
    default:
        return makeUnreadable(file);
    }
}

void ChangingFolder::addAlbum(const QString &path)
{
    const std::uint64_t seed = 1 + m_random.below(ALBUM_SEEDS);
    writeLibrary(generateLibrary({.songs = SONGS_IN_ALBUM, .root = path, .seed = seed}),
                 LibraryFiles::Separate);
}

void ChangingFolder::changeContent(const QString &file)
{
    static const std::array TYPES{u"MP3"_s, u"M4A"_s, u"WAV"_s, u"AAC"_s, u"FLAC"_s};
    const SmallAudio audio =
        smallAudio(TYPES.at(m_random.below(TYPES.size())), static_cast<double>(m_random.between(2, 300)));
    const bool isInPlace = m_random.isOneIn(2);
    const QString target = isInPlace ? file : m_root + u"/.new"_s;
    write(target, audio.content);
    if (!isInPlace)
        rename(target, file);
}

void ChangingFolder::makeUnreadable(const QString &file)
{
    const QByteArray path = QFile::encodeName(file);
    switch (m_random.below(4)) {
    case 0:
        ::chmod(path.constData(), 0);
        return;
    case 1:
        return write(file, "This is no music.");
    case 2:
        QFile::remove(file);
        QFile::link(u"/nowhere/at all"_s, file);
        return;
    default:
        QFile::remove(file);
        ::mkfifo(path.constData(), 0600);
    }
}

void ChangingFolder::mountOrPullVolume()
{
    const QString volume = m_root + u"/Volume"_s;
    const QByteArray path = QFile::encodeName(volume);
    if (m_fileOnVolume.isOpen()) {
        ::umount2(path.constData(), MNT_DETACH);
        m_fileOnVolume.close();
        ++m_pulledVolumes;
        return;
    }
    QDir().mkdir(volume);
    if (::mount("tmpfs", path.constData(), "tmpfs", 0, "size=8m") != 0)
        return;
    m_fileOnVolume.setFileName(volume + u"/open.mp3"_s);
    m_fileOnVolume.open(QIODevice::WriteOnly);
    addAlbum(newPath(volume));
}

} // namespace sonavo
