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

    FakeDesktop desktop;
    Preview preview{desktop};
    const Song a{QUuid::createUuid(), u"a"_s, u"a"_s, 200.6, 1, u"MP3"_s, {}, u"a"_s, u"music"_s};
    const Song b{QUuid::createUuid(), u"b"_s, u"b"_s, 200.6, 1, u"MP3"_s, {}, u"b"_s, u"music"_s};
};

TEST_F(PreviewTest, PlaysOneSongAtATimeFromTheNextTurnUntilTheSecondClick)
{
    preview.toggle(a);
    EXPECT_TRUE(preview.isOf(a));
    EXPECT_EQ(preview.state().player, nullptr);
    settle();
    EXPECT_NE(preview.state().player, nullptr);
    preview.toggle(b);
    EXPECT_TRUE(preview.isOf(b));
    settle();
    preview.toggle(*preview.state().song);
    EXPECT_EQ(preview.state(), Preview::State());
    settle();
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: play", "a: pause", "a: release", "a: gone", "b: play",
                                                 "b: pause", "b: release", "b: gone"));
}

TEST_F(PreviewTest, DoesNotStartWhatWasStoppedMeanwhile)
{
    preview.toggle(a);
    preview.toggle(a);
    settle();
    Preview(desktop).toggle(a);
    settle();
    EXPECT_THAT(desktop.takeCalls(), IsEmpty());

    preview.toggle(a);
    preview.toggle(b);
    preview.toggle(a);
    settle();
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: play"));
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

TEST_F(PreviewTest, LeavesTheLastWordToAListenerThatStartsAnother)
{
    preview.toggle(a);
    settle();
    QObject::connect(&preview, &Preview::changed, &preview, [this] {
        if (!preview.state().song)
            preview.toggle(b);
    });
    preview.stop();
    settle();
    EXPECT_TRUE(preview.isOf(b));
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: play", "a: pause", "a: release", "a: gone", "b: play"));
}

} // namespace
} // namespace sonavo
