#pragma once

#include <cstdio>

namespace sonavo {

/// Prints a figure that has no goal, in one line.
inline void printFigure(const char *name, double value, const char *unit)
{
    std::printf("%-60s %10.4g %s\n", name, value, unit);
    std::fflush(stdout);
}

/// Prints a figure with its goal beside it, in one line. scripts/bench.sh collects the lines that end in
/// "MISSED".
/// @param goal the most that the figure may be
inline void printGoal(const char *name, double value, const char *unit, double goal)
{
    std::printf("%-60s %10.4g %-6s goal %8.4g   %s\n", name, value, unit, goal,
                value <= goal ? "met" : "MISSED");
    std::fflush(stdout);
}

/// The same for a figure of which only the beginning is known, since what was measured was ended: missed.
/// @param least what it came to until then
inline void printUnfinished(const char *name, double least, const char *unit, double goal)
{
    std::printf("%-60s >%9.4g %-6s goal %8.4g   MISSED\n", name, least, unit, goal);
    std::fflush(stdout);
}

/// The same for a figure that should be large.
/// @param goal the least that the figure may be
inline void printGoalAtLeast(const char *name, double value, const char *unit, double goal)
{
    std::printf("%-60s %10.4g %-6s goal %8.4g+  %s\n", name, value, unit, goal,
                value >= goal ? "met" : "MISSED");
    std::fflush(stdout);
}

} // namespace sonavo
