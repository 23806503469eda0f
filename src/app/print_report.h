#pragma once

#include "session/scan_result.h"

#include <QList>
#include <QUrl>

namespace sonavo {

enum class ReportFormat
{
    Text,
    Json,
    /// Comma-separated values.
    Csv
};

/// Scans files and folders and prints a report of their duplicates on standard output. Progress is shown on
/// standard error where that is a terminal; an error is printed there. Runs an event loop meanwhile; to be
/// called on the main thread, with a QCoreApplication.
/// @param items file URLs with absolute paths
/// @return whether a report was printed in full
[[nodiscard]] bool printReport(const QList<QUrl> &items, ReportFormat format, SearchDepth depth);

} // namespace sonavo
