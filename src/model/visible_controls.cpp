#include "model/visible_controls.h"

namespace sonavo {
namespace {

bool isUnsafe(QChar character)
{
    const char16_t unit = character.unicode();
    const bool isControl = unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
    const bool isSeparator = unit == 0x2028 || unit == 0x2029;
    const bool isBidiControl = unit == 0x061C || unit == 0x200E || unit == 0x200F ||
                               (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069);
    return isControl || isSeparator || isBidiControl;
}

QString escaped(QChar character)
{
    switch (character.unicode()) {
    case u'\n':
        return QStringLiteral("\\n");
    case u'\r':
        return QStringLiteral("\\r");
    case u'\t':
        return QStringLiteral("\\t");
    default:
        const auto code = static_cast<unsigned>(character.unicode());
        return code < 0x100 ? QString::asprintf("\\x%02x", code) : QString::asprintf("\\u%04x", code);
    }
}

} // namespace

QString withVisibleControls(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar character : text) {
        if (isUnsafe(character))
            result += escaped(character);
        else
            result += character;
    }
    return result;
}

} // namespace sonavo
