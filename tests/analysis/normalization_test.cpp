#include "analysis/direct_analysis.h"
#include "analysis/normalization.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace sonavo {
namespace {

TEST(NormalizeString, LeavesOnlyLowerCaseWordsAndDigits)
{
    const std::pair<QStringView, std::string> cases[] = {
        {u"  Hello,   World!! ", "hello world"},
        {u"Song (Live) [2019 Remaster]", "song live 2019 remaster"},
        {u"01 - Track_Name.mp3", "01 track name mp3"},
        {u"Don't Stop", "don t stop"},
        {u"Caf\u00e9 del Mar", "caf del mar"},
        {u"Cafe\u0301 del Mar", "cafe del mar"},
        {u"\u212Aelvin", "kelvin"},
        {u"\u0130zmir", "i zmir"},
        {u"\u041f\u0435\u0441\u043d\u044f", ""},
        {u"", ""},
        // Lone surrogates.
        {u"a\xD801z\xDC00", "a z"},
    };
    for (const auto &[text, expected] : cases)
        EXPECT_EQ(normalizeString(text), expected);
}

TEST(NormalizeAllScripts, KeepsLettersOfEveryScriptAndTakesOffCaseAccentsAndForms)
{
    const std::pair<QString, std::u32string> cases[] = {
        {QStringLiteral("  Hello,   World!! (Live) "), U"hello world live"},
        {QStringLiteral("Caf\u00e9 \u00dcBER Stra\u00dfe"), U"cafe uber strasse"},
        {QStringLiteral("\uff2c\uff29\uff36\uff25\uff08\uff11\uff09 \u210c\ufb03"), U"live1 hffi"},
        {QStringLiteral("\u0130zmir"), U"izmir"},
        {QStringLiteral("\u0399\u03a3 \u03cc\u03c2"), U"\u03b9\u03c3 \u03bf\u03c3"},
        {QStringLiteral("\u0419\u041e\u0301\u0433\u0430"), U"\u0438\u043e\u0433\u0430"},
        {QStringLiteral("\uff76\uff9e\u30fb\u304b"), U"\u30ac \u304b"},
        {QStringLiteral("\ud55c\uae00"), U"\ud55c\uae00"},
        {QStringLiteral("\u0643\u064e\u062a\u064e\u0628"), U"\u0643\u062a\u0628"},
        {QStringLiteral("\u0e23\u0e31\u0e01"), U"\u0e23\u0e31\u0e01"},
        {QString(QChar(0xd801)) + u'a' + QChar(0xdc00) + u'z', U"a z"},
    };
    for (const auto &[text, expected] : cases) {
        EXPECT_EQ(normalizeAllScripts(text), expected) << text.toStdString();
        EXPECT_EQ(direct::normalizeAllScripts(text).toStdU32String(), expected) << text.toStdString();
    }
}

} // namespace
} // namespace sonavo
