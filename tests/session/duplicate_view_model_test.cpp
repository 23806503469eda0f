#include "model/byte_count.h"
#include "session/duplicate_view_model.h"
#include "testing/fake_desktop.h"
#include "testing/music_folder.h"
#include "testing/private_home.h"
#include "testing/test_pauses.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using ToastType = DuplicateViewModel::ToastType;

/// A session, and the properties that it announces, as "property=value".
class DuplicateViewModelTest : public testing::Test
{
protected:
    DuplicateViewModelTest()
    {
        using Session = DuplicateViewModel;
        const std::pair<const char *, void (Session::*)()> properties[] = {
            {"songCount", &Session::songsChanged},
            {"duplicateGroupCount", &Session::duplicateGroupsChanged},
            {"isScanning", &Session::isScanningChanged},
            {"progress", &Session::progressChanged},
            {"showAlert", &Session::showAlertChanged},
            {"alertMessage", &Session::alertMessageChanged},
            {"player", &Session::playerChanged},
            {"currentlyPlayingSong", &Session::currentlyPlayingSongChanged},
            {"isCleaningUp", &Session::isCleaningUpChanged},
            {"showLimitWarning", &Session::showLimitWarningChanged},
            {"pendingImportURLs", &Session::pendingImportURLsChanged},
            {"showToast", &Session::showToastChanged},
            {"toastMessage", &Session::toastChanged},
        };
        for (const auto &[name, changed] : properties) {
            QObject::connect(&session, changed, &session, [this, property = name] {
                const std::string value = session.property(property).toString().toStdString();
                announced.push_back(std::string(property) + "=" + value);
                songCounts.push_back(session.songCount());
            });
        }
        music.addGroups({2});
    }

    void scan(const QList<QUrl> &urls)
    {
        announced.clear();
        session.startScan(urls);
        finishScan(session);
    }
    [[nodiscard]] std::vector<std::string> lastAnnounced() const
    {
        return {announced.end() - std::min<std::ptrdiff_t>(std::ssize(announced), 3), announced.end()};
    }

    const MusicFolder music;
    FakeDesktop desktop;
    DuplicateViewModel session{desktop, std::make_shared<InstantPauses>(), QList<Color>(6)};
    std::vector<std::string> announced;
    std::vector<int> songCounts;
};

TEST_F(DuplicateViewModelTest, AnnouncesWhatIsShownBeforeThatItIsShown)
{
    scan(music.urls());
    EXPECT_EQ(announced[0], "isScanning=true");
    EXPECT_THAT(lastAnnounced(), ElementsAre("duplicateGroupCount=1", "isScanning=false", "progress=1"));
    EXPECT_EQ(std::ranges::count(announced, "songCount=2"), 1) << "progress does not touch the lists";

    scan({music.urlOf(u"nothing"_s)});
    EXPECT_THAT(lastAnnounced(),
                ElementsAre("isScanning=false", "alertMessage=No audio files found in the selected folder.",
                            "showAlert=true"));
    session.showToast(u"first"_s, ToastType::Success);
    session.showToast(u"second"_s, ToastType::Error);
    EXPECT_THAT(lastAnnounced(), ElementsAre("toastMessage=first", "showToast=true", "toastMessage=second"));
    settle();
}

TEST_F(DuplicateViewModelTest, IgnoresWhatWouldChangeTheSessionWhileFilesAreMoved)
{
    const PrivateHome home;
    scan(music.urls());
    const Song song = session.songs().first();
    EXPECT_EQ(session.cleanupAllDescription(),
              u"Move 1 duplicate (%1) to the Trash"_s.arg(formattedByteCount(song.size)));
    const auto tryEverything = [&] {
        ASSERT_TRUE(session.isCleaningUp());
        desktop.choice = music.urls();
        EXPECT_FALSE(session.importDrop(music.urls()) || session.importWithOpenPanel());
        session.startScan(music.urls());
        EXPECT_FALSE(session.isScanning());
        session.deleteSong(song);
        session.cleanupAll();
        session.moveDuplicatesToFolder();
        session.undo();
        session.retryCleanUp();
        session.findMore();
        session.excludeFromDuplicates(song);
        session.clearAll();
        EXPECT_EQ(session.songCount(), 2);
    };
    announced.clear();
    session.cleanupAll();
    tryEverything();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !session.isCleaningUp(); }));
    // Toasts take no time.
    std::erase(announced, "showToast=false");
    EXPECT_THAT(announced, ElementsAre("isCleaningUp=true", "songCount=1", "duplicateGroupCount=0",
                                       testing::StartsWith("toastMessage=Moved 1 files to Trash"),
                                       "showToast=true", "isCleaningUp=false"));
    EXPECT_EQ(session.cleanUpRemaining(), u"1 song remains"_s);
    EXPECT_EQ(session.toastAction(), u"Undo"_s);
    session.performToastAction();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !session.isCleaningUp(); }));
    EXPECT_EQ(session.songCount(), 2);
    EXPECT_EQ(session.duplicateCount(), 1);

    // The end of the session does not wait; its job stops, and nothing is shown of it.
    session.cleanupAll();
    session.endSession();
    EXPECT_TRUE(session.isCleaningUp());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !session.isCleaningUp(); }));
    EXPECT_EQ(session.songCount(), 0);
    EXPECT_FALSE(session.hasCleanUpSummary());
    settle();
}

TEST_F(DuplicateViewModelTest, AnnouncesAClearedSessionInOrderAndOnceMore)
{
    scan(music.urls());
    session.togglePlayback(session.songs().first());
    scan({music.urlOf(u"nothing"_s)});
    session.importDroppedItems(QList<QUrl>(10'001, music.urlOf(u"0/Artist0 - Title0.flac"_s)));
    ASSERT_TRUE(QTest::qWaitFor([this] { return session.showLimitWarning(); }));
    EXPECT_NE(session.player(), nullptr);
    EXPECT_TRUE(session.showAlert() && session.showLimitWarning());
    session.startScan(music.urls());

    announced.clear();
    songCounts.clear();
    session.clearAll();
    const std::vector<std::string> cleared = {
        "player=",          "songCount=0",           "duplicateGroupCount=0",
        "progress=0",       "currentlyPlayingSong=", "showAlert=false",
        "alertMessage=",    "pendingImportURLs=",    "showLimitWarning=false",
        "isScanning=false", "isCleaningUp=false",    "toastMessage=",
        "showToast=false"};
    EXPECT_EQ(announced, cleared);
    EXPECT_THAT(songCounts, testing::Each(0)) << "everything is reset before anything is announced";
    EXPECT_THAT(session.pendingImportURLs(), IsEmpty());
    EXPECT_EQ(session.scanMessage(), QString());
    announced.clear();
    settle();
    EXPECT_EQ(announced, cleared);
}

} // namespace
} // namespace sonavo
