#include "analysis/duplicate_finder.h"
#include "generators/library_files.h"
#include "generators/library_generator.h"

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
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace sonavo {
namespace {

using Seconds = std::chrono::duration<double>;

/// Figures of a library on disk.
struct LibraryStats
{
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

LibraryStats write(const LibraryPlan &plan, LibraryFiles files)
{
    const QList<Song> songs = writeLibrary(generateLibrary(plan), files);
    LibraryStats stats;
    for (const Song &song : songs)
        stats.pathBytes += static_cast<std::size_t>(song.path.toUtf8().size());
    stats.batches = countBatches(songs);
    return stats;
}

int exitStatusOf(int status)
{
    return WIFEXITED(status) ? WEXITSTATUS(status) : EXIT_FAILURE;
}

/// Writes a library in a process of its own: peak memory is inherited from the process that starts a program.
LibraryStats writeInChildProcess(const LibraryPlan &plan, LibraryFiles files)
{
    int ends[2];
    if (::pipe(ends) != 0)
        throw std::runtime_error("cannot create a pipe");
    const pid_t writer = ::fork();
    if (writer == 0) {
        try {
            const LibraryStats stats = write(plan, files);
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
    Seconds time;
    /// Of all threads together.
    Seconds cpuTime;
    /// Peak resident memory in bytes.
    double peakMemory;
};

Seconds secondsOf(const struct timeval &time)
{
    return std::chrono::seconds(time.tv_sec) + std::chrono::microseconds(time.tv_usec);
}

/// Runs the program's report on a folder, without its output.
Run runReport(const char *program, const std::string &folder)
{
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        const int devNull = ::open("/dev/null", O_WRONLY);
        ::dup2(devNull, STDOUT_FILENO);
        ::dup2(devNull, STDERR_FILENO);
        ::execl(program, program, "--report", folder.c_str(), nullptr);
        ::_exit(EXIT_FAILURE);
    }
    int status = 0;
    struct rusage usage = {};
    if (child < 0 || ::wait4(child, &status, 0, &usage) != child || exitStatusOf(status) != 0)
        throw std::runtime_error(std::string(program) + " failed");
    const Seconds time = std::chrono::steady_clock::now() - start;
    return {time, secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss) * 1024.0};
}

/// The pauses of a scan, which do not depend on the machine.
Seconds pausesOf(std::size_t songs, std::size_t batches)
{
    using namespace std::chrono_literals;
    return 200ms + songs / 200 * 10ms + 4 * 100ms + (batches - 1) * 10ms;
}

void measure(const char *program, LibraryPlan plan, LibraryFiles files, int runs)
{
    const QTemporaryDir folder;
    if (!folder.isValid())
        throw std::runtime_error("cannot create a temporary folder");
    plan.root = folder.path();
    std::fprintf(stderr, "Writing %zu songs\n", plan.songs);
    const LibraryStats stats = writeInChildProcess(plan, files);

    const std::string root = folder.path().toStdString();
    // A first run warms up the caches.
    if (runs > 1)
        static_cast<void>(runReport(program, root));
    std::vector<Run> results;
    results.reserve(static_cast<std::size_t>(runs));
    for (int i = 0; i < runs; ++i)
        results.push_back(runReport(program, root));
    std::sort(results.begin(), results.end(), [](const Run &a, const Run &b) { return a.time < b.time; });
    const Run &median = results[results.size() / 2];
    const double peak = std::max_element(results.begin(), results.end(), [](const Run &a, const Run &b) {
                            return a.peakMemory < b.peakMemory;
                        })->peakMemory;

    const Seconds pauses = pausesOf(plan.songs, stats.batches);
    std::printf("%zu %s, paths of %.0f bytes, runs: %d\n", plan.songs,
                files == LibraryFiles::Linked ? "links" : "files",
                static_cast<double>(stats.pathBytes) / static_cast<double>(plan.songs), runs);
    std::printf("report, median            %8.3f s (%.3f to %.3f)\n", median.time.count(),
                results.front().time.count(), results.back().time.count());
    std::printf("the pauses of its scan    %8.3f s\n", pauses.count());
    std::printf("report / pauses           %8.3f\n", median.time / pauses);
    std::printf("CPU time of all cores     %8.3f s\n", median.cpuTime.count());
    std::printf("peak resident memory      %8.1f MB\n", peak / 1e6);
}

} // namespace
} // namespace sonavo

int main(int argc, char **argv)
{
    using namespace sonavo;
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    const std::string_view kind = arguments.size() > 1 ? arguments[1] : "";
    if (arguments.size() < 3 || arguments.size() > 4 || (kind != "import" && kind != "memory")) {
        std::fprintf(stderr, "usage: bench_import import|memory PROGRAM [SONGS]\n");
        return EXIT_FAILURE;
    }
    try {
        const std::optional<std::size_t> songs =
            arguments.size() > 3 ? std::optional(std::stoul(arguments[3])) : std::nullopt;
        if (kind == "import")
            measure(arguments[2], {.songs = songs.value_or(100'000)}, LibraryFiles::Separate, 5);
        else
            measure(arguments[2], {.songs = songs.value_or(500'000), .pathLength = 100}, LibraryFiles::Linked,
                    1);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
