#include "model/song.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace sonavo {
namespace {

Song someSong()
{
    return {QUuid::createUuid(),
            QStringLiteral("/music/Björk - Jóga.mp3"),
            QStringLiteral("Björk - Jóga.mp3"),
            305.2,
            5'000'000,
            QStringLiteral("MP3"),
            QStringLiteral("Björk"),
            QStringLiteral("Jóga"),
            QStringLiteral("music")};
}

TEST(Song, IsEqualOnlyToItsOwnRecord)
{
    const Song song = someSong();
    Song otherReading = song;
    otherReading.id = QUuid::createUuid();
    EXPECT_EQ(song, Song(song));
    EXPECT_FALSE(song == otherReading);

    Song larger = song;
    ++larger.size;
    EXPECT_FALSE(song == larger);
}

TEST(Song, ComparesTextsByCanonicalEquivalenceAndHashesThemAlike)
{
    const Song composed = someSong();
    Song decomposed = composed;
    decomposed.title = composed.title.normalized(QString::NormalizationForm_D);
    ASSERT_NE(composed.title, decomposed.title);
    EXPECT_EQ(composed, decomposed);
    EXPECT_EQ(qHash(composed), qHash(decomposed));

    Song negativeZero = composed;
    Song positiveZero = composed;
    negativeZero.duration = -0.0;
    positiveZero.duration = 0.0;
    EXPECT_EQ(negativeZero, positiveZero);
    EXPECT_EQ(qHash(negativeZero), qHash(positiveZero));
}

TEST(Song, WritesItsDurationInTruncatedMinutesAndSeconds)
{
    const std::pair<double, const char *> cases[] = {
        {0.0, "0:00"}, {59.9, "0:59"}, {61.2, "1:01"}, {119.99, "1:59"}, {3725.0, "62:05"}, {-61.0, "-1:-1"},
    };
    Song song;
    for (const auto &[duration, text] : cases) {
        song.duration = duration;
        EXPECT_EQ(song.formattedDuration().toStdString(), text);
    }
}

TEST(SongDeathTest, EndsTheProgramOnADurationThatIsNoNumberOfSeconds)
{
    Song song;
    for (const double duration :
         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN(), 1e300}) {
        song.duration = duration;
        EXPECT_DEATH({ const QString text = song.formattedDuration(); }, "finite");
    }
}

} // namespace
} // namespace sonavo
