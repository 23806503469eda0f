#include "session/preview.h"
#include "testing/fake_desktop.h"

#include <QTest>

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class PreviewTest : public testing::Test
{
protected:
    static void settle() { QTest::qWait(1); }
    [[nodiscard]] static Song song(const QString &path)
    {
        Song song;
        song.id = QUuid::createUuid();
        song.path = path;
        song.duration = 200.6;
        return song;
    }

    FakeDesktop desktop;
    Preview preview{desktop};
    const Song a = song(u"a"_s);
    const Song b = song(u"b"_s);
};

TEST_F(PreviewTest, PlaysOneSongAtATimeFromTheNextTurnUntilTheSecondClick)
{
    // What is stopped before does not start at all.
    for (int i = 0; i < 4; ++i)
        preview.toggle(a);
    Preview(desktop).toggle(a);
    settle();
    EXPECT_THAT(desktop.takeCalls(), IsEmpty());
    for (const Song &song : {a, b, a})
        preview.toggle(song);
    EXPECT_TRUE(preview.isOf(a));
    EXPECT_EQ(preview.state().player, nullptr);
    settle();
    EXPECT_NE(preview.state().player, nullptr);
    preview.toggle(b);
    settle();
    preview.toggle(*preview.state().song);
    EXPECT_EQ(preview.state(), Preview::State());
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: play", "a: pause", "a: release", "a: gone", "b: play",
                                                 "b: pause", "b: release", "b: gone"));
}

TEST_F(PreviewTest, SeeksToWhereTheRowWasClicked)
{
    preview.seek(450, 900);
    preview.toggle(a);
    preview.seek(450, 900);
    settle();
    preview.seek(450, 900);
    preview.seek(2000, 900);
    preview.seek(-9, 900);
    preview.seek(10, 0);
    preview.seek(std::numeric_limits<double>::quiet_NaN(), 900);
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: play", "a: seek 100", "a: seek 200", "a: seek -2"));
}

TEST_F(PreviewTest, ComparesASongFromTheSecondAtWhichTheOtherIs)
{
    Song shorter = song(u"c"_s);
    shorter.duration = 101.9;
    const auto playFrom = [this](double x) {
        preview.toggle(a);
        settle();
        preview.seek(x, 900);
        desktop.calls.clear();
    };
    playFrom(450);
    preview.compare(b);
    preview.compare(a); // before the other has begun
    settle();
    EXPECT_TRUE(preview.isOf(a));
    EXPECT_THAT(desktop.takeCalls(),
                ElementsAre("a: pause", "a: release", "a: gone", "a: seek 100", "a: play"));
    preview.compare(shorter);
    settle();
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: pause", "a: release", "a: gone", "c: play"))
        << "hardly any of it would be left";
    preview.compare(shorter);
    EXPECT_EQ(preview.state(), Preview::State()) << "the one that plays";
    desktop.calls.clear();
    preview.compare(b);
    settle();
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("b: play")) << "nothing to compare with";
}

} // namespace
} // namespace sonavo
