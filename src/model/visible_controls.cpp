#include "model/visible_controls.h"

#include <QLocale>

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

constexpr QChar LEFT_TO_RIGHT_ISOLATE(0x2066);
constexpr QChar FIRST_STRONG_ISOLATE(0x2068);
constexpr QChar POP_DIRECTIONAL_ISOLATE(0x2069);

QString isolated(const QString &text, QChar isolate)
{
    const QLocale::Language language = QLocale().language();
    const bool isEnglish = language == QLocale::English || language == QLocale::C;
    return isEnglish ? withVisibleControls(text)
                     : isolate + withVisibleControls(text) + POP_DIRECTIONAL_ISOLATE;
}

} // namespace

QString nameInText(const QString &name)
{
    return isolated(name, FIRST_STRONG_ISOLATE);
}

QString pathInText(const QString &path)
{
    return isolated(path, LEFT_TO_RIGHT_ISOLATE);
}

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
