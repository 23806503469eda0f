#include "soak/resources.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <malloc.h>

namespace sonavo {
namespace {

double entryCount(const char *folder)
{
    using std::filesystem::directory_iterator;
    return static_cast<double>(std::distance(directory_iterator(folder), directory_iterator()));
}

} // namespace

bool Resource::isSteady() const
{
    constexpr std::size_t FEWEST = 8;
    if (m_values.size() < FEWEST) {
        std::printf("%s: measured too seldom to tell, %.0f at last\n", m_name,
                    m_values.empty() ? 0.0 : m_values.back());
        return true;
    }
    const double before = medianOfQuarter(1);
    const double growth = medianOfQuarter(3) - before;
    const double allowed = std::max(m_allowance, m_share * before);
    std::printf("%s: %.0f in the second quarter, %+.0f in the last, at most %+.0f: %s\n   ", m_name, before,
                growth, allowed, growth <= allowed ? "steady" : "IT GROWS");
    for (const double value : m_values)
        std::printf(" %.0f", value);
    std::printf("\n");
    return growth <= allowed;
}

double Resource::medianOfQuarter(std::size_t quarter) const
{
    const auto begin = [&](std::size_t place) {
        return m_values.begin() + static_cast<std::ptrdiff_t>(m_values.size() * place / 4);
    };
    std::vector<double> values(begin(quarter), begin(quarter + 1));
    std::sort(values.begin(), values.end());
    return values.empty() ? 0.0 : values[values.size() / 2];
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
