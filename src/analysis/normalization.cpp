#include "analysis/normalization.h"

#include <QString>

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

std::string normalizeString(QStringView text)
{
    // Lower-casing comes first because it can turn a character into several, or into ASCII: U+0130 becomes
    // "i" and a combining dot, the Kelvin sign U+212A becomes "k".
    const QString lowered = text.toString().toLower();

    std::string result;
    result.reserve(static_cast<std::size_t>(lowered.size()));
    bool isSeparated = false;
    for (const QChar character : lowered) {
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
    return result;
}

std::vector<std::string_view> wordsOf(std::string_view normalized)
{
    std::vector<std::string_view> words;
    while (!normalized.empty()) {
        const std::size_t end = normalized.find(' ');
        if (end != 0)
            words.push_back(normalized.substr(0, end));
        if (end == std::string_view::npos)
            break;
        normalized.remove_prefix(end + 1);
    }
    return words;
}

} // namespace sonavo
