#pragma once

#include <QString>

#include <string_view>

namespace sonavo {

/// What makes a terminal forget the line that the cursor is in.
inline constexpr std::string_view ERASE_LINE = "\r\033[K";

/// One line on the terminal behind standard error that is written over and over. Does nothing where standard
/// error is not a terminal.
class ProgressLine
{
public:
    ProgressLine();
    ~ProgressLine();
    Q_DISABLE_COPY_MOVE(ProgressLine)

    /// @param fraction between 0.0 and 1.0, shown as a percentage
    void show(const QString &message, double fraction);

    /// Takes the line away.
    void clear();

private:
    const bool m_isTerminal;
    QString m_shown;
};

} // namespace sonavo
