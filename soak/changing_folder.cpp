#include "soak/changing_folder.h"

#include "generators/library_files.h"
#include "generators/library_generator.h"
#include "generators/small_audio.h"

#include <QDir>
#include <QDirIterator>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <utility>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr std::size_t SONGS_IN_BOX = 25;
constexpr std::size_t BOXES = 12;
constexpr qsizetype FEWEST_FILES = 200;
constexpr qsizetype MOST_FILES = 400;
/// Boxes of the same kind hold the same songs.
constexpr std::size_t KINDS_OF_BOXES = 5;

QString withAnotherName(const QString &file, std::size_t number)
{
    const qsizetype dot = file.lastIndexOf(u'.');
    return u"%1 (%2)%3"_s.arg(file.first(dot)).arg(number).arg(file.sliced(dot));
}

void rename(const QString &from, const QString &to)
{
    ::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData());
}

/// In place: a reader can see the file empty or half written. To write into a pipe would last for ever.
void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if ((!file.exists() || QFileInfo(path).isFile()) && file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(content);
}

} // namespace

ChangingFolder::ChangingFolder(QString root, std::uint64_t seed)
    : m_root(std::move(root))
    , m_random(seed)
{
    while (m_nextBox < BOXES)
        fill(newBoxPath(), SONGS_IN_BOX);
    m_thread = std::jthread([this](const std::stop_token &stop) { run(stop); });
}

ChangingFolder::~ChangingFolder()
{
    m_thread.request_stop();
    m_thread.join();
    if (m_fileOnVolume.isOpen())
        mountOrPullVolume();
}

QString ChangingFolder::boxPath(std::size_t number) const
{
    return u"%1/Box %2"_s.arg(m_root).arg(number);
}

QStringList ChangingFolder::boxes() const
{
    QStringList paths;
    for (const QString &name : QDir(m_root).entryList({u"Box *"_s}, QDir::Dirs))
        paths.append(m_root + u'/' + name);
    return paths;
}

QStringList ChangingFolder::files() const
{
    QStringList paths;
    for (QDirIterator it(m_root, QDir::Files | QDir::System, QDirIterator::Subdirectories); it.hasNext();)
        paths.append(it.next());
    return paths;
}

void ChangingFolder::beginRecord()
{
    const std::unique_lock lock = standStill();
    m_record.clear();
    record();
}

bool ChangingFolder::hasHeld(const QString &path)
{
    const std::unique_lock lock = standStill();
    return m_record.contains(path);
}

void ChangingFolder::record()
{
    for (const QString &file : files())
        m_record.insert(file);
}

void ChangingFolder::run(const std::stop_token &stop)
{
    while (!stop.stop_requested()) {
        std::size_t pause = 0;
        {
            const std::unique_lock lock = standStill();
            change();
            record();
            ++m_changes;
            pause = m_random.between(2, 30);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(pause));
    }
}

void ChangingFolder::change()
{
    const QStringList files = this->files();
    const QStringList boxes = this->boxes();
    const QString file =
        files[static_cast<qsizetype>(m_random.below(static_cast<std::size_t>(files.size())))];
    const QString box = boxes[static_cast<qsizetype>(m_random.below(static_cast<std::size_t>(boxes.size())))];
    if (files.size() < FEWEST_FILES) {
        fill(newBoxPath(), SONGS_IN_BOX);
        return;
    }
    if (files.size() > MOST_FILES && boxes.size() > 1) {
        QDir(box).removeRecursively();
        return;
    }
    switch (m_random.weighted({1, 1, 1, 2, 3, 5, 5, 4, 2, 1})) {
    case 0:
        return fill(newBoxPath(), SONGS_IN_BOX);
    case 1:
        return rename(box, newBoxPath());
    case 2:
        return replaceBox(box);
    case 3:
        return mountOrPullVolume();
    case 4:
        return copyFile(file, box);
    case 5:
        return rename(file, withAnotherName(file, m_nextName++));
    case 6:
        QFile::remove(file);
        return;
    case 7:
        return changeContent(file);
    case 8:
        return makeUnreadable(file);
    default:
        if (boxes.size() > 1)
            QDir(box).removeRecursively();
    }
}

void ChangingFolder::fill(const QString &box, std::size_t songs)
{
    writeLibrary(generateLibrary({.songs = songs, .root = box, .seed = 1 + m_random.below(KINDS_OF_BOXES)}),
                 LibraryFiles::Separate);
}

void ChangingFolder::replaceBox(const QString &box)
{
    const QString aside = m_root + u"/.aside"_s;
    rename(box, aside);
    fill(box, SONGS_IN_BOX);
    QDir(aside).removeRecursively();
}

void ChangingFolder::copyFile(const QString &file, const QString &box)
{
    const QString name = file.sliced(file.lastIndexOf(u'/') + 1);
    if (QFileInfo(file).isFile())
        QFile::copy(file, withAnotherName(box + u'/' + name, m_nextName++));
}

void ChangingFolder::changeContent(const QString &file)
{
    static const std::array TYPES{u"MP3"_s, u"M4A"_s, u"WAV"_s, u"AAC"_s, u"FLAC"_s};
    if (!QFileInfo(file).isFile())
        return;
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
    const std::size_t way = m_random.below(5);
    if (way == 0) {
        ::chmod(path.constData(), 0);
    } else if (way == 1) {
        write(file, "This is no music.");
    } else {
        QFile::remove(file);
        if (way == 2)
            QFile::link(u"/nowhere/at all"_s, file);
        else if (way == 3)
            ::mkfifo(path.constData(), 0600);
        else
            QDir().mkdir(file);
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
    fill(volume + u"/Box"_s, SONGS_IN_BOX);
}

} // namespace sonavo
