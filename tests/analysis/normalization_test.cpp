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

} // namespace
} // namespace sonavo
