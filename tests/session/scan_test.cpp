#include "session/scan.h"
#include "testing/audio_fixtures.h"
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

struct ScanSession
{
    explicit ScanSession(const std::shared_ptr<Pauses> &pauses)
        : notices(pauses)
        , scan(library, notices, pauses)
    {}
    Library library;
    Notices notices;
    Scan scan;
};

/// A scan and the transcript of what it publishes and of its pauses.
class ScanTest : public testing::Test
{
protected:
    ScanTest()
    {
        m_pauses->onPause = [this](auto length) { record(std::to_string(length.count()) + " ms"); };
        renew();
    }

    void renew()
    {
        entries.clear();
        session = std::make_unique<ScanSession>(m_pauses);
        const auto watch = [this](auto &sender, auto signal, auto text) {
            QObject::connect(&sender, signal, &sender, [this, text] { record(text()); });
        };
        watch(session->library, &Library::songsChanged,
              [this] { return std::to_string(session->library.songs().size()) + " songs"; });
        watch(session->library, &Library::duplicateGroupsChanged,
              [this] { return std::to_string(session->library.duplicateGroups().size()) + " groups"; });
        watch(session->notices, &Notices::changed,
              [this] { return session->notices.state().alertMessage.toStdString(); });
        watch(session->scan, &Scan::changed, [this] {
            const Scan::State &state = session->scan.state();
            const QString status = state.isRunning ? u"running"_s : u"idle"_s;
            const QString files = u"%1/%2"_s.arg(state.processedFiles).arg(state.totalFiles);
            return u"%1 %2 %3 %4"_s.arg(status, QString::number(state.progress), files, state.message)
                .toStdString();
        });
    }
    void scan(const QList<QUrl> &urls)
    {
        session->scan.start(urls);
        finish();
    }
    void finish() const
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !session || !session->scan.state().isRunning; }, 20'000));
        settle();
    }

    std::unique_ptr<ScanSession> session;
    std::vector<std::string> entries;
    std::function<void()> onEntry = [] {};

private:
    void record(const std::string &entry)
    {
        entries.push_back(entry);
        onEntry();
    }

    std::shared_ptr<InstantPauses> m_pauses = std::make_shared<InstantPauses>();
};

TEST_F(ScanTest, PublishesItsStepsInOrder)
{
    const MusicFolder folder;
    for (const QString &name : {u"Ada - One.flac"_s, u"Ada - One.mp3"_s, u"Cora - Two.flac"_s})
        folder.addSong(name);
    writeFile(folder.pathOf(u"Broken.wav"_s), "no song");
    scan(folder.urls());

    // Those of the analysis are its own matter.
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

TEST_F(ScanTest, KeepsTheOrderOfManyFilesWithoutTheUnreadableOnes)
{
    const QTemporaryDir folder;
    QStringList files = fillWithSongs(folder.path(), 450);
    QList<QUrl> urls;
    for (const QString &path : std::as_const(files))
        urls += QUrl::fromLocalFile(path);
    for (qsizetype i = 447; i >= 0; i -= 3) {
        // The songs are links to one file.
        ASSERT_TRUE(QFile::remove(files[i]));
        writeFile(files.takeAt(i), "no song");
    }
    scan(urls);
    QStringList paths;
    for (const Song &song : session->library.songs())
        paths += song.path;
    EXPECT_EQ(paths, files);
    EXPECT_EQ(std::ranges::count(entries, "10 ms"), 2);
    EXPECT_EQ(std::ranges::count_if(entries, [](auto &entry) { return entry.ends_with(" of 450)"); }), 9);
}

/// A scan that makes every kind of change and pause, and those that end in an alert.
class InterruptedScan : public ScanTest
{
protected:
    void SetUp() override
    {
        for (int i = 0; i < 200; ++i)
            writeFile(full.pathOf(u"%1.mp3"_s.arg(i)), "no song");
        full.addSong(u"Ada - One.flac"_s);
        full.addSong(u"Ada - One.wav"_s);
        writeFile(unreadable.pathOf(u"no song.mp3"_s), "no song");
        other.addSong(u"Cora - Two.flac"_s);
    }

    /// Runs every scan once for each of its changes and pauses, at which it calls `interfere`, and
    /// afterwards `check`.
    void interfereEverywhere(const std::function<void()> &interfere, const std::function<void()> &check)
    {
        for (const MusicFolder *folder : {&full, &empty, &unreadable}) {
            std::size_t at = 1;
            for (bool hasInterfered = true; hasInterfered; ++at) {
                SCOPED_TRACE(at);
                onEntry = [] {};
                renew();
                hasInterfered = false;
                onEntry = [&] {
                    if (entries.size() == at && !std::exchange(hasInterfered, true))
                        interfere();
                };
                scan(folder->urls());
                if (hasInterfered)
                    check();
            }
            EXPECT_GT(at, 5U);
        }
    }

    MusicFolder full;
    MusicFolder empty;
    MusicFolder unreadable;
    MusicFolder other;
};

TEST_F(InterruptedScan, IsReplacedByANewerOne)
{
    interfereEverywhere([this] { session->scan.start(other.urls()); },
                        [this] {
                            ASSERT_EQ(session->library.songs().size(), 1);
                            EXPECT_EQ(session->library.songs()[0].artist, u"Cora"_s);
                            EXPECT_THAT(session->library.duplicateGroups(), IsEmpty());
                            EXPECT_EQ(session->scan.state().progress, 1.0);
                        });
}

TEST_F(InterruptedScan, PublishesNothingMoreOnceItIsResetOrDestroyed)
{
    for (const bool isDestroyed : {false, true}) {
        std::size_t count = 0;
        const auto end = [&] {
            isDestroyed ? session.reset() : session->scan.reset();
            count = entries.size();
        };
        interfereEverywhere(end, [&] {
            EXPECT_TRUE(isDestroyed || session->scan.state() == Scan::State());
            // An analysis that is under way still makes its pauses.
            for (std::size_t i = count; i < entries.size(); ++i)
                EXPECT_THAT(entries[i], testing::EndsWith(" ms"));
        });
    }
}

} // namespace
} // namespace sonavo
