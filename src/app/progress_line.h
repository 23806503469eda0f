#pragma once

#include <QString>

#include <string_view>

namespace sonavo {

/// Terminal sequence that erases the line of the cursor.
inline constexpr std::string_view ERASE_LINE = "\r\033[K";

/// A line of progress on standard error that is overwritten in place, and erased at the end. Does nothing
/// where standard error is not a terminal.
class ProgressLine
{
public:
    ProgressLine();
    ~ProgressLine();
    Q_DISABLE_COPY_MOVE(ProgressLine)

    /// @param fraction between 0.0 and 1.0, shown as a percentage
    void show(const QString &message, double fraction);

    /// Erases the line.
    void clear();

private:
    const bool m_isTerminal;
    QString m_shown;
};

} // namespace sonavo
