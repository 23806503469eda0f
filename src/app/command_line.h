#pragma once

#include "app/print_report.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <span>
#include <variant>

namespace sonavo {

/// Print a report on the duplicates among files and folders.
struct ReportRequest
{
    /// File URLs with absolute paths.
    QList<QUrl> items;
    ReportFormat format = ReportFormat::Text;
    SearchDepth depth = SearchDepth::FourPasses;
};

enum class WindowChoice
{
    /// The window that is open, if there is one.
    Shared,
    New,
};

/// Open the window.
struct WindowRequest
{
    /// File URLs with absolute paths, to import at once; may be empty.
    QList<QUrl> items;
    WindowChoice window = WindowChoice::Shared;
};

/// Print the help or the version.
struct TextRequest
{
    QString text;
};

/// The arguments are invalid.
struct UnusableArguments
{
    /// The reason, for the user.
    QString text;
};

struct CommandLine
{
    std::variant<WindowRequest, ReportRequest, TextRequest, UnusableArguments> request;
    /// What was skipped, for the user.
    QStringList warnings;
};

/// Parses the program's arguments. Checks on the disk which paths exist, so it can block.
/// @param arguments as passed to main(), the program's name first
[[nodiscard]] CommandLine parseCommandLine(std::span<char *const> arguments);

} // namespace sonavo
