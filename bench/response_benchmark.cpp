#include "actions/headless_desktop.h"
#include "generators/library_files.h"
#include "generators/library_generator.h"
#include "session/duplicate_view_model.h"
#include "session/event_loop_pauses.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <vector>

namespace sonavo {
namespace {

/// The longest time for which the event loop did not turn.
struct Gap
{
    /// Milliseconds.
    double length = 0.0;
    /// What the scan said before and after.
    QString before;
    QString after;
};

/// Scans a folder once, with a timer that is due every millisecond: what comes between two of its calls keeps
/// the event loop from turning.
Gap longestGap(const QString &folder, QList<Song> &songs)
{
    HeadlessDesktop desktop;
    DuplicateViewModel session(desktop, std::make_shared<EventLoopPauses>(), {Color{}});
    Gap longest;
    QString lastMessage;
    QElapsedTimer sinceTurn;
    QTimer turns;
    turns.setTimerType(Qt::PreciseTimer);
    const auto turn = [&] {
        const double length = static_cast<double>(sinceTurn.nsecsElapsed()) / 1e6;
        if (length > longest.length)
            longest = {length, lastMessage, session.scanMessage()};
        lastMessage = session.scanMessage();
        sinceTurn.start();
    };
    QObject::connect(&turns, &QTimer::timeout, &turns, turn);

    QEventLoop loop;
    QObject::connect(&session, &DuplicateViewModel::isScanningChanged, &loop, &QEventLoop::quit,
                     Qt::QueuedConnection);
    sinceTurn.start();
    turns.start(1);
    session.startScan({QUrl::fromLocalFile(folder)});
    while (session.isScanning())
        loop.exec();
    turn();
    songs = session.songs();
    return longest;
}

/// The songs that were written are the ones that must be read.
void compare(const QList<Song> &written, const QList<Song> &read)
{
    const auto isSame = [](const Song &a, const Song &b) {
        return a.path == b.path && a.name == b.name && a.artist == b.artist && a.title == b.title &&
               a.folderName == b.folderName && a.fileType == b.fileType && a.size == b.size &&
               std::abs(a.duration - b.duration) < 1e-6;
    };
    if (!std::equal(written.begin(), written.end(), read.begin(), read.end(), isSame))
        throw std::runtime_error("the library was not read as it was written");
}

void measure(std::size_t songCount, std::size_t runs)
{
    const QTemporaryDir folder;
    if (!folder.isValid())
        throw std::runtime_error("there is no temporary folder");
    const QList<Song> written =
        writeLibrary(generateLibrary({.songs = songCount, .root = folder.path()}), LibraryFiles::Linked);

    std::vector<Gap> gaps;
    for (std::size_t run = 0; run < runs; ++run) {
        QList<Song> read;
        gaps.push_back(longestGap(folder.path(), read));
        if (run == 0)
            compare(written, read);
    }
    std::sort(gaps.begin(), gaps.end(), [](const Gap &a, const Gap &b) { return a.length < b.length; });
    const Gap &median = gaps[gaps.size() / 2];
    std::printf("%8zu songs: %.1f ms (%.1f to %.1f in %zu runs)\n    from \"%s\"\n    to   \"%s\"\n",
                songCount, median.length, gaps.front().length, gaps.back().length, runs,
                qPrintable(median.before), qPrintable(median.after));
    std::fflush(stdout);
}

} // namespace
} // namespace sonavo

int main(int argc, char **argv)
{
    std::setlocale(LC_ALL, "C.UTF-8");
    qputenv("LC_ALL", "C.UTF-8");
    const QCoreApplication application(argc, argv);
    try {
        std::printf("longest time that the event loop of a scan does not turn, median\n");
        sonavo::measure(10'000, 9);
        sonavo::measure(100'000, 5);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
