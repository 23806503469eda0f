#include "analysis/duplicate_finder.h"
#include "bench/bench_window.h"
#include "bench/cold_reading.h"
#include "bench/goal.h"
#include "bench/song_files.h"
#include "generators/library_files.h"
#include "generators/library_generator.h"
#include "import/song_reading.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <malloc.h>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sonavo {
namespace {

using Seconds = std::chrono::duration<double>;

/// Figures of a library on disk.
struct LibraryStats
{
    std::size_t songs = 0;
    /// Length of all paths together, in bytes.
    std::size_t pathBytes = 0;
    /// Batches of songs that the analysis compares by artist and title.
    std::size_t batches = 0;
};

std::size_t countBatches(const QList<Song> &songs)
{
    DuplicateFinder finder(songs);
    finder.groupByTitle();
    finder.groupByFileName();
    finder.prepareBatches();
    std::size_t batches = 1;
    while (finder.groupNextBatchByArtistAndTitle() == DuplicateFinder::Batches::MoreToCome)
        ++batches;
    return batches;
}

LibraryStats statsOf(const QList<Song> &songs)
{
    LibraryStats stats;
    for (const Song &song : songs)
        stats.pathBytes += static_cast<std::size_t>(song.path.toUtf8().size());
    stats.songs = static_cast<std::size_t>(songs.size());
    stats.batches = countBatches(songs);
    return stats;
}

QList<Song> load(const QStringList &paths)
{
    QList<Song> songs;
    for (const QString &path : paths) {
        if (std::optional<Song> song = loadSong(path))
            songs.append(std::move(*song));
    }
    return songs;
}

int exitStatusOf(int status)
{
    return WIFEXITED(status) ? WEXITSTATUS(status) : EXIT_FAILURE;
}

/// Writes a library in a process of its own: peak memory is inherited from the process that starts a program.
LibraryStats writeInChildProcess(const std::function<QList<Song>()> &write)
{
    int ends[2];
    if (::pipe(ends) != 0)
        throw std::runtime_error("cannot create a pipe");
    const pid_t writer = ::fork();
    if (writer == 0) {
        try {
            const LibraryStats stats = statsOf(write());
            ::_exit(::write(ends[1], &stats, sizeof stats) == sizeof stats ? EXIT_SUCCESS : EXIT_FAILURE);
        } catch (const std::exception &error) {
            std::fprintf(stderr, "%s\n", error.what());
            ::_exit(EXIT_FAILURE);
        }
    }
    ::close(ends[1]);
    LibraryStats stats;
    const bool isComplete = ::read(ends[0], &stats, sizeof stats) == sizeof stats;
    ::close(ends[0]);
    int status = 0;
    if (writer < 0 || ::waitpid(writer, &status, 0) != writer || exitStatusOf(status) != 0 || !isComplete)
        throw std::runtime_error("the library could not be written");
    return stats;
}

struct Run
{
    /// From the start of the program to its end.
    Seconds time;
    /// Of the scan in a window, from its start to the frame that shows its groups; else the same.
    Seconds scanTime;
    /// Of all threads together.
    Seconds cpuTime;
    /// Peak resident memory in bytes.
    double peakMemory;
};

Seconds secondsOf(const struct timeval &time)
{
    return std::chrono::seconds(time.tv_sec) + std::chrono::microseconds(time.tv_usec);
}

/// What a program writes, to its end.
std::string readAll(int output)
{
    std::string text;
    char buffer[4096];
    for (ssize_t count = 0; (count = ::read(output, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(count));
    return text;
}

/// Runs a program to its end.
/// @param option "--report", or "window" for this program, which writes the seconds that the scan takes
Run run(const char *program, const char *option, const std::string &folder)
{
    int ends[2];
    if (::pipe(ends) != 0)
        throw std::runtime_error("cannot create a pipe");
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        const int devNull = ::open("/dev/null", O_WRONLY);
        ::dup2(ends[1], STDOUT_FILENO);
        ::dup2(devNull, STDERR_FILENO);
        ::close(ends[0]);
        ::close(ends[1]);
        ::execl(program, program, option, folder.c_str(), nullptr);
        ::_exit(EXIT_FAILURE);
    }
    ::close(ends[1]);
    const std::string output = readAll(ends[0]);
    ::close(ends[0]);
    int status = 0;
    struct rusage usage = {};
    if (child < 0 || ::wait4(child, &status, 0, &usage) != child || exitStatusOf(status) != 0)
        throw std::runtime_error(std::string(program) + " failed");
    const Seconds time = std::chrono::steady_clock::now() - start;
    const Seconds scanTime = option[0] == '-' ? time : Seconds(std::strtod(output.c_str(), nullptr));
    return {time, scanTime, secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss) * 1024.0};
}

/// The pauses of a scan, which do not depend on the machine.
Seconds pausesOf(std::size_t songs, std::size_t batches)
{
    using namespace std::chrono_literals;
    return 200ms + songs / 200 * 10ms + 4 * 100ms + (batches - 1) * 10ms;
}

/// Runs a program several times; a first run warms up the caches.
std::vector<Run> runSorted(const char *program, const char *option, const std::string &folder)
{
    constexpr int RUNS = 3;
    std::vector<Run> runs;
    for (int i = 0; i <= RUNS; ++i)
        runs.push_back(run(program, option, folder));
    runs.erase(runs.begin());
    std::sort(runs.begin(), runs.end(), [](const Run &a, const Run &b) { return a.scanTime < b.scanTime; });
    return runs;
}

struct Library
{
    std::string name;
    /// Writes it into a folder.
    std::function<QList<Song>(const QString &folder)> write;
    /// Times the pauses.
    double goal = 0.0;
    /// Megabytes.
    std::optional<double> memoryGoal;
};

void measure(const char *program, const char *option, const Library &library, const QString &folder,
             const LibraryStats &stats)
{
    const Seconds pauses = pausesOf(stats.songs, stats.batches);
    const std::vector<Run> runs = runSorted(program, option, folder.toStdString());
    const Run &median = runs[runs.size() / 2];
    const std::string name = library.name + ", " + (option[0] == '-' ? "report" : option);
    printFigure((name + ", CPU time of all cores").c_str(), median.cpuTime.count(), "s");
    if (median.time > median.scanTime) {
        const Seconds rest = median.time - median.scanTime;
        printFigure((name + ", start and end of the program").c_str(), rest.count(), "s");
    }
    printFigure((name + ", median").c_str(), median.scanTime.count(), "s");
    printGoal((name + " / its pauses").c_str(), median.scanTime / pauses, "", library.goal);
    if (library.memoryGoal) {
        const auto isLess = [](const Run &a, const Run &b) { return a.peakMemory < b.peakMemory; };
        const double peak = std::max_element(runs.begin(), runs.end(), isLess)->peakMemory;
        const std::string what = name + ", peak memory";
        // The goal is the report's.
        if (option[0] == '-')
            printGoal(what.c_str(), peak / 1e6, "MB", *library.memoryGoal);
        else
            printFigure(what.c_str(), peak / 1e6, "MB");
    }
}

/// The report, and the window where memory does not matter.
void measure(const char *program, const Library &library)
{
    const QTemporaryDir folder;
    const QString music = folder.filePath(QStringLiteral("music"));
    if (!folder.isValid() || !QDir().mkpath(music))
        throw std::runtime_error("cannot create a temporary folder");
    std::fprintf(stderr, "Writing %s\n", library.name.c_str());
    const LibraryStats stats = writeInChildProcess([&] { return library.write(music); });
    std::printf("%s: paths of %.0f bytes, pauses of %.2f s\n", library.name.c_str(),
                static_cast<double>(stats.pathBytes) / static_cast<double>(stats.songs),
                pausesOf(stats.songs, stats.batches).count());
    measure(program, "--report", library, music, stats);
    measure("/proc/self/exe", "window", library, music, stats);
}

Library linkedLibrary(const std::string &name, std::size_t songs, const QList<SongKind> &kinds, double goal)
{
    return {std::to_string(songs) + ' ' + name,
            [=](const QString &folder) {
                const QList<Song> names = generateLibrary({.songs = songs, .root = folder});
                return load(linkSongs(names, QFileInfo(folder).path(), kinds));
            },
            goal, std::nullopt};
}

Library smallLibrary(std::size_t songs)
{
    return {std::to_string(songs) + " small files",
            [songs](const QString &folder) {
                return writeLibrary(generateLibrary({.songs = songs, .root = folder, .pathLength = 100}),
                                    LibraryFiles::Linked);
            },
            1.15, 400.0};
}

/// Reads separate files of 4 MB from the disk.
void measureCold(int argc, char **argv)
{
    constexpr int FILES = 400;
    constexpr double GOAL = 1.1;
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QStringList links =
        linkSongs(generateLibrary({.songs = FILES, .root = folder.path() + QStringLiteral("/links")}),
                  folder.path(), allKinds());
    QStringList files;
    for (const QString &link : links) {
        files +=
            QStringLiteral("%1/%2.%3").arg(folder.path()).arg(files.size()).arg(QFileInfo(link).suffix());
        if (!QFile::copy(link, files.back()))
            throw std::runtime_error("cannot copy " + link.toStdString());
    }
    const ColdTimes times = measureColdReading(files);
    printFigure("400 files of all kinds, cold, reading", times.reading, "s");
    printGoal("400 files of all kinds, cold / reading the same bytes", times.reading / times.sameBytes, "",
              GOAL);
    printFigure("400 files of all kinds, cold, unchanged since the last scan", times.known, "s");
}

void showInWindow(int argc, char **argv, const char *folder)
{
    // As the program does.
    constexpr int LARGE_BLOCK = 128 * 1024;
    ::mallopt(M_MMAP_THRESHOLD, LARGE_BLOCK);
    useOffscreenWindows();
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(settings.path()));
    const QApplication application(argc, argv);
    BenchWindow window;
    const auto start = std::chrono::steady_clock::now();
    window.showResults(QFile::decodeName(folder));
    std::printf("%f\n", Seconds(std::chrono::steady_clock::now() - start).count());
}

} // namespace
} // namespace sonavo

int main(int argc, char **argv)
{
    using namespace sonavo;
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    const std::string_view kind = arguments.size() > 1 ? arguments[1] : "";
    if (arguments.size() != 3 ||
        (kind != "import" && kind != "memory" && kind != "cold" && kind != "window")) {
        std::fprintf(stderr, "usage: bench_import import|memory|cold PROGRAM\n");
        return EXIT_FAILURE;
    }
    try {
        if (kind == "window") {
            showInWindow(argc, argv, arguments[2]);
        } else if (kind == "cold") {
            measureCold(argc, argv);
        } else if (kind == "memory") {
            measure(arguments[2], smallLibrary(500'000));
        } else {
            measure(arguments[2], linkedLibrary("files of all kinds", 100'000, allKinds(), 1.25));
            measure(arguments[2], linkedLibrary("old MP3s", 10'000, {SongKind::OldMp3}, 1.15));
        }
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
