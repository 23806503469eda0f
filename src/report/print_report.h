#pragma once

#include <QList>
#include <QUrl>

namespace sonavo {

enum class ReportFormat
{
    Text,
    Json
};

/// How duplicates are looked for.
enum class SearchDepth
{
    /// By the four passes of a scan.
    FourPasses,
    /// By comparing every song with every other (see findFurther()).
    Further
};

/// Scans files and folders and prints a report of their duplicates on standard output. Progress is shown on
/// standard error where that is a terminal; an error is printed there. Runs an event loop meanwhile; to be
/// called on the main thread, with a QCoreApplication.
/// @param items file URLs with absolute paths
/// @return whether a report was printed in full
[[nodiscard]] bool printReport(const QList<QUrl> &items, ReportFormat format, SearchDepth depth);

} // namespace sonavo
