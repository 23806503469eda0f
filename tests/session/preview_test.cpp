#include "session/duplicate_view_model.h"
#include "session/settling.h"
#include "support/instant_pauses.h"
#include "support/persons_desktop.h"

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class PreviewTest : public testing::Test
{
protected:
    static Song song(const QString &path, double duration = 200.6)
    {
        Song song;
        song.id = QUuid::createUuid();
        song.path = path;
        song.duration = duration;
        return song;
    }
    PersonsDesktop desktop;
    DuplicateViewModel session{desktop, std::make_shared<InstantPauses>(), QList<Color>(6)};
    const Song a = song(u"a"_s);
    const Song b = song(u"b"_s);
};

TEST_F(PreviewTest, StartsAtTheNextTurnAndStopsAtTheSecondClick)
{
    session.togglePlayback(a);
    EXPECT_EQ(session.currentlyPlayingSong(), a);
    EXPECT_EQ(session.player(), nullptr);
    EXPECT_EQ(session.property("currentlyPlayingSong").value<Song>(), a);
    settle();
    EXPECT_NE(session.player(), nullptr);
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: play"));

    session.togglePlayback(a);
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: pause", "a: release", "a: gone"));
    EXPECT_FALSE(session.currentlyPlayingSong());
    EXPECT_EQ(session.player(), nullptr);
    settle();
    EXPECT_THAT(desktop.takeCalls(), IsEmpty());
}

TEST_F(PreviewTest, SwitchesSongsWithoutEverHavingTwo)
{
    session.togglePlayback(a);
    settle();
    session.togglePlayback(b);
    EXPECT_EQ(session.currentlyPlayingSong(), b);
    settle();
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: play", "a: pause", "a: release", "a: gone", "b: play"));
}

TEST_F(PreviewTest, DoesNotStartWhatWasStoppedMeanwhile)
{
    session.togglePlayback(a);
    session.togglePlayback(a);
    settle();
    EXPECT_THAT(desktop.takeCalls(), IsEmpty());

    session.togglePlayback(a);
    session.togglePlayback(a);
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

TEST_F(PreviewTest, ForgetsAStartWhenTheSessionIsGone)
{
    {
        DuplicateViewModel shortLived(desktop, std::make_shared<InstantPauses>(), QList<Color>(6));
        shortLived.togglePlayback(a);
    }
    settle();
    EXPECT_THAT(desktop.takeCalls(), IsEmpty());
}

TEST_F(PreviewTest, SeeksToWhereTheRowWasClicked)
{
    session.seekPlayback(450, 900);
    session.togglePlayback(a);
    session.seekPlayback(450, 900);
    settle();
    session.seekPlayback(450, 900);
    session.seekPlayback(2000, 900);
    session.seekPlayback(10, 0);
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("a: play", "a: seek 100", "a: seek 200"));
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

TEST_F(PreviewTest, ShowsASongInTheFileViewer)
{
    session.revealSong(a);
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("show a"));
    EXPECT_FALSE(session.showToast());
}

} // namespace
} // namespace sonavo
