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
    /// Cancelled scans come to their end.
    void TearDown() override
    {
        scan.reset();
        settle();
    }

    const QUrl song = QUrl::fromLocalFile(QStringLiteral(SONAVO_SAMPLES "/Albums/Cora Lind - Go.mp3"));
    FakeDesktop desktop;
    const std::shared_ptr<InstantPauses> pauses = std::make_shared<InstantPauses>();
    Library library;
    Notices notices{pauses};
    Scan scan{library, notices, pauses};
    const FileJob job;
    Importer importer{desktop, library, job, scan, notices};
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

TEST_F(ImporterTest, ImportsWhatIsChosenUnlessTheSessionWasClearedMeanwhile)
{
    desktop.choice = QList<QUrl>(500'001, song);
    EXPECT_FALSE(importer.importWithOpenPanel());
    EXPECT_EQ(notices.state().alertMessage,
              u"Cannot import more than 500000 songs.\nPlease select a smaller folder."_s);

    desktop.choice = {song};
    desktop.onChoice = [this] { importer.reset(); };
    EXPECT_FALSE(importer.importWithOpenPanel());
    auto gone = std::make_unique<Importer>(desktop, library, job, scan, notices);
    desktop.onChoice = [&gone] { gone.reset(); };
    EXPECT_FALSE(gone->importWithOpenPanel());
    EXPECT_FALSE(scan.state().isRunning);
    importer.setPendingUrls({song});
    importer.setAsking(true);
    desktop.onChoice = [] {};
    EXPECT_TRUE(importer.importWithOpenPanel());
    EXPECT_FALSE(importer.state().isAsking);
    EXPECT_TRUE(importer.state().pendingUrls.isEmpty()) << "the later import replaces the pending one";
}

TEST_F(ImporterTest, AsksBeforeWhatAnotherProgramOpensReplacesDuplicates)
{
    EXPECT_TRUE(importer.openItems({song}));
    EXPECT_TRUE(scan.state().isRunning) << "nothing is lost";
    EXPECT_EQ(importer.openQuestion(), QString());
    scan.reset();

    DuplicateGroup group;
    group.duplicates = {Song(), Song()};
    library.setDuplicateGroups({group});
    importer.setAsking(true);
    EXPECT_TRUE(importer.openItems({song}));
    EXPECT_FALSE(scan.state().isRunning || importer.state().isAsking);
    EXPECT_EQ(importer.openQuestion(),
              u"Scanning \u201cCora Lind - Go.mp3\u201d replaces this list, which still has 2 duplicates."_s);
    importer.declineOpenedItems();
    EXPECT_FALSE(scan.state().isRunning);
    EXPECT_TRUE(importer.openItems({song, song}));
    EXPECT_TRUE(importer.acceptOpenedItems());
    EXPECT_TRUE(scan.state().isRunning);
    EXPECT_EQ(importer.openQuestion(), QString());
}

} // namespace
} // namespace sonavo
