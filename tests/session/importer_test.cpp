#include "session/importer.h"
#include "testing/audio_fixtures.h"
#include "testing/fake_desktop.h"
#include "testing/hanging_disk.h"
#include "testing/music_folder.h"
#include "testing/test_pauses.h"

#include <QElapsedTimer>

#include <gmock/gmock.h>

#include <utility>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

class ImporterTest : public testing::Test
{
protected:
    ImporterTest()
    {
        QObject::connect(&scan, &Scan::changed, &scan, [this](const Scan::State &before) {
            hasStarted = hasStarted || (scan.state().isRunning && !before.isRunning);
        });
    }

    /// Cancelled scans come to their end.
    void TearDown() override
    {
        scan.reset();
        settle();
    }

    /// Waits for a scan to start that has not been waited for. A slow disk delays it, and it may be over by
    /// then.
    [[nodiscard]] bool scanStarts()
    {
        return QTest::qWaitFor([this] { return std::exchange(hasStarted, false); }, 20'000);
    }

    const QUrl song = QUrl::fromLocalFile(QStringLiteral(SONAVO_SAMPLES "/Albums/Cora Lind - Go.mp3"));
    FakeDesktop desktop;
    const std::shared_ptr<InstantPauses> pauses = std::make_shared<InstantPauses>();
    Library library;
    Notices notices{pauses};
    Scan scan{library, notices, pauses};
    const FileJob job;
    Importer importer{desktop, library, job, scan, notices};
    bool hasStarted = false;
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
    for (const auto &entry : cases) {
        SCOPED_TRACE(std::to_string(entry.songs) + " + " + std::to_string(entry.items));
        scan.reset();
        importer.reset();
        notices.clearAlert();
        hasStarted = false;
        library.setSongs(QList<Song>(entry.songs));
        const bool isStarted = importer.importDroppedItems(QList<QUrl>(entry.items, song));
        EXPECT_TRUE(entry.starts || !isStarted);
        ASSERT_TRUE(QTest::qWaitFor(
            [&] {
                return hasStarted == entry.starts && importer.state().isAsking == entry.asks &&
                       notices.state().isAlertShown == entry.refuses;
            },
            20'000));
        EXPECT_EQ(importer.state().pendingUrls.size(), entry.asks ? entry.items : 0);
    }
    EXPECT_THAT(
        notices.state().alertMessage.toStdString(),
        testing::StartsWith("Cannot import more than 500000 songs in a single session.\n\nFor large"));
}

TEST_F(ImporterTest, ImportsWhatIsChosenUnlessTheSessionWasClearedMeanwhile)
{
    desktop.choice = QList<QUrl>(500'001, song);
    EXPECT_FALSE(importer.importWithOpenPanel());
    EXPECT_TRUE(QTest::qWaitFor([this] { return notices.state().isAlertShown; }, 20'000));
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
    importer.importWithOpenPanel();
    EXPECT_TRUE(scanStarts());
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
    importer.acceptOpenedItems();
    EXPECT_TRUE(scan.state().isRunning);
    EXPECT_EQ(importer.openQuestion(), QString());
}

TEST_F(ImporterTest, CountsWhatIsOpenedInsteadOfEstimatingIt)
{
    const QTemporaryDir folder;
    fillWithSongs(folder.path(), 2'600);
    const QList<QUrl> folders(3, QUrl::fromLocalFile(folder.path()));
    // An estimate of more than 500,000.
    importer.importDroppedItems(folders + folders);
    ASSERT_TRUE(QTest::qWaitFor([this] { return notices.state().isAlertShown; }, 20'000));
    notices.clearAlert();
    // More than 10,000, then exactly as many.
    for (const bool isAsked : {true, false}) {
        library.setSongs(QList<Song>(isAsked ? 2'201 : 2'200));
        EXPECT_TRUE(importer.openItems(folders));
        EXPECT_TRUE(scan.state().isRunning);
        ASSERT_TRUE(QTest::qWaitFor(
            [this] { return importer.state().isAsking || scan.state().totalFiles > 0; }, 20'000));
        EXPECT_EQ(importer.state().isAsking, isAsked);
        EXPECT_EQ(scan.state().isRunning, !isAsked);
        EXPECT_EQ(importer.state().pendingUrls, isAsked ? folders : QList<QUrl>());
    }
    scan.reset();
    library.setSongs(QList<Song>(500'000));
    EXPECT_TRUE(importer.openItems(folders));
    EXPECT_TRUE(QTest::qWaitFor([this] { return notices.state().isAlertShown; }, 20'000));
    EXPECT_FALSE(scan.state().isRunning || importer.state().isAsking);
    EXPECT_EQ(library.songs().size(), 500'000);
}

TEST_F(ImporterTest, OffersToScanAllThatWasDroppedTogether)
{
    MusicFolder music;
    music.addSong(u"a/A - B.flac"_s);
    music.addSong(u"b\n/C - D.flac"_s);
    const QUrl text = music.urlOf(u"b\n/text.txt"_s);
    const QList<QUrl> folders{music.urlOf(u"a"_s), music.urlOf(u"b\n"_s)};
    const auto isOffered = [this] { return !importer.scanAllText().isEmpty(); };
    importer.importDrop({folders[0], text});
    EXPECT_TRUE(scanStarts());
    EXPECT_FALSE(isOffered());

    importer.importDrop(folders + QList{text});
    ASSERT_TRUE(QTest::qWaitFor(isOffered, 20'000));
    EXPECT_EQ(importer.scanAllText(), u"Scan All 2"_s);
    EXPECT_EQ(importer.scanAllNote(), u"Of 2 items that were dropped, only \u201cb\\n\u201d is scanned"_s);
    EXPECT_EQ(notices.state().toastMessage, importer.scanAllNote());
    EXPECT_EQ(notices.state().toastAction, importer.scanAllText());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !scan.state().isRunning; }, 20'000));
    EXPECT_EQ(library.songs().size(), 1);
    notices.removeToastAction();
    EXPECT_TRUE(notices.state().isToastShown) << "it stays";

    importer.scanAllDropped();
    EXPECT_FALSE(isOffered() || notices.state().isToastShown);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !scan.state().isRunning; }, 20'000));
    EXPECT_EQ(library.songs().size(), 2);
}

TEST_F(ImporterTest, DoesNotWaitForADiskThatHangs)
{
    HangingDisk disk("/hangs");
    const MusicFolder music;
    music.addSong(u"hangs/A - B.flac"_s);
    if (!disk.start())
        GTEST_SKIP() << "no right to let a disk hang, or not the only test";
    const QList<QUrl> hanging{music.urlOf(u"hangs"_s)};
    const auto hangs = [&](std::size_t reads) {
        return QTest::qWaitFor([&] { return disk.hangingReads() == reads; }, 20'000);
    };
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(importer.importDrop(hanging));
    EXPECT_LT(timer.elapsed(), 1'000);
    ASSERT_TRUE(hangs(1));
    // Another import, or the end of the session, takes its place.
    importer.importDroppedItems({song});
    ASSERT_TRUE(scanStarts());
    EXPECT_FALSE(importer.importChosenItems(hanging));
    ASSERT_TRUE(hangs(2));
    scan.start(QList{song} + hanging);
    EXPECT_TRUE(QTest::qWaitFor([this] { return scan.state().foundFiles == 1; }, 20'000));
    ASSERT_TRUE(hangs(3));
    scan.reset();
    importer.reset();
    EXPECT_FALSE(importer.importDrop(hanging + QList{song}));
    ASSERT_TRUE(hangs(4));
    auto gone = std::make_unique<Importer>(desktop, library, job, scan, notices);
    EXPECT_FALSE(gone->importDrop(hanging));
    ASSERT_TRUE(hangs(5));
    gone.reset();
    hasStarted = false;
    disk.letGo();
    ASSERT_TRUE(scanStarts());
    EXPECT_EQ(importer.state().droppedUrls.size(), 2);
}

} // namespace
} // namespace sonavo
