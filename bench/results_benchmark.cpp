#include "bench/bench_window.h"
#include "bench/goal.h"
#include "generators/library_files.h"

#include <QApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

namespace sonavo {
namespace {

constexpr int SONGS_A_GROUP = 3;

/// Every song in three folders, under the same name.
void writeGroups(const QString &root, int groups)
{
    QList<Song> songs;
    for (int copy = 0; copy < SONGS_A_GROUP; ++copy) {
        for (int i = 0; i < groups; ++i) {
            Song song;
            song.name = QStringLiteral("Artist%1 - Title%1.flac").arg(i);
            song.path = QStringLiteral("%1/%2/%3").arg(root).arg(copy).arg(song.name);
            song.fileType = QStringLiteral("FLAC");
            song.duration = 5.0;
            songs.append(song);
        }
    }
    writeLibrary(songs, LibraryFiles::Linked);
}

/// Percentile of some times; sorts them.
double percentile(std::vector<double> &times, double share)
{
    std::sort(times.begin(), times.end());
    return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))];
}

void measure(int groups, int runs, int frames)
{
    const QTemporaryDir folder;
    writeGroups(folder.path(), groups);
    BenchWindow window;
    std::vector<double> firstFrames;
    std::vector<double> slowFrames;
    std::vector<double> medianFrames;
    std::vector<double> keystrokes;
    for (int run = 0; run < runs; ++run) {
        firstFrames.push_back(window.showResults(folder.path()));
        std::vector<double> times = window.scroll(frames);
        medianFrames.push_back(percentile(times, 0.5));
        slowFrames.push_back(percentile(times, 0.99));
        // To no group, through fewer and fewer, and back.
        for (const char *text : {"1", "12", "12 3", "12 3x", "12 3", "12", "1", ""})
            keystrokes.push_back(window.filter(QString::fromLatin1(text)));
    }
    const QString rows = QStringLiteral("%1 rows: ").arg(groups * (SONGS_A_GROUP + 1));
    const auto name = [&rows](const char *figure) { return rows.toStdString() + figure; };
    // A frame of a screen that shows 60 of them a second.
    constexpr double FRAME_GOAL = 16.0;
    printFigure(name("first frame").c_str(), percentile(firstFrames, 0.5), "ms");
    printFigure(name("scrolling, median frame").c_str(), percentile(medianFrames, 0.5), "ms");
    printGoal(name("scrolling, 99th percentile, median of the runs").c_str(), percentile(slowFrames, 0.5),
              "ms", FRAME_GOAL);
    printFigure(name("scrolling, 99th percentile, worst run").c_str(), slowFrames.back(), "ms");
    printGoal(name("keystroke in the filter, 90th percentile").c_str(), percentile(keystrokes, 0.9), "ms",
              FRAME_GOAL);
    printFigure(name("keystroke in the filter, longest").c_str(), keystrokes.back(), "ms");
    printFigure(name("items in the scene").c_str(), static_cast<double>(window.itemCount()), "");
}

} // namespace
} // namespace sonavo

/// Shows results of several sizes in the real window on the software renderer, offscreen. Each figure is the
/// median of the runs; the scroll goes from end to end in a given number of frames.
int main(int argc, char **argv)
{
    sonavo::useOffscreenWindows();
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(settings.path()));
    const QApplication application(argc, argv);
    const int runs = argc > 1 ? std::atoi(argv[1]) : 5;
    constexpr int FRAMES = 600;
    try {
        for (const int groups : {200, 2'000, 20'000})
            sonavo::measure(groups, runs, FRAMES);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "bench_results: %s\n", error.what());
        return 1;
    }
    return 0;
}
