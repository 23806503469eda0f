#include "session/duplicate_view_model.h"
#include "testing/fake_desktop.h"
#include "testing/music_folder.h"
#include "testing/test_pauses.h"

#include <gmock/gmock.h>

#include <functional>
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
            {"showLimitWarning", &Session::showLimitWarningChanged},
            {"pendingImportURLs", &Session::pendingImportURLsChanged},
            {"showToast", &Session::showToastChanged},
            {"toastMessage", &Session::toastChanged},
        };
        for (const auto &[name, changed] : properties) {
            QObject::connect(&session, changed, &session, [this, property = name] {
                const QVariant value = session.property(property);
                announced.push_back(std::string(property) + "=" + value.toString().toStdString());
                onAnnounced();
            });
        }
        music.addSong(u"Ada - One.flac"_s);
        music.addSong(u"Ada - One.mp3"_s);
    }
    /// Timers of toasts run out.
    void TearDown() override { settle(); }

    void scan(const QList<QUrl> &urls)
    {
        session.startScan(urls);
        finishScan(session);
    }

    const MusicFolder music;
    FakeDesktop desktop;
    DuplicateViewModel session{desktop, std::make_shared<InstantPauses>(), QList<Color>(6)};
    std::vector<std::string> announced;
    std::function<void()> onAnnounced = [] {};
};

const std::vector<std::string> CLEARED = {
    "player=",          "songCount=0",           "duplicateGroupCount=0",
    "progress=0",       "currentlyPlayingSong=", "showAlert=false",
    "alertMessage=",    "pendingImportURLs=",    "showLimitWarning=false",
    "isScanning=false", "toastMessage=",         "showToast=false"};

TEST_F(DuplicateViewModelTest, AnnouncesTheEndOfAScanAfterItsResult)
{
    scan(music.urls());
    ASSERT_GE(announced.size(), 4U);
    EXPECT_EQ(announced[0], "isScanning=true");
    EXPECT_THAT(std::vector(announced.end() - 3, announced.end()),
                ElementsAre("duplicateGroupCount=1", "isScanning=false", "progress=1"));
    EXPECT_EQ(std::ranges::count(announced, "songCount=2"), 1) << "progress does not touch the lists";

    announced.clear();
    scan({music.urlOf(u"nothing"_s)});
    ASSERT_GE(announced.size(), 3U);
    EXPECT_THAT(std::vector(announced.end() - 3, announced.end()),
                ElementsAre("isScanning=false", "alertMessage=No audio files found in the selected folder.",
                            "showAlert=true"));
}

TEST_F(DuplicateViewModelTest, AnnouncesATextBeforeItIsShown)
{
    session.showToast(u"first"_s, ToastType::Success);
    session.showToast(u"second"_s, ToastType::Error);
    EXPECT_THAT(announced, ElementsAre("toastMessage=first", "showToast=true", "toastMessage=second"));
}

TEST_F(DuplicateViewModelTest, AnnouncesAClearedSessionInOrderAndOnceMore)
{
    scan(music.urls());
    session.togglePlayback(session.songs().first());
    scan({music.urlOf(u"nothing"_s)});
    session.importDroppedItems(QList<QUrl>(10'001, music.urlOf(u"Ada - One.mp3"_s)));
    settle();
    EXPECT_NE(session.player(), nullptr);
    EXPECT_TRUE(session.showAlert());
    EXPECT_TRUE(session.showLimitWarning());
    session.startScan(music.urls());

    announced.clear();
    onAnnounced = [this] { EXPECT_THAT(session.songs(), IsEmpty()); };
    session.clearAll();
    EXPECT_EQ(announced, CLEARED);
    EXPECT_THAT(session.pendingImportURLs(), IsEmpty());
    EXPECT_EQ(session.processedFiles(), 0);
    EXPECT_EQ(session.totalFiles(), 0);
    EXPECT_EQ(session.scanMessage(), QString());
    announced.clear();
    settle();
    EXPECT_EQ(announced, CLEARED);
}

TEST_F(DuplicateViewModelTest, LeavesTheLastWordToAListenerThatScansWhenTheSessionIsCleared)
{
    const MusicFolder other;
    other.addSong(u"Cora - Two.flac"_s);
    for (std::size_t change = 1; change <= CLEARED.size(); ++change) {
        onAnnounced = [] {};
        scan(music.urls());
        announced.clear();
        onAnnounced = [this, change, &other] {
            if (announced.size() == change)
                session.startScan(other.urls());
        };
        session.clearAll();
        finishScan(session);
        ASSERT_EQ(session.songs().size(), 1);
        EXPECT_EQ(session.songs()[0].artist, u"Cora"_s);
    }
}

} // namespace
} // namespace sonavo
