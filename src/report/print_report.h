#pragma once

#include <QList>
#include <QUrl>

namespace sonavo {

enum class ReportFormat
{
    Text,
    Json
};

/// Scans files and folders, shows progress on a terminal, prints the report on standard output and the reason
/// for a missing one on standard error. Runs the event loop meanwhile; needs a QCoreApplication.
/// @param items file URLs with absolute paths
/// @return whether a report was printed in full
[[nodiscard]] bool printReport(const QList<QUrl> &items, ReportFormat format);

} // namespace sonavo
