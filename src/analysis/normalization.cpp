#include "analysis/normalization.h"

#include <algorithm>

namespace sonavo {
namespace {

constexpr bool isBracket(char16_t c)
{
    return c == u'(' || c == u')' || c == u'[' || c == u']' || c == u'{' || c == u'}';
}

constexpr bool isKept(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9');
}

} // namespace

void lowerInto(QString &result, const QString &text)
{
    const bool isAscii = std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x80; });
    if (!isAscii) {
        result = text.toLower();
        return;
    }
    result.resize(text.size());
    std::transform(text.cbegin(), text.cend(), result.begin(), [](QChar character) {
        const char16_t unit = character.unicode();
        return QChar(unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit);
    });
}

void normalizeLoweredInto(std::string &result, QStringView loweredText)
{
    result.clear();
    bool isSeparated = false;
    for (const QChar character : loweredText) {
        const char16_t unit = character.unicode();
        if (isBracket(unit))
            continue;
        if (!isKept(unit)) {
            isSeparated = true;
            continue;
        }
        if (isSeparated && !result.empty())
            result += ' ';
        isSeparated = false;
        result += static_cast<char>(unit);
    }
}

std::string normalizeString(QStringView text)
{
    // Lower-casing comes first because it can turn a character into several, or into ASCII: U+0130 becomes
    // "i" and a combining dot, the Kelvin sign U+212A becomes "k".
    QString lowered;
    lowerInto(lowered, text.toString());
    std::string result;
    normalizeLoweredInto(result, lowered);
    return result;
}

} // namespace sonavo
