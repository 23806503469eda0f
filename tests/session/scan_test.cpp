#include "session/scan.h"
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

/// A scan with what it writes to, and the transcript of its changes and pauses.
struct ScanSession
{
    explicit ScanSession(const std::shared_ptr<InstantPauses> &pauses)
        : notices(pauses)
        , scan(library, notices, pauses)
    {
        const auto watch = [this](auto *sender, auto signal, auto text) {
            QObject::connect(sender, signal, &scan, [this, text] { record(text()); });
        };
        watch(&library, &Library::songsChanged,
              [this] { return std::to_string(library.songs().size()) + " songs"; });
        watch(&library, &Library::duplicateGroupsChanged,
              [this] { return std::to_string(library.duplicateGroups().size()) + " groups"; });
        watch(&notices, &Notices::changed,
              [this] { return "alert: " + notices.state().alertMessage.toStdString(); });
        watch(&scan, &Scan::changed, [this] {
            const Scan::State &state = scan.state();
            return (u"%1 %2 %3/%4 "_s.arg(state.isRunning ? u"running"_s : u"idle"_s)
                        .arg(state.progress)
                        .arg(state.processedFiles)
                        .arg(state.totalFiles) +
                    state.message)
                .toStdString();
        });
    }
    void record(const std::string &entry)
    {
        entries.push_back(entry);
        onEntry();
    }
    [[nodiscard]] bool finish() const
    {
        const bool isFinished = QTest::qWaitFor([this] { return !scan.state().isRunning; }, 20'000);
        settle();
        return isFinished;
    }

    std::vector<std::string> entries;
    std::function<void()> onEntry = [] {};
    Library library;
    Notices notices;
    Scan scan;
};

class ScanTest : public testing::Test
{
protected:
    std::shared_ptr<InstantPauses> pauses = std::make_shared<InstantPauses>();
    std::unique_ptr<ScanSession> session = std::make_unique<ScanSession>(pauses);
};

TEST_F(ScanTest, PublishesItsStepsInOrder)
{
    const MusicFolder folder;
    for (const QString &name : {u"Ada - One.flac"_s, u"Ada - One.mp3"_s, u"Cora - Two.flac"_s})
        folder.addSong(name);
    folder.addText(u"Broken.wav"_s);
    pauses->onPause = [this](std::chrono::milliseconds length) {
        session->record(std::to_string(length.count()) + " ms");
    };
    session->scan.start(folder.urls());
    ASSERT_TRUE(session->finish());

    // Those of the analysis are its own matter.
    std::vector<std::string> &entries = session->entries;
    ASSERT_EQ(entries.size(), 18U);
    entries.erase(entries.begin() + 8, entries.end() - 3);
    EXPECT_THAT(entries, ElementsAre("running 0 0/0 Starting scan...",
                                     "running 0 0/0 Step 1/4: Discovering audio files...", "200 ms",
                                     "running 0 0/4 Step 1/4: Processing 4 audio files...", "3 songs",
                                     "running 0.33 0/4 Step 2/4: Preparing for duplicate analysis...",
                                     "running 0.4 0/4 Step 2/4: Analyzing duplicates...",
                                     "running 0.05 0/4 Step 1/4: Grouping by exact title...",
                                     "running 1 0/4 Step 4/4: Deep comparison of remaining songs...",
                                     "1 groups", "idle 1 0/4 "));
    EXPECT_EQ(session->library.duplicateGroups()[0].original.name, u"Ada - One.flac"_s);
}

TEST_F(ScanTest, EndsInAnAlertWhenNothingIsFound)
{
    const MusicFolder folder;
    session->scan.start(folder.urls());
    ASSERT_TRUE(session->finish());
    EXPECT_THAT(session->entries, ElementsAre("running 0 0/0 Starting scan...",
                                              "running 0 0/0 Step 1/4: Discovering audio files...",
                                              "idle 0 0/0 Step 1/4: Discovering audio files...",
                                              "alert: No audio files found in the selected folder."));

    for (int i = 0; i < 50; ++i)
        folder.addText(u"%1.mp3"_s.arg(i));
    session->entries.clear();
    session->scan.start(folder.urls());
    ASSERT_TRUE(session->finish());
    EXPECT_THAT(session->entries,
                testing::IsSupersetOf({"running 1 50/50 Step 1/4: Processing audio files (50 of 50)"}));
    EXPECT_THAT(std::vector(session->entries.end() - 2, session->entries.end()),
                ElementsAre("idle 0 50/50 ", "alert: No supported audio files found."));
}

/// A folder whose scan makes every kind of pause, and one whose scan ends in an alert.
class InterruptedScan : public ScanTest
{
protected:
    void SetUp() override
    {
        for (int i = 0; i < 200; ++i)
            full.addText(u"%1.mp3"_s.arg(i));
        full.addSong(u"Ada - One.flac"_s);
        full.addSong(u"Ada - One.wav"_s);
        other.addSong(u"Cora - Two.flac"_s);
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
                session = std::make_unique<ScanSession>(pauses);
                session->scan.start(folder->urls());
                ASSERT_TRUE(QTest::qWaitFor([&left] { return left < 0; }, 2'000));
                settle();
                check();
                pauses->onPause = [](std::chrono::milliseconds) {};
            }
        }
    }

    /// Runs either scan once for each of its changes, at which it calls `interfere`, and afterwards `check`
    /// with the number of changes until then.
    void interfereAtEveryChange(const std::function<void()> &interfere,
                                const std::function<void(std::size_t)> &check)
    {
        for (const MusicFolder *folder : {&full, &empty}) {
            bool hasInterfered = true;
            for (std::size_t change = 1; hasInterfered; ++change) {
                session = std::make_unique<ScanSession>(pauses);
                hasInterfered = false;
                session->onEntry = [&] {
                    if (session->entries.size() != change)
                        return;
                    hasInterfered = true;
                    interfere();
                };
                session->scan.start(folder->urls());
                ASSERT_TRUE(session->finish());
                if (hasInterfered)
                    check(change);
            }
        }
    }

    void expectOnlyTheOtherSong() const
    {
        ASSERT_TRUE(session->finish());
        ASSERT_EQ(session->library.songs().size(), 1);
        EXPECT_EQ(session->library.songs()[0].artist, u"Cora"_s);
        EXPECT_THAT(session->library.duplicateGroups(), IsEmpty());
        EXPECT_EQ(session->scan.state().progress, 1.0);
    }

    MusicFolder full;
    MusicFolder empty;
    MusicFolder other;
};

TEST_F(InterruptedScan, PublishesNothingMoreOnceItIsReset)
{
    std::size_t count = 0;
    const auto reset = [&] {
        session->scan.reset();
        count = session->entries.size();
    };
    interfereAtEveryPause(reset, [&] {
        EXPECT_EQ(session->scan.state(), Scan::State());
        EXPECT_EQ(session->entries.size(), count);
    });
    interfereAtEveryChange([this] { session->scan.reset(); },
                           [this](std::size_t change) {
                               EXPECT_EQ(session->scan.state(), Scan::State());
                               EXPECT_LE(session->entries.size(), change + 1);
                           });
}

TEST_F(InterruptedScan, IsReplacedByANewerOne)
{
    const auto startOther = [this] { session->scan.start(other.urls()); };
    interfereAtEveryPause(startOther, [this] {
        expectOnlyTheOtherSong();
        EXPECT_FALSE(session->notices.state().isAlertShown);
    });
    interfereAtEveryChange(startOther, [this](std::size_t) { expectOnlyTheOtherSong(); });
}

TEST_F(InterruptedScan, EndsQuietlyWhenTheSessionIsGone)
{
    interfereAtEveryPause([this] { session.reset(); }, [] {});
}

} // namespace
} // namespace sonavo
