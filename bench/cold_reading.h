#pragma once

#include <QStringList>

namespace sonavo {

/// Seconds that reading files takes after the disk cache was emptied.
struct ColdTimes
{
    /// Of the program's reading ahead.
    double reading = 0.0;
    /// Of reading the same pages with as many threads.
    double sameBytes = 0.0;
    /// Of the program's reading ahead when all files are known.
    double known = 0.0;
};

/// Measures cold reading. Needs a QCoreApplication, and the right to empty the disk cache: throws
/// std::runtime_error without it.
[[nodiscard]] ColdTimes measureColdReading(const QStringList &files);

} // namespace sonavo
