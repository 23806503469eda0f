#include "analysis/direct_analysis.h"
#include "analysis/normalization.h"
#include "testing/arbitrary_songs.h"

#include <QString>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

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
    };
    for (const auto &[text, expected] : cases)
        EXPECT_EQ(normalizeString(text), expected) << text.toString().toStdString();
}

TEST(NormalizeString, CountsHalfACharacterAsASeparator)
{
    EXPECT_EQ(normalizeString(QString(u'a') + QChar(0xD801) + u'b' + QChar(0xDC00)), "a b");
}

RC_GTEST_PROP(NormalizeString, AgreesWithItsReplacementsAndLeavesItsResultsAlone, ())
{
    const QString text = *anyText();
    const std::string normalized = normalizeString(text);
    RC_ASSERT(normalized == direct::normalizeString(text).toStdString());
    RC_ASSERT(normalizeString(QString::fromStdString(normalized)) == normalized);
}

} // namespace
} // namespace sonavo
