#include "session/duplicate_view_model.h"
#include "testing/music_folder.h"
#include "testing/persons_desktop.h"
#include "testing/test_pauses.h"

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class PreviewTest : public testing::Test
{
protected:
    PersonsDesktop desktop;
    DuplicateViewModel session{desktop, std::make_shared<InstantPauses>(), QList<Color>(6)};
    const Song a{QUuid::createUuid(), u"a"_s, u"a"_s, 200.6, 1, u"MP3"_s, {}, u"a"_s, u"music"_s};
    const Song b{QUuid::createUuid(), u"b"_s, u"b"_s, 200.6, 1, u"MP3"_s, {}, u"b"_s, u"music"_s};
};

TEST_F(PreviewTest, PlaysOneSongAtATimeFromTheNextTurnUntilTheSecondClick)
{
    session.togglePlayback(a);
    EXPECT_EQ(session.currentlyPlayingSong(), a);
    EXPECT_EQ(session.player(), nullptr);
    settle();
    EXPECT_NE(session.player(), nullptr);
    session.togglePlayback(b);
    EXPECT_EQ(session.currentlyPlayingSong(), b);
    settle();
    session.togglePlayback(b);
    EXPECT_FALSE(session.currentlyPlayingSong());
    EXPECT_EQ(session.player(), nullptr);
    settle();
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: play", "a: pause", "a: release", "a: gone", "b: play",
                                                 "b: pause", "b: release", "b: gone"));
}

TEST_F(PreviewTest, DoesNotStartWhatWasStoppedMeanwhile)
{
    session.togglePlayback(a);
    session.togglePlayback(a);
    settle();
    DuplicateViewModel(desktop, std::make_shared<InstantPauses>(), QList<Color>(6)).togglePlayback(a);
    settle();
    EXPECT_THAT(desktop.takeCalls(), IsEmpty());

    session.togglePlayback(a);
    session.togglePlayback(b);
    session.togglePlayback(a);
    settle();
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: play"));

    session.togglePlayback(b);
    session.clearAll();
    settle();
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: pause", "a: release", "a: gone"));
}

TEST_F(PreviewTest, SeeksToWhereTheRowWasClicked)
{
    session.seekPlayback(450, 900);
    session.togglePlayback(a);
    session.seekPlayback(450, 900);
    settle();
    session.seekPlayback(450, 900);
    session.seekPlayback(2000, 900);
    session.seekPlayback(-9, 900);
    session.seekPlayback(10, 0);
    session.seekPlayback(std::numeric_limits<double>::quiet_NaN(), 900);
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: play", "a: seek 100", "a: seek 200", "a: seek -2"));
}

TEST_F(PreviewTest, HasTheLastWordWhenAListenerStartsAnother)
{
    session.togglePlayback(a);
    settle();
    QObject::connect(&session, &DuplicateViewModel::playerChanged, &session, [this] {
        if (!session.player() && !session.currentlyPlayingSong())
            session.togglePlayback(b);
    });
    session.stopPlayback();
    settle();
    EXPECT_EQ(session.currentlyPlayingSong(), b);
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: play", "a: pause", "a: release", "a: gone", "b: play"));
}

TEST_F(PreviewTest, SilencesASongBeforeItIsDeleted)
{
    session.togglePlayback(a);
    settle();
    session.deleteSong(b);
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: play"));
    session.deleteSong(*session.currentlyPlayingSong());
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: volume 0.0", "a: pause", "a: release", "a: gone"));
    EXPECT_FALSE(session.currentlyPlayingSong());
}

} // namespace
} // namespace sonavo
