#include "session/duplicate_view_model.h"
#include "session/music_folder.h"
#include "session/settling.h"
#include "support/held_pauses.h"
#include "support/instant_pauses.h"
#include "support/persons_desktop.h"

#include <QTest>

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

namespace sonavo {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using ToastType = DuplicateViewModel::ToastType;

/// What a session announces, as "property=value", and the pauses in between.
class Log
{
public:
    void watch(DuplicateViewModel &session)
    {
        const auto log = [this, &session](const char *name, auto changed, auto value) {
            QObject::connect(&session, changed, &session, [this, name, value] {
                entries.push_back(std::string(name) + "=" + value().toStdString());
                onEntry();
            });
        };
        using Session = DuplicateViewModel;
        const auto text = [](bool value) { return value ? QStringLiteral("true") : QStringLiteral("false"); };
        log("songs", &Session::songsChanged, [&session] { return QString::number(session.songs().size()); });
        log("duplicateGroups", &Session::duplicateGroupsChanged,
            [&session] { return QString::number(session.duplicateGroups().size()); });
        log("isScanning", &Session::isScanningChanged,
            [&session, text] { return text(session.isScanning()); });
        log("progress", &Session::progressChanged,
            [&session] { return QString::number(session.progress()); });
        log("processedFiles", &Session::processedFilesChanged,
            [&session] { return QString::number(session.processedFiles()); });
        log("totalFiles", &Session::totalFilesChanged,
            [&session] { return QString::number(session.totalFiles()); });
        log("scanMessage", &Session::scanMessageChanged, [&session] { return session.scanMessage(); });
        log("showAlert", &Session::showAlertChanged, [&session, text] { return text(session.showAlert()); });
        log("alertMessage", &Session::alertMessageChanged, [&session] { return session.alertMessage(); });
        log("showToast", &Session::showToastChanged, [&session, text] { return text(session.showToast()); });
        log("toastMessage", &Session::toastMessageChanged, [&session] { return session.toastMessage(); });
        log("toastType", &Session::toastTypeChanged,
            [&session] { return QString::number(static_cast<int>(session.toastType())); });
    }
    void addPause(std::chrono::milliseconds length)
    {
        entries.push_back(std::to_string(length.count()) + " ms");
    }

    std::vector<std::string> entries;
    std::function<void()> onEntry = [] {};
};

class DuplicateViewModelTest : public testing::Test
{
protected:
    [[nodiscard]] std::unique_ptr<DuplicateViewModel> newSession(std::shared_ptr<Pauses> kind)
    {
        return std::make_unique<DuplicateViewModel>(desktop, std::move(kind), QList<Color>(6));
    }

    static void expectInitialValues(const DuplicateViewModel &session)
    {
        EXPECT_THAT(session.songs(), IsEmpty());
        EXPECT_THAT(session.duplicateGroups(), IsEmpty());
        EXPECT_FALSE(session.isScanning());
        EXPECT_EQ(session.progress(), 0.0);
        EXPECT_EQ(session.processedFiles(), 0);
        EXPECT_EQ(session.totalFiles(), 0);
        EXPECT_EQ(session.scanMessage(), QString());
        EXPECT_FALSE(session.showAlert());
        EXPECT_EQ(session.alertMessage(), QString());
        EXPECT_EQ(session.player(), nullptr);
        EXPECT_FALSE(session.currentlyPlayingSong());
        EXPECT_FALSE(session.showLimitWarning());
        EXPECT_THAT(session.pendingImportURLs(), IsEmpty());
    }

    PersonsDesktop desktop;
    std::shared_ptr<InstantPauses> pauses = std::make_shared<InstantPauses>();
};

TEST_F(DuplicateViewModelTest, StartsEmpty)
{
    const auto session = newSession(pauses);
    expectInitialValues(*session);
    EXPECT_FALSE(session->showToast());
    EXPECT_EQ(session->toastMessage(), QString());
    EXPECT_EQ(session->toastType(), ToastType::Info);
    EXPECT_FALSE(session->property("currentlyPlayingSong").isValid());
}

TEST_F(DuplicateViewModelTest, PublishesAScanStepByStep)
{
    const MusicFolder folder;
    folder.addSong(QStringLiteral("Ada Finch - Glass Road.flac"));
    folder.addSong(QStringLiteral("Ada Finch - Glass Road.mp3"));
    folder.addSong(QStringLiteral("Cora Lind - Opening.flac"));
    folder.addText(QStringLiteral("Broken.wav"));
    const auto session = newSession(pauses);
    Log log;
    log.watch(*session);
    pauses->onPause = [&log](std::chrono::milliseconds length) { log.addPause(length); };

    session->startScan(folder.urls());
    EXPECT_EQ(session->scanMessage(), QStringLiteral("Starting scan..."));
    finishScan(*session);

    EXPECT_THAT(log.entries, ElementsAre("isScanning=true",                                             //
                                         "scanMessage=Starting scan...",                                //
                                         "scanMessage=Step 1/4: Discovering audio files...",            //
                                         "200 ms",                                                      //
                                         "totalFiles=4",                                                //
                                         "scanMessage=Step 1/4: Processing 4 audio files...",           //
                                         "songs=3",                                                     //
                                         "progress=0.33",                                               //
                                         "scanMessage=Step 2/4: Preparing for duplicate analysis...",   //
                                         "scanMessage=Step 2/4: Analyzing duplicates...",               //
                                         "progress=0.4",                                                //
                                         "progress=0.05",                                               //
                                         "scanMessage=Step 1/4: Grouping by exact title...",            //
                                         "100 ms",                                                      //
                                         "progress=0.25",                                               //
                                         "scanMessage=Step 2/4: Analyzing filename similarities...",    //
                                         "100 ms",                                                      //
                                         "progress=0.5",                                                //
                                         "scanMessage=Step 3/4: Comparing artist and title...",         //
                                         "100 ms",                                                      //
                                         "progress=0.75",                                               //
                                         "scanMessage=Step 4/4: Deep comparison of remaining songs...", //
                                         "100 ms",                                                      //
                                         "progress=1",                                                  //
                                         "duplicateGroups=1",                                           //
                                         "isScanning=false",                                            //
                                         "scanMessage="));
    ASSERT_EQ(session->duplicateGroups().size(), 1);
    EXPECT_EQ(session->duplicateGroups()[0].original.name, QStringLiteral("Ada Finch - Glass Road.flac"));
}

TEST_F(DuplicateViewModelTest, ShowsProgressEveryFiftyFilesAndPausesEveryTwoHundred)
{
    const MusicFolder folder;
    for (int i = 0; i < 210; ++i)
        folder.addText(QStringLiteral("%1.mp3").arg(i));
    folder.addSong(QStringLiteral("a.flac"));
    const auto session = newSession(pauses);
    Log log;
    session->startScan(folder.urls());
    log.watch(*session);
    pauses->onPause = [&log](std::chrono::milliseconds length) { log.addPause(length); };
    finishScan(*session);

    const auto processing = std::find(log.entries.begin(), log.entries.end(),
                                      "scanMessage=Step 1/4: Processing 211 audio files...");
    const auto done = std::find(log.entries.begin(), log.entries.end(), "songs=1");
    ASSERT_LT(processing, done);
    EXPECT_THAT(std::vector(processing + 1, done),
                ElementsAre("processedFiles=50", "progress=0.236967",
                            "scanMessage=Step 1/4: Processing audio files (50 of 211)", "processedFiles=100",
                            "progress=0.473934", "scanMessage=Step 1/4: Processing audio files (100 of 211)",
                            "processedFiles=150", "progress=0.7109",
                            "scanMessage=Step 1/4: Processing audio files (150 of 211)", "processedFiles=200",
                            "progress=0.947867", "scanMessage=Step 1/4: Processing audio files (200 of 211)",
                            "10 ms"));
}

TEST_F(DuplicateViewModelTest, SaysWhenThereIsNothingToScan)
{
    const MusicFolder empty;
    empty.addText(QStringLiteral("notes.txt"));
    const auto session = newSession(pauses);
    ASSERT_TRUE(session->importDroppedItems(empty.urls()));
    finishScan(*session);
    EXPECT_TRUE(session->showAlert());
    EXPECT_EQ(session->alertMessage(), QStringLiteral("No audio files found in the selected folder."));
    EXPECT_EQ(session->scanMessage(), QStringLiteral("Step 1/4: Discovering audio files..."));
    session->setShowAlert(false);
    EXPECT_FALSE(session->showAlert());

    const MusicFolder unreadable;
    unreadable.addText(QStringLiteral("a.mp3"));
    session->startScan(unreadable.urls());
    finishScan(*session);
    EXPECT_TRUE(session->showAlert());
    EXPECT_EQ(session->alertMessage(), QStringLiteral("No supported audio files found."));
    EXPECT_EQ(session->scanMessage(), QString());
    EXPECT_EQ(session->progress(), 0.0);
}

/// A folder whose scan makes every kind of pause, and one whose scan ends in an alert.
class CancelledScan : public DuplicateViewModelTest
{
protected:
    void SetUp() override
    {
        for (int i = 0; i < 200; ++i)
            full.addText(QStringLiteral("%1.mp3").arg(i));
        full.addSong(QStringLiteral("Ada Finch - Glass Road.flac"));
        full.addSong(QStringLiteral("Ada Finch - Glass Road.wav"));
        other.addSong(QStringLiteral("Cora Lind - Opening.flac"));
    }

    /// Calls `interfere` at the given pause, counted from 0. Tells whether the scan got so far.
    bool interfereAtPause(int pause, const std::function<void()> &interfere)
    {
        int count = 0;
        pauses->onPause = [&count, pause, interfere](std::chrono::milliseconds) {
            if (count++ == pause)
                interfere();
        };
        const bool isReached = QTest::qWaitFor([&count, pause] { return count > pause; }, 2'000);
        settle();
        pauses->onPause = [](std::chrono::milliseconds) {};
        return isReached;
    }

    static constexpr int PAUSES = 6;
    MusicFolder full;
    MusicFolder empty;
    MusicFolder other;
};

TEST_F(CancelledScan, PublishesNothingMore)
{
    for (const MusicFolder *folder : {&full, &empty}) {
        const int pauseCount = folder == &full ? PAUSES : 1;
        for (int pause = 0; pause < pauseCount; ++pause) {
            const auto session = newSession(pauses);
            Log log;
            session->startScan(folder->urls());
            ASSERT_TRUE(interfereAtPause(pause, [&] {
                session->clearAll();
                log.watch(*session);
            }));
            expectInitialValues(*session);
            // Only the notice that a cleared session gives of every property, without a new value.
            for (const std::string &entry : log.entries) {
                EXPECT_THAT(entry, testing::AnyOf(testing::EndsWith("=0"), testing::EndsWith("=false"),
                                                  testing::EndsWith("="), testing::Eq("toastType=2")))
                    << "pause " << pause;
            }
        }
    }
}

TEST_F(CancelledScan, IsReplacedByANewerOne)
{
    for (const MusicFolder *folder : {&full, &empty}) {
        const int pauseCount = folder == &full ? PAUSES : 1;
        for (int pause = 0; pause < pauseCount; ++pause) {
            const auto session = newSession(pauses);
            session->startScan(folder->urls());
            ASSERT_TRUE(interfereAtPause(pause, [&] { session->startScan(other.urls()); }));
            finishScan(*session);
            ASSERT_EQ(session->songs().size(), 1) << "pause " << pause;
            EXPECT_EQ(session->songs()[0].artist, QStringLiteral("Cora Lind"));
            EXPECT_THAT(session->duplicateGroups(), IsEmpty());
            EXPECT_FALSE(session->showAlert());
            EXPECT_EQ(session->progress(), 1.0);
        }
    }
}

TEST_F(CancelledScan, PublishesNothingMoreWhenAListenerClearsTheSession)
{
    for (const MusicFolder *folder : {&full, &empty}) {
        bool hasCleared = true;
        for (std::size_t clearAt = 1; hasCleared; ++clearAt) {
            const auto session = newSession(pauses);
            Log log;
            log.watch(*session);
            hasCleared = false;
            log.onEntry = [&] {
                // The last thing that a scan says is that it has nothing more to say.
                const bool isLast =
                    log.entries.back() == "scanMessage=" || log.entries.back() == "showAlert=true";
                if (log.entries.size() == clearAt && !isLast) {
                    hasCleared = true;
                    session->clearAll();
                }
            };
            session->startScan(folder->urls());
            finishScan(*session);
            if (hasCleared)
                expectInitialValues(*session);
        }
    }
}

TEST_F(CancelledScan, LeavesTheLastWordToAListenerThatStartsAnotherScan)
{
    // The first notices of a scan, and those of clearing a session with songs.
    for (const bool isClearing : {false, true}) {
        for (std::size_t startAt = 1; startAt <= 5; ++startAt) {
            const auto session = newSession(pauses);
            if (isClearing) {
                session->startScan(full.urls());
                finishScan(*session);
            }
            Log log;
            log.watch(*session);
            log.onEntry = [&] {
                if (log.entries.size() == startAt)
                    session->startScan(other.urls());
            };
            if (isClearing)
                session->clearAll();
            else
                session->startScan(full.urls());
            finishScan(*session);
            ASSERT_GE(log.entries.size(), startAt);
            ASSERT_EQ(session->songs().size(), 1) << isClearing << startAt;
            EXPECT_EQ(session->songs()[0].artist, QStringLiteral("Cora Lind"));
            EXPECT_EQ(std::count(log.entries.begin(), log.entries.end(), "songs=2"), 0);
        }
    }
}

TEST_F(CancelledScan, EndsQuietlyWhenTheSessionIsGone)
{
    for (int pause = 0; pause < PAUSES; ++pause) {
        auto session = newSession(pauses);
        session->startScan(full.urls());
        EXPECT_TRUE(interfereAtPause(pause, [&] { session.reset(); }));
    }
}

TEST_F(DuplicateViewModelTest, ReplacesTheSongsOfTheSession)
{
    const MusicFolder first;
    first.addSong(QStringLiteral("a.flac"));
    const MusicFolder second;
    second.addSong(QStringLiteral("b.flac"));
    const auto session = newSession(pauses);
    session->startScan(first.urls());
    finishScan(*session);
    session->startScan({});
    EXPECT_FALSE(session->isScanning());
    session->startScan(second.urls());
    finishScan(*session);
    ASSERT_EQ(session->songs().size(), 1);
    EXPECT_EQ(session->songs()[0].name, QStringLiteral("b.flac"));
}

TEST_F(DuplicateViewModelTest, AsksBeforeALargeImportAndRefusesAHugeOne)
{
    const MusicFolder folder;
    folder.addSong(QStringLiteral("a.flac"));
    const QUrl song = folder.urlOf(QStringLiteral("a.flac"));
    const auto session = newSession(pauses);

    EXPECT_TRUE(session->importDroppedItems(QList<QUrl>(10'000, song)));
    session->clearAll();
    EXPECT_FALSE(session->importDroppedItems(QList<QUrl>(10'001, song)));
    EXPECT_TRUE(session->showLimitWarning());
    EXPECT_FALSE(session->isScanning());
    EXPECT_EQ(session->pendingImportURLs().size(), 10'001);
    session->clearAll();

    // The songs of the session count, too.
    ASSERT_TRUE(session->importDroppedItems({song}));
    finishScan(*session);
    EXPECT_FALSE(session->importDroppedItems(QList<QUrl>(499'999, song)));
    EXPECT_TRUE(session->showLimitWarning());
    EXPECT_FALSE(session->showAlert());
    EXPECT_FALSE(session->importDroppedItems(QList<QUrl>(500'000, song)));
    EXPECT_TRUE(session->showAlert());
    EXPECT_THAT(
        session->alertMessage().toStdString(),
        testing::StartsWith("Cannot import more than 500000 songs in a single session.\n\nFor large"));
    EXPECT_EQ(session->pendingImportURLs().size(), 499'999);

    session->startScan(session->pendingImportURLs());
    EXPECT_THAT(session->pendingImportURLs(), IsEmpty());
    EXPECT_TRUE(session->isScanning());
    session->clearAll();
    settle();
}

TEST_F(DuplicateViewModelTest, RefusesAnImportTooLargeToCount)
{
    const MusicFolder folder;
    for (int i = 0; i < 101; ++i)
        folder.addText(QStringLiteral("%1.mp3").arg(i));
    const auto session = newSession(pauses);
    for (const int folders : {17, 18, 19, 40}) {
        EXPECT_FALSE(session->importDroppedItems(QList<QUrl>(folders, folder.urls().first())));
        EXPECT_TRUE(session->showAlert()) << folders;
        session->clearAll();
    }
    settle();
}

TEST_F(DuplicateViewModelTest, ImportsWhatIsChosenInTheOpenPanel)
{
    const MusicFolder folder;
    folder.addSong(QStringLiteral("a.flac"));
    const auto session = newSession(pauses);
    EXPECT_FALSE(session->importWithOpenPanel());
    expectInitialValues(*session);

    desktop.choice = QList<QUrl>(500'001, folder.urlOf(QStringLiteral("a.flac")));
    EXPECT_FALSE(session->importWithOpenPanel());
    EXPECT_EQ(session->alertMessage(),
              QStringLiteral("Cannot import more than 500000 songs.\nPlease select a smaller folder."));

    desktop.choice = folder.urls();
    desktop.onChoice = [&session] { session->clearAll(); };
    EXPECT_FALSE(session->importWithOpenPanel());
    EXPECT_FALSE(session->isScanning());

    desktop.onChoice = [] {};
    EXPECT_TRUE(session->importWithOpenPanel());
    finishScan(*session);
    EXPECT_EQ(session->songs().size(), 1);
}

TEST_F(DuplicateViewModelTest, HidesANoticeWhenTheTimeOfTheFirstIsOver)
{
    const auto held = std::make_shared<HeldPauses>();
    const auto session = newSession(held);
    Log log;
    log.watch(*session);
    session->showToast(QStringLiteral("first"), ToastType::Success);
    session->showToast(QStringLiteral("second"), ToastType::Error);
    EXPECT_THAT(log.entries, ElementsAre("toastMessage=first", "toastType=0", "showToast=true",
                                         "toastMessage=second", "toastType=1"));
    ASSERT_EQ(held->count(), 2U);
    EXPECT_EQ(held->lengthOf(0), 3s);

    held->end(0);
    settle();
    EXPECT_FALSE(session->showToast());
    EXPECT_EQ(session->toastMessage(), QStringLiteral("second"));
    held->end(1);
    settle();
    EXPECT_FALSE(session->showToast());
}

TEST_F(DuplicateViewModelTest, ForgetsANoticeWhenTheSessionIsGone)
{
    const auto held = std::make_shared<HeldPauses>();
    auto session = newSession(held);
    session->showToast(QStringLiteral("text"), ToastType::Info);
    session.reset();
    held->end(0);
    settle();
}

TEST_F(DuplicateViewModelTest, AnnouncesEveryPropertyOnceMoreAfterClearing)
{
    auto session = newSession(pauses);
    session->clearAll();
    Log log;
    log.watch(*session);
    settle();
    EXPECT_THAT(log.entries, testing::IsSupersetOf({"songs=0", "duplicateGroups=0", "isScanning=false",
                                                    "progress=0", "scanMessage=", "showAlert=false"}));
    expectInitialValues(*session);

    session->clearAll();
    session.reset();
    settle();
}

} // namespace
} // namespace sonavo
