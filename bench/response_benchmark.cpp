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

/// A time for which the event loop was blocked.
struct Gap
{
    /// Milliseconds.
    double length = 0.0;
    /// The scan's message before and after it.
    QString before;
    QString after;
};

/// Scans a folder and finds the longest time between two timeouts of a timer of one millisecond.
Gap longestGap(const QString &folder, QList<Song> &songs)
{
    HeadlessDesktop desktop;
    DuplicateViewModel session(desktop, std::make_shared<EventLoopPauses>(), {Color{}});
    Gap longest;
    QString lastMessage;
    QElapsedTimer sinceTimeout;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    const auto updateGap = [&] {
        const double length = static_cast<double>(sinceTimeout.nsecsElapsed()) / 1e6;
        if (length > longest.length)
            longest = {length, lastMessage, session.scanMessage()};
        lastMessage = session.scanMessage();
        sinceTimeout.start();
    };
    QObject::connect(&timer, &QTimer::timeout, &timer, updateGap);

    QEventLoop loop;
    QObject::connect(&session, &DuplicateViewModel::isScanningChanged, &loop, &QEventLoop::quit,
                     Qt::QueuedConnection);
    sinceTimeout.start();
    timer.start(1);
    session.startScan({QUrl::fromLocalFile(folder)});
    while (session.isScanning())
        loop.exec();
    updateGap();
    songs = session.songs();
    return longest;
}

/// Throws unless the songs that were written are the ones that were read.
void requireSame(const QList<Song> &written, const QList<Song> &read)
{
    const auto isSame = [](const Song &a, const Song &b) {
        return a.path == b.path && a.name == b.name && a.artist == b.artist && a.title == b.title &&
               a.folderName == b.folderName && a.fileType == b.fileType && a.size == b.size &&
               std::abs(a.duration - b.duration) < 1e-6;
    };
    if (!std::equal(written.begin(), written.end(), read.begin(), read.end(), isSame))
        throw std::runtime_error("the songs that were read differ from those that were written");
}

void measure(std::size_t songCount, std::size_t runs)
{
    const QTemporaryDir folder;
    if (!folder.isValid())
        throw std::runtime_error("cannot create a temporary folder");
    const QList<Song> written =
        writeLibrary(generateLibrary({.songs = songCount, .root = folder.path()}), LibraryFiles::Linked);

    std::vector<Gap> gaps;
    for (std::size_t run = 0; run < runs; ++run) {
        QList<Song> read;
        gaps.push_back(longestGap(folder.path(), read));
        if (run == 0)
            requireSame(written, read);
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
        std::printf("longest time for which a scan blocks the event loop, median\n");
        sonavo::measure(10'000, 9);
        sonavo::measure(100'000, 5);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
