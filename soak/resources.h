#pragma once

#include <functional>
#include <vector>

namespace sonavo {

/// Something that a process at rest must not hold more and more of.
struct Resource
{
    const char *name;
    /// How much of it is held now.
    std::function<double()> read;
    /// Growth that is no leak; the greater one of this and `share` of what there is.
    double allowance;
    double share = 0.0;
    std::vector<double> values{};

    void measure() { values.push_back(read()); }
    /// Prints the values and their growth from the second quarter to the last, by medians; caches fill in the
    /// first.
    /// @return whether it grew by no more than is allowed, or was measured too seldom to tell
    [[nodiscard]] bool isSteady() const;
};

/// All memory of this process that is resident, in kB, after what is free has been given back.
[[nodiscard]] double residentMemory();
/// Memory that was allocated and not yet freed, in kB.
[[nodiscard]] double allocatedMemory();
[[nodiscard]] double openFileCount();
[[nodiscard]] double threadCount();

} // namespace sonavo
