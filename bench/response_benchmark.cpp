#include "actions/headless_desktop.h"
#include "bench/goal.h"
#include "generators/library_files.h"
#include "generators/library_generator.h"
#include "session/duplicate_view_model.h"
#include "session/event_loop_pauses.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>
#include <QTemporaryDir>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace sonavo {
namespace {

double threadMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

/// A turn of the event loop.
struct Turn
{
    /// Milliseconds that the thread has computed for.
    double length = 0.0;
    /// The scan's message before and after it.
    QString before;
    QString after;
};

/// Measures the turns of this thread's event loop, apart from the time for which it waits or other programs
/// run.
class TurnWatch
{
public:
    explicit TurnWatch(const DuplicateViewModel &session)
        : m_session(session)
    {
        QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
        QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &m_context, [this] { update(); });
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &m_context,
                         [this] { update(); });
    }

    /// Shortest first.
    [[nodiscard]] std::vector<Turn> take()
    {
        update();
        std::sort(m_turns.begin(), m_turns.end(),
                  [](const Turn &a, const Turn &b) { return a.length < b.length; });
        return std::exchange(m_turns, {});
    }

private:
    void update()
    {
        const double now = threadMilliseconds();
        m_turns.push_back({now - m_start, m_message, m_session.scanMessage()});
        m_message = m_session.scanMessage();
        m_start = threadMilliseconds();
    }

    const DuplicateViewModel &m_session;
    QObject m_context;
    std::vector<Turn> m_turns;
    double m_start = threadMilliseconds();
    QString m_message;
};

/// Scans a folder.
/// @return all turns, shortest first
std::vector<Turn> turnsOfScan(const QString &folder, QList<Song> &songs)
{
    HeadlessDesktop desktop;
    DuplicateViewModel session(desktop, std::make_shared<EventLoopPauses>(), {Color{}});
    QEventLoop loop;
    QObject::connect(&session, &DuplicateViewModel::isScanningChanged, &loop, &QEventLoop::quit,
                     Qt::QueuedConnection);
    TurnWatch watch(session);
    session.startScan({QUrl::fromLocalFile(folder)});
    while (session.isScanning())
        loop.exec();
    songs = session.songs();
    return watch.take();
}

/// Throws unless the songs that were written are the ones that were read.
void requireSame(const QList<Song> &written, const QList<Song> &read)
{
    const auto isSame = [](const Song &a, const Song &b) {
        return a.path == b.path && a.name == b.name && a.artist == b.artist && a.title == b.title &&
               a.folderName == b.folderName && a.fileType == b.fileType && a.size == b.size &&
               std::abs(a.duration - b.duration) < 1e-6;
    };
    const auto end = std::mismatch(written.begin(), written.end(), read.begin(), read.end(), isSame);
    if (end.first == written.end() && end.second == read.end())
        return;
    const auto textOf = [](const QList<Song> &songs, QList<Song>::const_iterator song) {
        return song == songs.end() ? std::string("nothing")
                                   : song->path.toStdString() + ", " + std::to_string(song->size) +
                                         " bytes, " + std::to_string(song->duration) + " s";
    };
    throw std::runtime_error(
        std::to_string(written.size()) + " songs were written and " + std::to_string(read.size()) +
        " read; the first that differ: " + textOf(written, end.first) + "; " + textOf(read, end.second));
}

void measure(std::size_t songCount)
{
    constexpr double LONGEST_FRAME = 16.0;
    const QTemporaryDir folder;
    if (!folder.isValid())
        throw std::runtime_error("cannot create a temporary folder");
    const QList<Song> written =
        writeLibrary(generateLibrary({.songs = songCount, .root = folder.path()}), LibraryFiles::Linked);
    QList<Song> read;
    const std::vector<Turn> turns = turnsOfScan(folder.path(), read);

    const std::string name = std::to_string(songCount) + " songs, main thread in one turn of its loop, ";
    const auto rank = static_cast<std::size_t>(0.999 * static_cast<double>(turns.size() - 1));
    printGoal((name + "99.9 %").c_str(), turns[rank].length, "ms", LONGEST_FRAME);
    printFigure((name + "longest").c_str(), turns.back().length, "ms");
    std::printf("    from \"%s\"\n    to   \"%s\"\n", qPrintable(turns.back().before),
                qPrintable(turns.back().after));
    std::fflush(stdout);
    requireSame(written, read);
}

} // namespace
} // namespace sonavo

int main(int argc, char **argv)
{
    std::setlocale(LC_ALL, "C.UTF-8");
    qputenv("LC_ALL", "C.UTF-8");
    const QCoreApplication application(argc, argv);
    try {
        for (const std::size_t songs : {std::size_t{10'000}, std::size_t{100'000}, std::size_t{500'000}})
            sonavo::measure(songs);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
