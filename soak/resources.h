#pragma once

#include <functional>
#include <vector>

namespace sonavo {

/// Something that a process at rest must not hold more and more of.
class Resource
{
public:
    /// @param read how much of it is held now
    /// @param allowance growth that is no leak; the greater one of this and `share` of what there is
    Resource(const char *name, std::function<double()> read, double allowance, double share = 0.0)
        : m_name(name)
        , m_read(std::move(read))
        , m_allowance(allowance)
        , m_share(share)
    {}

    void measure() { m_values.push_back(m_read()); }
    /// Prints all that was measured and how it has grown from the second quarter to the last, by their
    /// medians; in the first quarter caches fill.
    /// @return whether it has grown by no more than is allowed, or was measured too seldom to tell
    [[nodiscard]] bool isSteady() const;

private:
    [[nodiscard]] double medianOfQuarter(std::size_t quarter) const;

    const char *m_name;
    std::function<double()> m_read;
    double m_allowance;
    double m_share;
    std::vector<double> m_values;
};

/// All memory of this process that is resident, in kB, after what is free has been given back.
[[nodiscard]] double residentMemory();
/// Memory that was allocated and not yet freed, in kB.
[[nodiscard]] double allocatedMemory();
[[nodiscard]] double openFileCount();
[[nodiscard]] double threadCount();

} // namespace sonavo
