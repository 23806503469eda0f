#include "session/duplicate_view_model.h"
#include "session/settling.h"
#include "support/instant_pauses.h"
#include "support/quiet_desktop.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

using Calls = std::vector<std::string>;

/// Writes down what it is told to do.
class NotingPlayer final : public PreviewPlayer
{
public:
    NotingPlayer(std::string name, Calls &calls)
        : m_name(std::move(name))
        , m_calls(calls)
    {}
    ~NotingPlayer() override { note("gone"); }
    Q_DISABLE_COPY_MOVE(NotingPlayer)

    void play() override { note("play"); }
    void pause() override { note("pause"); }
    void setVolume(double volume) override { note("volume " + std::to_string(volume).substr(0, 3)); }
    void seek(qint64 seconds) override { note("seek " + std::to_string(seconds)); }
    void releaseItem() override { note("release"); }

private:
    void note(const std::string &call) { m_calls.push_back(m_name + ": " + call); }

    std::string m_name;
    Calls &m_calls;
};

class NotingDesktop final : public QuietDesktop
{
public:
    Calls calls;
    [[nodiscard]] std::unique_ptr<PreviewPlayer> openPreview(const QString &path) override
    {
        return std::make_unique<NotingPlayer>(path.toStdString(), calls);
    }
    void showInFileViewer(const QString &path) override { calls.push_back("show " + path.toStdString()); }
};

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
    [[nodiscard]] Calls takeCalls() { return std::exchange(desktop.calls, {}); }

    NotingDesktop desktop;
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
    EXPECT_THAT(takeCalls(), ElementsAre("a: play"));

    session.togglePlayback(a);
    EXPECT_THAT(takeCalls(), ElementsAre("a: pause", "a: release", "a: gone"));
    EXPECT_FALSE(session.currentlyPlayingSong());
    EXPECT_EQ(session.player(), nullptr);
    settle();
    EXPECT_THAT(takeCalls(), IsEmpty());
}

TEST_F(PreviewTest, SwitchesSongsWithoutEverHavingTwo)
{
    session.togglePlayback(a);
    settle();
    session.togglePlayback(b);
    EXPECT_EQ(session.currentlyPlayingSong(), b);
    settle();
    EXPECT_THAT(takeCalls(), ElementsAre("a: play", "a: pause", "a: release", "a: gone", "b: play"));
}

TEST_F(PreviewTest, DoesNotStartWhatWasStoppedMeanwhile)
{
    session.togglePlayback(a);
    session.togglePlayback(a);
    settle();
    EXPECT_THAT(takeCalls(), IsEmpty());

    session.togglePlayback(a);
    session.togglePlayback(a);
    session.togglePlayback(a);
    session.togglePlayback(b);
    session.togglePlayback(a);
    settle();
    EXPECT_THAT(takeCalls(), ElementsAre("a: play"));

    session.togglePlayback(b);
    session.clearAll();
    settle();
    EXPECT_THAT(takeCalls(), ElementsAre("a: pause", "a: release", "a: gone"));
}

TEST_F(PreviewTest, ForgetsAStartWhenTheSessionIsGone)
{
    {
        DuplicateViewModel shortLived(desktop, std::make_shared<InstantPauses>(), QList<Color>(6));
        shortLived.togglePlayback(a);
    }
    settle();
    EXPECT_THAT(takeCalls(), IsEmpty());
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
    EXPECT_THAT(takeCalls(), ElementsAre("a: play", "a: seek 100", "a: seek 200"));
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
    EXPECT_THAT(takeCalls(), ElementsAre("a: play", "a: pause", "a: release", "a: gone", "b: play"));
}

TEST_F(PreviewTest, SilencesASongBeforeItIsDeleted)
{
    session.togglePlayback(a);
    settle();
    session.deleteSong(b);
    EXPECT_THAT(takeCalls(), ElementsAre("a: play"));
    session.deleteSong(*session.currentlyPlayingSong());
    EXPECT_THAT(takeCalls(), ElementsAre("a: volume 0.0", "a: pause", "a: release", "a: gone"));
    EXPECT_FALSE(session.currentlyPlayingSong());
}

TEST_F(PreviewTest, ShowsASongInTheFileViewer)
{
    session.revealSong(a);
    EXPECT_THAT(takeCalls(), ElementsAre("show a"));
    EXPECT_FALSE(session.showToast());
}

} // namespace
} // namespace sonavo
