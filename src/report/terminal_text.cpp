#include "report/terminal_text.h"

#include <QList>

#include <algorithm>
#include <cwchar>

namespace sonavo {

qsizetype terminalWidth(const QString &text)
{
    qsizetype columns = 0;
    for (const char32_t character : text.toUcs4())
        columns += std::max(0, ::wcwidth(static_cast<wchar_t>(character)));
    return columns;
}

QString paddedToWidth(const QString &text, qsizetype columns)
{
    return text + QString(std::max<qsizetype>(0, columns - terminalWidth(text)), u' ');
}

} // namespace sonavo
