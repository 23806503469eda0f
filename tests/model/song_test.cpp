#include "model/song.h"

#include <gtest/gtest.h>

#include <utility>

namespace sonavo {
namespace {

TEST(Song, ComparesAndHashesTextsByCanonicalEquivalence)
{
    Song song;
    song.id = QUuid::createUuid();
    song.title = QStringLiteral("J\u00f3ga");
    Song equivalent = song;
    equivalent.title = QStringLiteral("Jo\u0301ga");
    equivalent.duration = -0.0;
    EXPECT_EQ(song, equivalent);
    EXPECT_EQ(qHash(song), qHash(equivalent));

    Song readAgain = song;
    readAgain.id = QUuid::createUuid();
    EXPECT_FALSE(song == readAgain);
}

TEST(Song, FormatsItsDurationAsTruncatedMinutesAndSeconds)
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

TEST(SongDeathTest, EndsTheProgramOnADurationThatIsNotFiniteOrTooLong)
{
    for (const double duration : {qInf(), qQNaN(), 1e300})
        EXPECT_DEATH(static_cast<void>(wholeSeconds(duration)), "finite");
}

} // namespace
} // namespace sonavo
