#include "language/language.h"
#include "model/byte_count.h"
#include "model/song.h"
#include "model/visible_controls.h"
#include "session/clean_up_text.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(Language, IsTheFirstOneWantedThatTheProgramHas)
{
    const struct
    {
        QStringList wanted;
        QString locale;
    } cases[] = {
        {{u"de-AT"_s, u"en"_s}, u"de_AT"_s},
        {{u"sv-SE"_s, u"fr-CA"_s, u"en-US"_s}, u"fr_CA"_s},
        {{u"zh-Hans-SG"_s}, u"zh_SG"_s},
        {{u"zh-Hant-TW"_s}, u"en_US"_s},
        {{u"en-GB"_s, u"de-DE"_s}, u"en_US"_s},
        {{u"C"_s}, u"en_US"_s},
        {{}, u"en_US"_s},
    };
    for (const auto &[wanted, locale] : cases)
        EXPECT_EQ(bestLocale(wanted).name(), locale);
}

class LanguageTest : public testing::Test
{
protected:
    ~LanguageTest() override { useEnglish(); }
};

TEST_F(LanguageTest, WritesNumbersSizesAndTimesAsItsLocaleDoes)
{
    const struct
    {
        QString locale;
        QString remaining[4]; // of 1, 2, 5 and 1234
        QString size, time;
    } cases[] = {
        {u"en_US"_s,
         {u"1 song remains"_s, u"2 songs remain"_s, u"5 songs remain"_s, u"1,234 songs remain"_s},
         u"84.3 MB"_s,
         u"62:05"_s},
        {u"de_DE"_s,
         {u"1 Titel verbleibt"_s, u"2 Titel verbleiben"_s, u"5 Titel verbleiben"_s,
          u"1.234 Titel verbleiben"_s},
         u"84,3\u00a0MB"_s,
         u"62:05"_s},
        {u"ru_RU"_s,
         {u"Осталась 1 песня"_s, u"Осталось 2 песни"_s, u"Осталось 5 песен"_s,
          u"Осталось 1\u00a0234 песни"_s},
         u"84,3\u00a0МБ"_s,
         u"62:05"_s},
        {u"ar_EG"_s,
         {u"بقيت أغنية واحدة"_s, u"بقيت أغنيتان"_s, u"بقيت ٥ أغانٍ"_s, u"بقيت ١٬٢٣٤ أغنية"_s},
         u"٨٤٫٣\u00a0م.ب"_s,
         u"٦٢:٠٥"_s},
        {u"zh_SG"_s,
         {u"剩余 1 首歌曲"_s, u"剩余 2 首歌曲"_s, u"剩余 5 首歌曲"_s, u"剩余 1,234 首歌曲"_s},
         u"84.3\u00a0MB"_s,
         u"62:05"_s},
    };
    for (const auto &[locale, remaining, size, time] : cases) {
        useLanguage(QLocale(locale));
        EXPECT_EQ(remainingText(1), remaining[0]);
        EXPECT_EQ(remainingText(2), remaining[1]);
        EXPECT_EQ(remainingText(5), remaining[2]);
        EXPECT_EQ(remainingText(1'234), remaining[3]);
        EXPECT_EQ(formattedByteCount(84'300'000), size);
        Song song;
        song.duration = 3'725;
        EXPECT_EQ(song.formattedDuration(), time);
    }
}

TEST_F(LanguageTest, KeepsNamesAndPathsFromMixingWithASentence)
{
    const QString path = u"/موسيقى/a\u202eb.mp3"_s;
    EXPECT_EQ(pathInText(path), u"/موسيقى/a\\u202eb.mp3"_s) << "English has nothing that cannot be seen";
    useLanguage(QLocale(u"ar"_s));
    EXPECT_EQ(pathInText(path), u"\u2066/موسيقى/a\\u202eb.mp3\u2069"_s);
    EXPECT_EQ(nameInText(u"a.mp3"_s), u"\u2068a.mp3\u2069"_s);
}

TEST_F(LanguageTest, ReplacesTheOneBefore)
{
    const auto cancel = [] { return QCoreApplication::translate("QPlatformTheme", "Cancel"); };
    useLanguage(QLocale(u"de"_s));
    EXPECT_EQ(cancel(), u"Abbrechen"_s) << "of Qt";
    EXPECT_EQ(noDuplicatesText(), u"Keine Duplikate zum Verschieben"_s);
    useEnglish();
    EXPECT_EQ(cancel(), u"Cancel"_s);
    EXPECT_EQ(noDuplicatesText(), u"No duplicates to move"_s);
}

} // namespace
} // namespace sonavo
