#include "model/random_id.h"
#include "model/song.h"

#include <QSet>

#include <gtest/gtest.h>

#include <functional>
#include <thread>

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

TEST(RandomId, IsAnotherRandomUuidEachTimeInEveryThread)
{
    constexpr int COUNT = 1000; // several times what is asked of the kernel at once
    QList<QUuid> ids[2];
    const auto fill = [](QList<QUuid> &list) {
        for (int i = 0; i < COUNT; ++i)
            list += randomId();
    };
    std::thread(fill, std::ref(ids[0])).join();
    fill(ids[1]);
    QSet<QUuid> different;
    for (const QUuid &id : ids[0] + ids[1]) {
        different += id;
        EXPECT_EQ(id.variant(), QUuid::DCE);
        EXPECT_EQ(id.version(), QUuid::Random);
    }
    EXPECT_EQ(different.size(), 2 * COUNT);
}

TEST(SongDeathTest, EndsTheProgramOnADurationThatIsNotFiniteOrTooLong)
{
    for (const double duration : {qInf(), qQNaN(), 1e300})
        EXPECT_DEATH(static_cast<void>(wholeSeconds(duration)), "finite");
}

} // namespace
} // namespace sonavo
