#include "app/progress_line.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>

namespace sonavo {
namespace {

qsizetype terminalColumns()
{
    constexpr qsizetype DEFAULT_COLUMNS = 80;
    struct winsize size = {};
    return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : DEFAULT_COLUMNS;
}

void replaceLine(const QString &text)
{
    std::fputs((QByteArray(ERASE_LINE.data(), static_cast<qsizetype>(ERASE_LINE.size())) + text.toUtf8())
                   .constData(),
               stderr);
    std::fflush(stderr);
}

} // namespace

ProgressLine::ProgressLine()
    : m_isTerminal(::isatty(STDERR_FILENO) == 1)
{}

ProgressLine::~ProgressLine()
{
    clear();
}

void ProgressLine::show(const QString &message, double fraction)
{
    if (!m_isTerminal)
        return;
    // A line that reaches the last column would wrap, and only its end could be erased.
    const QString line = QStringLiteral("%1% %2")
                             .arg(static_cast<int>(fraction * 100), 3)
                             .arg(message)
                             .left(terminalColumns() - 1);
    if (line == m_shown)
        return;
    replaceLine(line);
    m_shown = line;
}

void ProgressLine::clear()
{
    if (m_shown.isEmpty())
        return;
    replaceLine({});
    m_shown.clear();
}

} // namespace sonavo
