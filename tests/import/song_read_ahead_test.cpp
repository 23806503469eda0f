#include "import/disk_task.h"
#include "import/song_read_ahead.h"
#include "testing/audio_fixtures.h"
#include "testing/open_watch.h"

#include <QSemaphore>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace sonavo {
namespace {

TEST(SongReadAheadTest, ReadsABoundedNumberOfFilesAheadAndHandsOverEveryResultInOrder)
{
    const QTemporaryDir folder;
    QStringList files = fillWithSongs(folder.path(), 1500);
    for (qsizetype i = 0; i < files.size(); i += 7)
        files[i] += u'x';
    OpenWatch watch(folder.path());
    SongReadAhead readAhead(files, {});
    QFuture<SongReadAhead::Results> results = readAhead.next();
    diskThreads().waitForDone();
    EXPECT_LT(watch.count(), 1000);
    qsizetype number = 0;
    for (;; results = readAhead.next()) {
        for (const std::optional<AudioFileInfo> &info : results.result())
            ASSERT_EQ(info.has_value(), number++ % 7 != 0) << number;
        if (!readAhead.hasMore())
            break;
    }
    EXPECT_EQ(number, files.size());
}

TEST(SongReadAheadTest, OpensNoFileOnceStoppedOrDestroyed)
{
    const QTemporaryDir folder;
    const QStringList files = fillWithSongs(folder.path(), 100);
    OpenWatch watch(folder.path());
    QThreadPool &pool = diskThreads();
    for (const bool isDestroyed : {true, false}) {
        // Keeps the only thread busy until the reading is stopped.
        pool.setMaxThreadCount(1);
        QSemaphore busy;
        pool.start([&busy] { busy.acquire(); });
        std::stop_source stop;
        auto readAhead = std::make_unique<SongReadAhead>(files, stop.get_token());
        const QFuture<SongReadAhead::Results> results = readAhead->next();
        if (isDestroyed)
            readAhead.reset();
        else
            stop.request_stop();
        busy.release();
        pool.waitForDone();
        EXPECT_TRUE(results.result().isEmpty());
        EXPECT_EQ(watch.count(), 0);
    }
}

} // namespace
} // namespace sonavo
