#include "session/importer.h"
#include "testing/fake_desktop.h"
#include "testing/music_folder.h"
#include "testing/test_pauses.h"

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

class ImporterTest : public testing::Test
{
protected:
    ImporterTest() { music.addSong(u"a.flac"_s); }
    /// Cancelled scans come to their end.
    void TearDown() override
    {
        scan.reset();
        settle();
    }

    const MusicFolder music;
    const QUrl song = music.urlOf(u"a.flac"_s);
    FakeDesktop desktop;
    const std::shared_ptr<InstantPauses> pauses = std::make_shared<InstantPauses>();
    Library library;
    Notices notices{pauses};
    Scan scan{library, notices, pauses};
    Importer importer{desktop, library, scan, notices};
};

TEST_F(ImporterTest, AsksBeforeALargeImportAndRefusesAHugeOne)
{
    const struct
    {
        qsizetype songs, items;
        bool starts, asks, refuses;
    } cases[] = {
        {0, 1, true, false, false},       {9'998, 2, true, false, false},   {9'999, 2, false, true, false},
        {499'998, 2, false, true, false}, {499'999, 2, false, false, true},
    };
    for (const auto &[songs, items, starts, asks, refuses] : cases) {
        SCOPED_TRACE(std::to_string(songs) + " + " + std::to_string(items));
        scan.reset();
        importer.reset();
        notices.clearAlert();
        library.setSongs(QList<Song>(songs));
        EXPECT_EQ(importer.importDroppedItems(QList<QUrl>(items, song)), starts);
        EXPECT_EQ(scan.state().isRunning, starts);
        EXPECT_EQ(importer.state().isAsking, asks);
        EXPECT_EQ(importer.state().pendingUrls.size(), asks ? items : 0);
        EXPECT_EQ(notices.state().isAlertShown, refuses);
    }
    EXPECT_THAT(
        notices.state().alertMessage.toStdString(),
        testing::StartsWith("Cannot import more than 500000 songs in a single session.\n\nFor large"));
}

TEST_F(ImporterTest, ScansWhatIsPendingAndKeepsItUntilThen)
{
    importer.setPendingUrls({song});
    importer.startScan({});
    EXPECT_FALSE(scan.state().isRunning);
    EXPECT_EQ(importer.state().pendingUrls.size(), 1);
    importer.startScan(importer.state().pendingUrls);
    EXPECT_TRUE(scan.state().isRunning);
    EXPECT_TRUE(importer.state().pendingUrls.isEmpty());
    EXPECT_TRUE(QTest::qWaitFor([this] { return library.songs().size() == 1; }));
}

TEST_F(ImporterTest, ImportsWhatIsChosenUnlessTheSessionWasClearedMeanwhile)
{
    EXPECT_FALSE(importer.importWithOpenPanel());
    desktop.choice = QList<QUrl>(500'001, song);
    EXPECT_FALSE(importer.importWithOpenPanel());
    EXPECT_EQ(notices.state().alertMessage,
              u"Cannot import more than 500000 songs.\nPlease select a smaller folder."_s);

    desktop.choice = {song};
    desktop.onChoice = [this] { importer.reset(); };
    EXPECT_FALSE(importer.importWithOpenPanel());
    auto gone = std::make_unique<Importer>(desktop, library, scan, notices);
    desktop.onChoice = [&gone] { gone.reset(); };
    EXPECT_FALSE(gone->importWithOpenPanel());
    EXPECT_FALSE(scan.state().isRunning);
    desktop.onChoice = [] {};
    EXPECT_TRUE(importer.importWithOpenPanel());
    EXPECT_TRUE(scan.state().isRunning);
}

TEST_F(ImporterTest, ScansTheLastItemOfADropAndSaysSo)
{
    EXPECT_FALSE(importer.importDrop({QUrl(u"https://example.org/a.flac"_s)}));
    EXPECT_TRUE(importer.importDrop({song}));
    EXPECT_FALSE(notices.state().isToastShown);
    EXPECT_TRUE(importer.importDrop({song, music.urls().first()}));
    EXPECT_THAT(notices.state().toastMessage.toStdString(), testing::StartsWith("Only \u201c"));
}

} // namespace
} // namespace sonavo
