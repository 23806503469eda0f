#include "model/song.h"

#include <gtest/gtest.h>

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

TEST(SongDeathTest, EndsTheProgramOnADurationThatIsNotFiniteOrTooLong)
{
    for (const double duration : {qInf(), qQNaN(), 1e300})
        EXPECT_DEATH(static_cast<void>(wholeSeconds(duration)), "finite");
}

} // namespace
} // namespace sonavo
