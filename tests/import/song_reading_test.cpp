#include "import/disk_task.h"
#include "import/song_read_ahead.h"
#include "import/song_reading.h"
#include "testing/audio_fixtures.h"
#include "testing/open_watch.h"

#include <QDir>
#include <QFile>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QThread>

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(LoadSong, TakesItsTextsFromThePath)
{
    const struct
    {
        QString name, artist, title, fileType;
    } cases[] = {
        {u"Artist - Title.mp3"_s, u"Artist"_s, u"Title"_s, u"MP3"_s},
        {u"Alpha-Beta - Song.m4a"_s, u"Alpha"_s, u"Beta - Song"_s, u"M4A"_s},
        {u"Track01.flac"_s, u""_s, u"Track01"_s, u"FLAC"_s},
        {u"-Intro.wav"_s, u""_s, u"Intro"_s, u"WAV"_s},
        {u"Outro-.WaV"_s, u"Outro"_s, u""_s, u"WAV"_s},
        {u"- - -.aac"_s, u""_s, u"- -"_s, u"AAC"_s},
        {u"  kept as it is\t.mp3"_s, u""_s, u"  kept as it is\t"_s, u"MP3"_s},
        {u" \tA \t-\t B\n.mp3"_s, u"A"_s, u"B\n"_s, u"MP3"_s},
        {u"\u00a0A\u00a0-\u3000B.mp3"_s, u"\u00a0A\u00a0"_s, u"\u3000B"_s, u"MP3"_s},
        {u"A \u2013 B.mp3"_s, u""_s, u"A \u2013 B"_s, u"MP3"_s},
        {u"a.b-c.d.mp3"_s, u"a.b"_s, u"c.d"_s, u"MP3"_s},
        {u"Cafe\u0301 - \U0001F3B5.mp3"_s, u"Cafe\u0301"_s, u"\U0001F3B5"_s, u"MP3"_s},
        {u"A - B.mp3-1"_s, u"A"_s, u"B"_s, u"MP3-1"_s},
        {u"without"_s, u""_s, u"without"_s, u""_s},
        {u"dot."_s, u""_s, u"dot."_s, u""_s},
    };
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"Music/Rock - Pop.old"_s));
    const QByteArray content = audioContent(u"flac"_s, 0.2);
    for (const auto &[name, artist, title, fileType] : cases) {
        const QString path = folder.filePath(u"Music/Rock - Pop.old/"_s + name);
        writeFile(path, content);
        const std::optional<Song> song = loadSong(path);
        ASSERT_TRUE(song) << name.toStdString();
        EXPECT_EQ(song->path, path);
        EXPECT_EQ(song->name, name);
        EXPECT_EQ(song->artist, artist) << name.toStdString();
        EXPECT_EQ(song->title, title) << name.toStdString();
        EXPECT_EQ(song->fileType, fileType) << name.toStdString();
        EXPECT_EQ(song->folderName, u"Rock - Pop.old");
        EXPECT_EQ(song->duration, 0.2);
        EXPECT_EQ(song->size, content.size());
        EXPECT_FALSE(song->id.isNull());
        EXPECT_NE(song->id, loadSong(path)->id);
    }
}

TEST(LoadSong, CountsALinkWithItsOwnSize)
{
    const QTemporaryDir folder;
    writeAudio(folder.filePath(u"real.mp3"_s), 1);
    ASSERT_TRUE(QFile::link(u"real.mp3"_s, folder.filePath(u"link.mp3"_s)));
    const std::optional<Song> real = loadSong(folder.filePath(u"real.mp3"_s));
    const std::optional<Song> link = loadSong(folder.filePath(u"link.mp3"_s));
    ASSERT_TRUE(real && link);
    EXPECT_EQ(link->duration, real->duration);
    EXPECT_EQ(real->size, QFile(real->path).size());
    EXPECT_EQ(link->size, 8);
}

TEST(LoadSong, GivesNothingForFolderSettingsVanishedFilesAndWhatIsNoAudio)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"x.flac"_s);
    writeAudio(path);
    const QByteArray content = audioContent(u"flac"_s, 0.2);
    writeFile(folder.filePath(u"x.DS_Store"_s), content);
    EXPECT_FALSE(loadSong(folder.filePath(u"x.DS_Store"_s)));
    ASSERT_TRUE(loadSong(path));
    writeFile(path, "text");
    EXPECT_FALSE(loadSong(path));
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_FALSE(loadSong(path));
}

TEST(SongReadAhead, OpensABoundedNumberOfFilesAheadAndNoneOnceStoppedOrDestroyed)
{
    const QTemporaryDir folder;
    fillWithSongs(folder.path(), 1500);
    QStringList files;
    for (int i = 0; i < 1500; ++i)
        files += folder.filePath(u"%1.mp3"_s.arg(i));
    std::stop_source stop;
    OpenWatch watch(folder.path());
    QThreadPool &pool = diskThreads();
    {
        SongReadAhead readAhead(files, stop.get_token());
        EXPECT_TRUE(readAhead.next().result().first());
        pool.waitForDone();
        EXPECT_LT(watch.count(), 1000);
    }
    for (const bool isDestroyed : {true, false}) {
        // Keeps the only thread busy until the stop is there.
        pool.setMaxThreadCount(1);
        QSemaphore busy;
        pool.start([&busy] { busy.acquire(); });
        auto readAhead = std::make_unique<SongReadAhead>(files, stop.get_token());
        const QFuture<SongReadAhead::Facts> facts = readAhead->next();
        if (isDestroyed)
            readAhead.reset();
        else
            stop.request_stop();
        busy.release();
        pool.waitForDone();
        EXPECT_TRUE(facts.result().isEmpty());
        EXPECT_EQ(watch.count(), 0);
    }
    pool.setMaxThreadCount(QThread::idealThreadCount());
}

} // namespace
} // namespace sonavo
