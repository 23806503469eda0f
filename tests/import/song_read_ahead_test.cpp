#include "import/audio_discovery.h"
#include "import/song_read_ahead.h"
#include "testing/audio_fixtures.h"
#include "testing/hanging_disk.h"
#include "testing/open_watch.h"

#include <QDir>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace sonavo {
namespace {

using namespace std::chrono_literals;

/// Which files can be read.
std::vector<bool> readAll(const QStringList &files, std::chrono::milliseconds timeout)
{
    SongReadAhead readAhead(files, {}, {}, timeout);
    std::vector<bool> readable;
    while (readAhead.hasMore()) {
        const QFuture<SongReadAhead::Results> results = readAhead.next();
        if (!QTest::qWaitFor([&results] { return results.isFinished(); }, 30'000))
            throw std::runtime_error("the reading does not end");
        for (const std::optional<AudioFileInfo> &info : results.result())
            readable.push_back(info.has_value());
    }
    return readable;
}

TEST(SongReadAheadTest, ReadsABoundedNumberOfFilesAheadAndHandsOverEveryResultInOrder)
{
    const QTemporaryDir folder;
    const QString laterFolder = folder.filePath(QStringLiteral("later"));
    QStringList files = fillWithSongs(folder.path(), 1000) + fillWithSongs(laterFolder, 100);
    std::vector<bool> readable(1100, true);
    for (const std::size_t gone : {0U, 19U, 20U, 500U, 1099U}) {
        files[static_cast<qsizetype>(gone)] += QStringLiteral("gone");
        readable[gone] = false;
    }
    const OpenWatch watch(laterFolder);
    SongReadAhead readAhead(files, {});
    static_cast<void>(readAhead.next());
    diskThreads().waitForDone();
    EXPECT_FALSE(watch.sawOpening());
    EXPECT_EQ(readAll(files, 10s), readable);
    EXPECT_TRUE(watch.sawOpening());
}

TEST(SongReadAheadTest, OpensNoFileOnceStoppedOrDestroyed)
{
    const QTemporaryDir folder;
    const QStringList files = fillWithSongs(folder.path(), 100);
    const OpenWatch watch(folder.path());
    QThreadPool &pool = diskThreads();
    for (const bool isDestroyed : {true, false}) {
        // Keeps every thread busy until the reading is stopped.
        QSemaphore busy;
        for (int i = 0; i < pool.maxThreadCount(); ++i)
            pool.start([&busy] { busy.acquire(); });
        std::stop_source stop;
        auto readAhead = std::make_unique<SongReadAhead>(files, stop.get_token());
        const QFuture<SongReadAhead::Results> results = readAhead->next();
        if (isDestroyed)
            readAhead.reset();
        else
            stop.request_stop();
        busy.release(1000);
        pool.waitForDone();
        EXPECT_TRUE(results.result().isEmpty());
        EXPECT_FALSE(watch.sawOpening());
    }
}

class HangingDiskTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!m_disk.start())
            GTEST_SKIP() << "no right to hold system calls, or not the only test";
    }
    void TearDown() override
    {
        m_disk.letGo();
        EXPECT_TRUE(diskThreads().waitForDone(10'000));
    }

    /// @param readable which files do not hang
    QStringList files(const std::vector<bool> &readable) const
    {
        QStringList files = fillWithSongs(m_folder.path(), static_cast<int>(readable.size()));
        for (std::size_t i = 0; i < readable.size(); ++i) {
            QString &file = files[static_cast<qsizetype>(i)];
            if (!readable[i] && QFile::rename(file, file + QStringLiteral("hangs")))
                file += QStringLiteral("hangs");
        }
        return files;
    }

    HangingDisk m_disk{"hangs"};
    const QTemporaryDir m_folder;
};

TEST_F(HangingDiskTest, OnlyTheFilesThatHangCountAsUnreadable)
{
    std::vector<bool> readable(100, true);
    for (const std::size_t hanging : {0U, 1U, 19U, 20U, 45U, 46U, 47U, 99U})
        readable[hanging] = false;
    EXPECT_EQ(readAll(files(readable), 1s), readable);
    EXPECT_EQ(m_disk.hangingReads(), 8U);

    // Once the disk is back there are no more threads than before.
    m_disk.letGo();
    ASSERT_TRUE(diskThreads().waitForDone(10'000));
    QSemaphore busy;
    for (int i = 0; i < 2 * QThread::idealThreadCount() + 8; ++i)
        diskThreads().start([&busy] { busy.acquire(); });
    EXPECT_EQ(diskThreads().activeThreadCount(), QThread::idealThreadCount());
    busy.release(1000);
    EXPECT_TRUE(diskThreads().waitForDone(10'000));
}

TEST_F(HangingDiskTest, EveryFileThatIsLeftCountsAsUnreadableOnceNoThreadIsLeft)
{
    constexpr std::size_t HANGING = 100;
    constexpr std::size_t FIRST = 20;
    std::vector<bool> readable(2000, true);
    std::fill_n(readable.begin() + FIRST, HANGING, false);
    const std::vector<bool> result = readAll(files(readable), 200ms);
    EXPECT_EQ(result.size(), readable.size());
    EXPECT_TRUE(result.at(FIRST - 1));
    EXPECT_FALSE(result.back());
    EXPECT_LT(m_disk.hangingReads(), HANGING);
}

TEST_F(HangingDiskTest, FoldersThatHangAreLeftOutAndAfterEightOfThemTheWalkEnds)
{
    constexpr int MANY = 20;
    QDir folder(m_folder.path());
    const auto add = [&folder](const QString &name) {
        folder.mkpath(name);
        writeFile(folder.filePath(name + QStringLiteral("/x.mp3")), "");
    };
    const auto discovered = [&folder](std::initializer_list<const char *> names) {
        QList<QUrl> urls;
        for (const char *const name : names)
            urls += QUrl::fromLocalFile(folder.filePath(QString::fromLatin1(name)));
        const AudioDiscovery discovery(urls, 500ms);
        if (!QTest::qWaitFor([&discovery] { return discovery.result().isFinished(); }, 30'000))
            throw std::runtime_error("the walk does not end");
        return discovery.result().result().join(u' ').remove(folder.path() + u'/').toStdString();
    };
    for (const char *const name : {"a", "a/it hangs", "a/later", "it hangs", "z"})
        add(QString::fromLatin1(name));
    for (int i = 0; i < MANY; ++i)
        add(QStringLiteral("many/%1 hangs").arg(i));
    EXPECT_EQ(discovered({"a", "it hangs", "z"}), "a/later/x.mp3 a/x.mp3 z/x.mp3");
    EXPECT_EQ(m_disk.hangingReads(), 2U);
    EXPECT_EQ(discovered({"a/later", "many", "z"}), "a/later/x.mp3");
    EXPECT_EQ(m_disk.hangingReads(), 11U);

    const QList<QUrl> hanging{QUrl::fromLocalFile(folder.filePath(QStringLiteral("it hangs")))};
    const auto estimate = [hanging](ReadCounter &answers) {
        std::ignore = estimateSongCount(hanging, &answers);
    };
    EXPECT_FALSE(waitForDisk(estimate, 200ms));
}

TEST_F(HangingDiskTest, CanBeStoppedOrDestroyedWithoutWaiting)
{
    const QStringList songs = files({false, false, false});
    std::stop_source stop;
    SongReadAhead stopped(songs, stop.get_token(), {}, 1h);
    const QFuture<SongReadAhead::Results> results = stopped.next();
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_disk.hangingReads() == 1; }));
    stop.request_stop();
    EXPECT_TRUE(results.isFinished());

    auto gone = std::make_unique<SongReadAhead>(songs, std::stop_token(), nullptr, 1h);
    const QFuture<SongReadAhead::Results> nothing = gone->next();
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_disk.hangingReads() == 2; }));
    gone.reset();
    EXPECT_TRUE(nothing.isFinished());
}

} // namespace
} // namespace sonavo
