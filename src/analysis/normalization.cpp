#include "analysis/normalization.h"

#include <QList>

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

bool isAscii(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x80; });
}

/// Accents and vowel points that many scripts share; voicing marks make another letter of a kana.
bool isAccent(char32_t character)
{
    constexpr char32_t VOICED_SOUND_MARK = 0x3099;
    constexpr char32_t SEMI_VOICED_SOUND_MARK = 0x309A;
    return QChar::isMark(character) && QChar::script(character) == QChar::Script_Inherited &&
           character != VOICED_SOUND_MARK && character != SEMI_VOICED_SOUND_MARK;
}

} // namespace

void lowerInto(QString &result, const QString &text)
{
    if (!isAscii(text)) {
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

std::u32string normalizeAllScripts(const QString &text)
{
    if (isAscii(text)) {
        const std::string normalized = normalizeString(text);
        return {normalized.begin(), normalized.end()};
    }

    // Compatibility forms can hide capitals, and folding can compose what was decomposed. Upper case comes
    // first because folding alone leaves "ß" as it is.
    const QString folded = text.normalized(QString::NormalizationForm_KD)
                               .toUpper()
                               .toCaseFolded()
                               .normalized(QString::NormalizationForm_KD);
    std::u32string kept;
    bool isSeparated = false;
    for (const char32_t character : folded.toUcs4()) {
        if (isAccent(character) || (character < 0x80 && isBracket(static_cast<char16_t>(character))))
            continue;
        if (!QChar::isLetterOrNumber(character) && !QChar::isMark(character)) {
            isSeparated = true;
            continue;
        }
        if (isSeparated && !kept.empty())
            kept += U' ';
        isSeparated = false;
        kept += character;
    }
    const QList<uint> composed =
        QString::fromStdU32String(kept).normalized(QString::NormalizationForm_C).toUcs4();
    return {composed.begin(), composed.end()};
}

bool isOfScriptWithShortWords(char32_t character)
{
    switch (QChar::script(character)) {
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Hangul:
    case QChar::Script_Thai:
    case QChar::Script_Lao:
    case QChar::Script_Khmer:
    case QChar::Script_Myanmar:
        return true;
    default:
        return false;
    }
}

} // namespace sonavo
