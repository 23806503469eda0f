#include "soak/resources.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <malloc.h>

namespace sonavo {
namespace {

double entryCount(const char *folder)
{
    using std::filesystem::directory_iterator;
    return static_cast<double>(std::distance(directory_iterator(folder), directory_iterator()));
}

double medianOfQuarter(const std::vector<double> &values, std::size_t quarter)
{
    const auto begin = [&](std::size_t index) {
        return values.begin() + static_cast<std::ptrdiff_t>(values.size() * index / 4);
    };
    std::vector<double> sorted(begin(quarter), begin(quarter + 1));
    std::sort(sorted.begin(), sorted.end());
    return sorted.empty() ? 0.0 : sorted[sorted.size() / 2];
}

} // namespace

bool Resource::isSteady() const
{
    constexpr std::size_t FEWEST = 8;
    const double before = medianOfQuarter(values, 1);
    const double growth = medianOfQuarter(values, 3) - before;
    const double allowed = std::max(allowance, share * before);
    const char *verdict = values.size() < FEWEST ? "too few to tell"
                          : growth <= allowed    ? "steady"
                                                 : "IT GROWS";
    std::printf("%s: %+.0f, at most %+.0f: %s\n   ", name, growth, allowed, verdict);
    for (const double value : values)
        std::printf(" %.0f", value);
    std::printf("\n");
    return growth <= allowed || values.size() < FEWEST;
}

double residentMemory()
{
    ::malloc_trim(0);
    double size = 0.0;
    double resident = 0.0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    return resident * static_cast<double>(::sysconf(_SC_PAGESIZE)) / 1024;
}

double allocatedMemory()
{
    const auto heap = ::mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd) / 1024;
}

double openFileCount()
{
    return entryCount("/proc/self/fd");
}

double threadCount()
{
    return entryCount("/proc/self/task");
}

} // namespace sonavo
