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

/// What is known of a library on disk.
struct Written
{
    std::size_t pathBytes = 0;
    /// Batches of songs that the analysis compares by artist and title.
    std::size_t batches = 0;
};

std::size_t batchesOf(const QList<Song> &songs)
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

Written write(const LibraryPlan &plan, LibraryFiles files)
{
    const QList<Song> songs = writeLibrary(generateLibrary(plan), files);
    Written written;
    for (const Song &song : songs)
        written.pathBytes += static_cast<std::size_t>(song.path.toUtf8().size());
    written.batches = batchesOf(songs);
    return written;
}

int exitStatusOf(int status)
{
    return WIFEXITED(status) ? WEXITSTATUS(status) : EXIT_FAILURE;
}

/// In a process of its own: a program counts the memory of the process that starts it as its own peak.
Written writeElsewhere(const LibraryPlan &plan, LibraryFiles files)
{
    int ends[2];
    if (::pipe(ends) != 0)
        throw std::runtime_error("there is no pipe");
    const pid_t writer = ::fork();
    if (writer == 0) {
        try {
            const Written written = write(plan, files);
            ::_exit(::write(ends[1], &written, sizeof written) == sizeof written ? EXIT_SUCCESS
                                                                                 : EXIT_FAILURE);
        } catch (const std::exception &error) {
            std::fprintf(stderr, "%s\n", error.what());
            ::_exit(EXIT_FAILURE);
        }
    }
    ::close(ends[1]);
    Written written;
    const bool isRead = ::read(ends[0], &written, sizeof written) == sizeof written;
    ::close(ends[0]);
    int status = 0;
    if (writer < 0 || ::waitpid(writer, &status, 0) != writer || exitStatusOf(status) != 0 || !isRead)
        throw std::runtime_error("the library could not be written");
    return written;
}

struct Run
{
    Seconds time;
    /// On all cores together.
    Seconds work;
    /// Bytes of memory at the peak.
    double memory;
};

Seconds secondsOf(const struct timeval &time)
{
    return std::chrono::seconds(time.tv_sec) + std::chrono::microseconds(time.tv_usec);
}

/// Reports the duplicates of a folder and throws the report away.
Run report(const char *program, const std::string &folder)
{
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0) {
        const int nowhere = ::open("/dev/null", O_WRONLY);
        ::dup2(nowhere, STDOUT_FILENO);
        ::dup2(nowhere, STDERR_FILENO);
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

/// The pauses that a scan makes, whatever the machine.
Seconds pausesOf(std::size_t songs, std::size_t batches)
{
    using namespace std::chrono_literals;
    return 200ms + songs / 200 * 10ms + 4 * 100ms + (batches - 1) * 10ms;
}

void measure(const char *program, LibraryPlan plan, LibraryFiles files, int runs)
{
    const QTemporaryDir folder;
    if (!folder.isValid())
        throw std::runtime_error("there is no temporary folder");
    plan.root = folder.path();
    std::fprintf(stderr, "Writing %zu songs\n", plan.songs);
    const Written written = writeElsewhere(plan, files);

    const std::string root = folder.path().toStdString();
    // What has just been written is in memory already; the first run brings the rest.
    if (runs > 1)
        static_cast<void>(report(program, root));
    std::vector<Run> results;
    results.reserve(static_cast<std::size_t>(runs));
    for (int i = 0; i < runs; ++i)
        results.push_back(report(program, root));
    std::sort(results.begin(), results.end(), [](const Run &a, const Run &b) { return a.time < b.time; });
    const Run &median = results[results.size() / 2];
    const double peak = std::max_element(results.begin(), results.end(), [](const Run &a, const Run &b) {
                            return a.memory < b.memory;
                        })->memory;

    const Seconds pauses = pausesOf(plan.songs, written.batches);
    std::printf("%zu %s, paths of %.0f bytes, runs: %d\n", plan.songs,
                files == LibraryFiles::Linked ? "links" : "files",
                static_cast<double>(written.pathBytes) / static_cast<double>(plan.songs), runs);
    std::printf("report, median            %8.3f s (%.3f to %.3f)\n", median.time.count(),
                results.front().time.count(), results.back().time.count());
    std::printf("the pauses of its scan    %8.3f s\n", pauses.count());
    std::printf("report / pauses           %8.3f\n", median.time / pauses);
    std::printf("work of all cores         %8.3f s\n", median.work.count());
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
