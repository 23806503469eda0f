#include "soak/changing_folder.h"

#include "generators/library_files.h"
#include "generators/library_generator.h"
#include "generators/small_audio.h"
#include "testing/music_folder.h"

#include <sys/stat.h>

#include <chrono>

namespace sonavo {
namespace {

constexpr qsizetype MIN_FILES = 200;
constexpr qsizetype MAX_FILES = 400;

} // namespace

ChangingFolder::ChangingFolder(std::uint64_t seed)
    : m_random(seed)
{
    while (filesIn(path()).size() < MIN_FILES)
        addAlbum();
    m_thread = std::jthread([this](const std::stop_token &stop) {
        while (!stop.stop_requested()) {
            {
                const std::unique_lock lock = pause();
                change();
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(15));
        }
    });
}

void ChangingFolder::addAlbum()
{
    // Albums of the same seed hold the same songs.
    const std::uint64_t seed = 1 + m_random.below(5);
    writeLibrary(generateLibrary({.songs = 25, .root = newPath(path()), .seed = seed}),
                 LibraryFiles::Separate);
}

void ChangingFolder::change()
{
    const QStringList files = filesIn(path());
    const auto anyFile = [&] {
        return QFileInfo(
            files[static_cast<qsizetype>(m_random.below(static_cast<std::size_t>(files.size())))]);
    };
    const QFileInfo file = anyFile();
    const QString filePath = file.filePath();
    if (files.size() < MIN_FILES)
        return addAlbum();
    if (files.size() > MAX_FILES) {
        file.dir().removeRecursively();
        return;
    }
    switch (m_random.below(6)) {
    case 0:
        return addAlbum();
    case 1:
        QFile::rename(filePath, newPath(anyFile().path()) + u'.' + file.suffix());
        return;
    case 2:
        QDir().rename(file.path(), newPath(path()));
        return;
    case 3:
        // In place: a reader can see the file empty.
        if (QFile target(filePath); target.open(QIODevice::WriteOnly))
            target.write(smallAudio(QStringLiteral("MP3"), 2.0).content);
        return;
    case 4:
        // Under a new name: a preview that opens a pipe in place of its song would hang for good.
        ::mkfifo(QFile::encodeName(newPath(file.path()) + u'.' + file.suffix()).constData(), 0600);
        return;
    default:
        QFile::remove(filePath);
    }
}

} // namespace sonavo
