#include "import/song_reading.h"
#include "session/scan.h"
#include "testing/audio_fixtures.h"
#include "testing/music_folder.h"
#include "testing/test_pauses.h"

#include <gmock/gmock.h>

#include <functional>
#include <limits>
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
        , scan(library, notices, pauses, known)
    {}
    Library library;
    Notices notices;
    const std::shared_ptr<KnownDurations> known = std::make_shared<KnownDurations>();
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

TEST_F(ScanTest, PublishesItsStepsInOrderSongsInThatOfTheFilesAndNotesOfThoseInGroups)
{
    const MusicFolder folder;
    QList<QUrl> urls;
    for (int i = 250; i > 0; --i) {
        const QString name = i == 50 ? u"Cora - Two.flac"_s : u"Ada Finch - Glass Road %1.flac"_s.arg(i);
        if (i % 100 == 0 || i == 50)
            folder.addSong(name);
        else
            writeFile(folder.pathOf(name), "no song");
        urls += folder.urlOf(name);
    }
    scan(urls);
    const QList<Song> &songs = session->library.songs();
    ASSERT_EQ(songs.size(), 3);
    EXPECT_EQ(songs[0].title, u"Glass Road 200"_s);
    FileNotes notes;
    for (const Song &song : songs.first(2))
        notes[song.id] = readAudioFile(song.path).value_or(AudioFileInfo()).note;
    EXPECT_EQ(session->library.notes(), notes);
    // Those of the analysis are its own matter.
    ASSERT_EQ(entries.size(), 24U);
    entries.erase(entries.begin() + 14, entries.end() - 3);
    EXPECT_THAT(entries,
                ElementsAre("running 0 0/0 Starting scan...",
                            "running 0 0/0 Step 1/4: Discovering audio files...", "200 ms",
                            "running 0 0/250 Step 1/4: Processing 250 audio files...",
                            "running 0.2 50/250 Step 1/4: Processing audio files (50 of 250)",
                            "running 0.4 100/250 Step 1/4: Processing audio files (100 of 250)",
                            "running 0.6 150/250 Step 1/4: Processing audio files (150 of 250)",
                            "running 0.8 200/250 Step 1/4: Processing audio files (200 of 250)", "10 ms",
                            "running 1 250/250 Step 1/4: Processing audio files (250 of 250)", "3 songs",
                            "running 0.33 250/250 Step 2/4: Preparing for duplicate analysis...",
                            "running 0.4 250/250 Step 2/4: Analyzing duplicates...",
                            "running 0.05 250/250 Step 1/4: Grouping by exact title...",
                            "running 1 250/250 Step 4/4: Deep comparison of remaining songs...", "1 groups",
                            "idle 1 250/250 "));
}

TEST_F(ScanTest, TakesThePlayingTimesThatTheLastScanLeftUntilOneOfOtherFiles)
{
    const MusicFolder folder;
    const MusicFolder other;
    for (const MusicFolder *music : {&folder, &other})
        music->addSong(u"Ada - One.flac"_s);
    const QString path = folder.pathOf(u"Ada - One.flac"_s);
    const FileVersion version = RegularFile(path).version();
    constexpr double KNOWN = 77.0;
    session->known->add(path, version, std::numeric_limits<qint64>::max(), Sound{KNOWN});
    std::vector<QUuid> ids;
    for (int run = 0; run < 2; ++run) {
        scan(folder.urls());
        ASSERT_EQ(session->library.songs().size(), 1);
        EXPECT_EQ(session->library.songs().front().duration, KNOWN);
        ids.push_back(session->library.songs().front().id);
    }
    EXPECT_NE(ids[0], ids[1]);
    scan(other.urls());
    EXPECT_FALSE(session->known->find(path, version));
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
