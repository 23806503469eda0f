#include "model/song.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace sonavo {
namespace {

TEST(Song, IsEqualToWhatIsCanonicallyEquivalentAndHasItsHash)
{
    Song song;
    song.id = QUuid::createUuid();
    song.title = QStringLiteral("J\u00f3ga");
    Song equivalent = song;
    equivalent.title = QStringLiteral("Jo\u0301ga");
    equivalent.duration = -0.0;
    EXPECT_EQ(song, equivalent);
    EXPECT_EQ(qHash(song), qHash(equivalent));

    Song otherReading = song;
    otherReading.id = QUuid::createUuid();
    EXPECT_FALSE(song == otherReading);
    Song larger = song;
    ++larger.size;
    EXPECT_FALSE(song == larger);
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
