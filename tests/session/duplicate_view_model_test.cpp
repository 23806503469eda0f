#include "session/duplicate_view_model.h"
#include "testing/music_folder.h"
#include "testing/persons_desktop.h"
#include "testing/test_pauses.h"

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
        using Session = DuplicateViewModel;
        const std::pair<const char *, void (Session::*)()> properties[] = {
            {"songCount", &Session::songsChanged},
            {"duplicateGroupCount", &Session::duplicateGroupsChanged},
            {"isScanning", &Session::isScanningChanged},
            {"progress", &Session::progressChanged},
            {"processedFiles", &Session::processedFilesChanged},
            {"totalFiles", &Session::totalFilesChanged},
            {"scanMessage", &Session::scanMessageChanged},
            {"showAlert", &Session::showAlertChanged},
            {"alertMessage", &Session::alertMessageChanged},
            {"showToast", &Session::showToastChanged},
            {"toastMessage", &Session::toastMessageChanged},
            {"toastType", &Session::toastTypeChanged},
        };
        for (const auto &[name, changed] : properties) {
            QObject::connect(&session, changed, &session, [this, &session, property = name] {
                entries.push_back(std::string(property) + "=" +
                                  session.property(property).toString().toStdString());
                onEntry();
            });
        }
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

    EXPECT_THAT(log.entries,
                ElementsAre("isScanning=true", "scanMessage=Starting scan...",
                            "scanMessage=Step 1/4: Discovering audio files...", "200 ms", "totalFiles=4",
                            "scanMessage=Step 1/4: Processing 4 audio files...", "songCount=3",
                            "progress=0.33", "scanMessage=Step 2/4: Preparing for duplicate analysis...",
                            "scanMessage=Step 2/4: Analyzing duplicates...", "progress=0.4", "progress=0.05",
                            "scanMessage=Step 1/4: Grouping by exact title...", "100 ms", "progress=0.25",
                            "scanMessage=Step 2/4: Analyzing filename similarities...", "100 ms",
                            "progress=0.5", "scanMessage=Step 3/4: Comparing artist and title...", "100 ms",
                            "progress=0.75", "scanMessage=Step 4/4: Deep comparison of remaining songs...",
                            "100 ms", "progress=1", "duplicateGroupCount=1", "isScanning=false",
                            "scanMessage="));
    ASSERT_EQ(session->duplicateGroups().size(), 1);
    EXPECT_EQ(session->duplicateGroups()[0].original.name, QStringLiteral("Ada Finch - Glass Road.flac"));
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

    /// Runs either scan once for each of its pauses, in which it calls `interfere`, and afterwards `check`.
    void interfereAtEveryPause(const std::function<void()> &interfere, const std::function<void()> &check)
    {
        for (const auto &[folder, pauseCount] : {std::pair(&full, 6), std::pair(&empty, 1)}) {
            for (int pause = 0; pause < pauseCount; ++pause) {
                SCOPED_TRACE(pause);
                int left = pause;
                pauses->onPause = [&left, &interfere](std::chrono::milliseconds) {
                    if (left-- == 0)
                        interfere();
                };
                session = newSession(pauses);
                session->startScan(folder->urls());
                ASSERT_TRUE(QTest::qWaitFor([&left] { return left < 0; }, 2'000));
                settle();
                check();
                pauses->onPause = [](std::chrono::milliseconds) {};
            }
        }
    }

    void expectOnlyTheOtherSong() const
    {
        ASSERT_EQ(session->songs().size(), 1);
        EXPECT_EQ(session->songs()[0].artist, QStringLiteral("Cora Lind"));
    }

    MusicFolder full;
    MusicFolder empty;
    MusicFolder other;
    std::unique_ptr<DuplicateViewModel> session;
};

TEST_F(CancelledScan, PublishesNothingMore)
{
    Log log;
    const auto clear = [&] {
        log.entries.clear();
        session->clearAll();
        log.watch(*session);
    };
    interfereAtEveryPause(clear, [&] {
        expectInitialValues(*session);
        // Only the notice that a cleared session gives of every property, without a new value.
        EXPECT_THAT(log.entries,
                    testing::Each(testing::AnyOf(testing::EndsWith("=0"), testing::EndsWith("=false"),
                                                 testing::EndsWith("="), testing::Eq("toastType=Info"))));
        EXPECT_THAT(log.entries,
                    testing::IsSupersetOf({"songCount=0", "duplicateGroupCount=0", "isScanning=false",
                                           "progress=0", "scanMessage=", "showAlert=false"}));
    });
}

TEST_F(CancelledScan, IsReplacedByANewerOne)
{
    interfereAtEveryPause([this] { session->startScan(other.urls()); },
                          [this] {
                              finishScan(*session);
                              expectOnlyTheOtherSong();
                              EXPECT_THAT(session->duplicateGroups(), IsEmpty());
                              EXPECT_FALSE(session->showAlert());
                              EXPECT_EQ(session->progress(), 1.0);
                          });
}

TEST_F(CancelledScan, EndsQuietlyWhenTheSessionIsGone)
{
    interfereAtEveryPause([this] { session.reset(); }, [] {});
}

TEST_F(CancelledScan, PublishesNothingMoreWhenAListenerClearsTheSession)
{
    for (const MusicFolder *folder : {&full, &empty}) {
        bool hasCleared = true;
        for (std::size_t clearAt = 1; hasCleared; ++clearAt) {
            session = newSession(pauses);
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
            session = newSession(pauses);
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
            isClearing ? session->clearAll() : session->startScan(full.urls());
            finishScan(*session);
            ASSERT_GE(log.entries.size(), startAt);
            expectOnlyTheOtherSong();
            EXPECT_THAT(log.entries, testing::Not(testing::Contains("songCount=2")));
        }
    }
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
    session->startScan({});
    EXPECT_FALSE(session->isScanning());
    EXPECT_EQ(session->pendingImportURLs().size(), 10'001);
    session->clearAll();

    // The songs of the session count, too.
    ASSERT_TRUE(session->importDroppedItems({song}));
    finishScan(*session);
    EXPECT_FALSE(session->importDroppedItems(QList<QUrl>(499'999, song)));
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

TEST_F(DuplicateViewModelTest, ImportsWhatIsChosenInTheOpenPanel)
{
    const MusicFolder folder;
    folder.addSong(QStringLiteral("a.flac"));
    const auto session = newSession(pauses);
    EXPECT_FALSE(session->importWithOpenPanel());
    desktop.choice = QList<QUrl>(500'001, folder.urlOf(QStringLiteral("a.flac")));
    EXPECT_FALSE(session->importWithOpenPanel());
    EXPECT_EQ(session->alertMessage(),
              QStringLiteral("Cannot import more than 500000 songs.\nPlease select a smaller folder."));

    desktop.choice = folder.urls();
    desktop.onChoice = [&session] { session->clearAll(); };
    EXPECT_FALSE(session->importWithOpenPanel());
    expectInitialValues(*session);
    desktop.onChoice = [] {};
    EXPECT_TRUE(session->importWithOpenPanel());
    finishScan(*session);
    EXPECT_EQ(session->songs().size(), 1);
}

TEST_F(DuplicateViewModelTest, HidesANoticeWhenTheTimeOfTheFirstIsOver)
{
    const auto held = std::make_shared<HeldPauses>();
    auto session = newSession(held);
    Log log;
    log.watch(*session);
    session->showToast(QStringLiteral("first"), ToastType::Success);
    session->showToast(QStringLiteral("second"), ToastType::Error);
    EXPECT_THAT(log.entries, ElementsAre("toastMessage=first", "toastType=Success", "showToast=true",
                                         "toastMessage=second", "toastType=Error"));
    ASSERT_EQ(held->count(), 2U);
    EXPECT_EQ(held->lengthOf(0), 3s);

    held->end(0);
    settle();
    EXPECT_FALSE(session->showToast());
    EXPECT_EQ(session->toastMessage(), QStringLiteral("second"));
    // The second comes to its end when the session is gone.
    session.reset();
    held->end(1);
    settle();
}

} // namespace
} // namespace sonavo
