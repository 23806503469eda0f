#include "analysis/find_further.h"
#include "bench/direct_finder.h"
#include "bench/goal.h"
#include "generators/library_generator.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace sonavo {
namespace {

using Seconds = std::chrono::duration<double>;

enum class Way
{
    Fast,
    Direct,
    Further
};

struct Case
{
    const char *name;
    LibraryKind kind;
    std::size_t songs;
    Way way;
    int iterations;
};

constexpr std::size_t SMALL = 10'000;
constexpr std::size_t MIDDLE = 100'000;
constexpr std::size_t LARGE = 500'000;

// Cases of one library stand together, so that only one library is held at a time.
constexpr Case CASES[] = {
    {"realistic, 10,000 songs, further", LibraryKind::Realistic, SMALL, Way::Further, 25},
    {"realistic, 10,000 songs", LibraryKind::Realistic, SMALL, Way::Fast, 25},
    {"realistic, 100,000 songs", LibraryKind::Realistic, MIDDLE, Way::Fast, 9},
    {"realistic, 100,000 songs, further", LibraryKind::Realistic, MIDDLE, Way::Further, 9},
    {"realistic, 100,000 songs, direct", LibraryKind::Realistic, MIDDLE, Way::Direct, 1},
    {"realistic, 500,000 songs", LibraryKind::Realistic, LARGE, Way::Fast, 5},
    {"realistic, 500,000 songs, further", LibraryKind::Realistic, LARGE, Way::Further, 5},
    {"numbered tracks, 500,000 songs", LibraryKind::NumberedTracks, LARGE, Way::Fast, 3},
    {"numbered tracks, 500,000 songs, further", LibraryKind::NumberedTracks, LARGE, Way::Further, 3},
    {"one artist, 500,000 songs", LibraryKind::OneArtist, LARGE, Way::Fast, 3},
    {"one artist, 500,000 songs, further", LibraryKind::OneArtist, LARGE, Way::Further, 3},
    {"the same ten seconds, 500,000 songs", LibraryKind::TenSeconds, LARGE, Way::Fast, 3},
    {"the same ten seconds, 500,000 songs, further", LibraryKind::TenSeconds, LARGE, Way::Further, 3},
};

struct Result
{
    std::vector<Seconds> times;
    QList<DuplicateGroup> groups;

    [[nodiscard]] double median() const
    {
        std::vector<Seconds> sorted = times;
        std::sort(sorted.begin(), sorted.end());
        return sorted[sorted.size() / 2].count();
    }
};

/// By index in CASES.
std::map<std::size_t, Result> &results()
{
    static std::map<std::size_t, Result> results;
    return results;
}

/// The library of a case; the last one is kept.
const QList<Song> &libraryOf(const Case &which)
{
    static std::optional<std::pair<LibraryKind, std::size_t>> made;
    static QList<Song> library;
    const std::pair wanted(which.kind, which.songs);
    if (made != wanted) {
        library = {};
        library = generateLibrary({.songs = which.songs, .kind = which.kind});
        made = wanted;
    }
    return library;
}

/// From the songs to their groups, as the program does it but without its pauses.
template <typename Finder>
Seconds run(const QList<Song> &songs, QList<DuplicateGroup> &groups)
{
    const auto start = std::chrono::steady_clock::now();
    {
        Finder finder(songs);
        groups = groupsOf(finder);
    }
    return std::chrono::steady_clock::now() - start;
}

Seconds runFurther(const QList<Song> &songs, QList<DuplicateGroup> &groups)
{
    const auto start = std::chrono::steady_clock::now();
    groups = findFurther(songs, {}, [](double) {}).value_or(QList<DuplicateGroup>());
    return std::chrono::steady_clock::now() - start;
}

Seconds runWay(Way way, const QList<Song> &songs, QList<DuplicateGroup> &groups)
{
    switch (way) {
    case Way::Fast:
        return run<DuplicateFinder>(songs, groups);
    case Way::Direct:
        return run<DirectFinder>(songs, groups);
    case Way::Further:
        break;
    }
    return runFurther(songs, groups);
}

void runCase(benchmark::State &state, std::size_t index)
{
    const Case &which = CASES[index];
    const QList<Song> &songs = libraryOf(which);
    Result result;
    for ([[maybe_unused]] auto iteration : state) {
        result.groups = {};
        const Seconds time = runWay(which.way, songs, result.groups);
        state.SetIterationTime(time.count());
        result.times.push_back(time);
    }
    state.counters["groups"] = static_cast<double>(result.groups.size());
    results()[index] = std::move(result);
}

bool areEqual(const QList<DuplicateGroup> &a, const QList<DuplicateGroup> &b)
{
    const auto isSameSong = [](const Song &left, const Song &right) { return left.id == right.id; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](const DuplicateGroup &left, const DuplicateGroup &right) {
                          return isSameSong(left.original, right.original) && left.color == right.color &&
                                 std::equal(left.duplicates.begin(), left.duplicates.end(),
                                            right.duplicates.begin(), right.duplicates.end(), isSameSong);
                      });
}

const Result *find(LibraryKind kind, std::size_t songs, Way way)
{
    for (const auto &[index, result] : results()) {
        const Case &which = CASES[index];
        if (which.kind == kind && which.songs == songs && which.way == way)
            return &result;
    }
    return nullptr;
}

double ratioOf(const Result *dividend, const Result *divisor)
{
    return dividend->median() / divisor->median();
}

void printRatio(const char *name, const Result *dividend, const Result *divisor)
{
    if (dividend && divisor)
        printFigure(name, ratioOf(dividend, divisor), "times");
}

/// @return whether the direct and the fast way found the same groups, as far as both were run
bool printSummary()
{
    std::printf("\n%-46s %12s %12s\n", "analysis without pauses", "seconds", "groups");
    for (const auto &[index, result] : results())
        std::printf("%-46s %12.4f %12lld\n", CASES[index].name, result.median(),
                    static_cast<long long>(result.groups.size()));

    const Result *middle = find(LibraryKind::Realistic, MIDDLE, Way::Fast);
    const Result *direct = find(LibraryKind::Realistic, MIDDLE, Way::Direct);
    const Result *large = find(LibraryKind::Realistic, LARGE, Way::Fast);
    std::printf("\n");
    if (direct && middle)
        printGoalAtLeast("direct / fast, 100,000 songs", ratioOf(direct, middle), "times", 200.0);
    if (large)
        printGoal("500,000 songs", large->median(), "s", 1.2);
    if (large && middle)
        printGoal("500,000 songs / 100,000 songs", ratioOf(large, middle), "times", 6.0);
    printRatio("further / the four passes, 500,000 songs", find(LibraryKind::Realistic, LARGE, Way::Further),
               large);
    for (const auto &[kind, name] : {std::pair(LibraryKind::NumberedTracks, "numbered tracks"),
                                     std::pair(LibraryKind::OneArtist, "one artist"),
                                     std::pair(LibraryKind::TenSeconds, "the same ten seconds")})
        printRatio((std::string(name) + " / realistic, 500,000 songs").c_str(), find(kind, LARGE, Way::Fast),
                   large);
    if (!direct || !middle)
        return true;
    const bool isSame = areEqual(direct->groups, middle->groups);
    std::printf("\ndirect and fast found %s groups\n", isSame ? "the same" : "DIFFERENT");
    return isSame;
}

} // namespace
} // namespace sonavo

int main(int argc, char **argv)
{
    for (std::size_t i = 0; i < std::size(sonavo::CASES); ++i) {
        benchmark::RegisterBenchmark(sonavo::CASES[i].name,
                                     [i](benchmark::State &state) { sonavo::runCase(state, i); })
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond)
            ->Iterations(sonavo::CASES[i].iterations);
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return EXIT_FAILURE;
    benchmark::RunSpecifiedBenchmarks();
    return sonavo::printSummary() ? EXIT_SUCCESS : EXIT_FAILURE;
}
