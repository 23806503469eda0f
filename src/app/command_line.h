#pragma once

#include "report/print_report.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <span>
#include <variant>

namespace sonavo {

/// Print the duplicates among these files and folders.
struct ReportRequest
{
    /// File URLs with absolute paths.
    QList<QUrl> items;
    ReportFormat format = ReportFormat::Text;
};

/// Open the window.
struct WindowRequest
{
    /// File URLs with absolute paths, to be imported at once; may be empty.
    QList<QUrl> items;
};

/// Print a text that was asked for, the help or the version, and end the program.
struct TextRequest
{
    QString text;
};

/// The arguments make no sense; the text says why.
struct UnusableArguments
{
    QString text;
};

struct CommandLine
{
    std::variant<WindowRequest, ReportRequest, TextRequest, UnusableArguments> request;
    /// Arguments that were skipped, in words for the user.
    QStringList warnings;
};

/// Reads the arguments of the program. Looks at the disk to see which paths exist.
/// @param arguments as main() gets them, the program's name first
[[nodiscard]] CommandLine parseCommandLine(std::span<char *const> arguments);

} // namespace sonavo
