#include "import/disk_task.h"
#include "import/song_read_ahead.h"
#include "testing/audio_fixtures.h"
#include "testing/hanging_disk.h"

#include <QSemaphore>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

const QString HANGS = u"hangs.mp3"_s;

class HangingDiskTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!m_disk.start())
            GTEST_SKIP() << "no right to hold system calls";
    }
    void TearDown() override
    {
        m_disk.letGo();
        EXPECT_TRUE(diskThreads().waitForDone(10'000));
    }

    /// @param hanging which of the files hang
    QStringList files(int count, const std::vector<int> &hanging) const
    {
        const QByteArray song = audioContent(u"mp3"_s, 0.2);
        QStringList files;
        for (int i = 0; i < count; ++i) {
            const bool hangs = std::find(hanging.begin(), hanging.end(), i) != hanging.end();
            files += m_folder.filePath(QString::number(i) + (hangs ? HANGS : u".mp3"_s));
            writeFile(files.back(), song);
        }
        return files;
    }

    const QTemporaryDir m_folder;
    HangingDisk m_disk{HANGS.toUtf8()};
};

TEST_F(HangingDiskTest, OnlyTheFilesThatHangCountAsUnreadable)
{
    const std::vector<int> hanging{0, 1, 19, 20, 45, 46, 47, 99};
    SongReadAhead readAhead(files(100, hanging), {}, 1s);
    std::vector<int> unreadable;
    int number = 0;
    while (readAhead.hasMore()) {
        const QFuture<SongReadAhead::Results> facts = readAhead.next();
        ASSERT_TRUE(QTest::qWaitFor([&facts] { return facts.isFinished(); }, 30'000));
        ASSERT_FALSE(facts.result().isEmpty());
        for (const std::optional<AudioFileInfo> &file : facts.result()) {
            if (!file)
                unreadable.push_back(number);
            ++number;
        }
    }
    EXPECT_EQ(number, 100);
    EXPECT_EQ(unreadable, hanging);
    EXPECT_EQ(m_disk.hangingReads(), 8);

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

TEST_F(HangingDiskTest, KeepsNobodyWaitingWhoStopsOrGoes)
{
    const QStringList songs = files(3, {0, 1, 2});
    std::stop_source stop;
    SongReadAhead stopped(songs, stop.get_token(), 1h);
    const QFuture<SongReadAhead::Results> facts = stopped.next();
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_disk.hangingReads() == 1; }));
    stop.request_stop();
    EXPECT_TRUE(facts.isFinished());

    auto gone = std::make_unique<SongReadAhead>(songs, std::stop_token(), 1h);
    const QFuture<SongReadAhead::Results> nothing = gone->next();
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_disk.hangingReads() == 2; }));
    gone.reset();
    EXPECT_TRUE(nothing.isFinished());
}

} // namespace
} // namespace sonavo
