#include "session/read_songs.h"
#include "testing/audio_fixtures.h"
#include "testing/test_pauses.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

class ReadSongs : public testing::Test
{
protected:
    /// Paths of many songs, every `unreadable`-th of which cannot be read.
    QStringList manyFiles(int count, int unreadable) const
    {
        fillWithSongs(m_folder.path(), count);
        writeFile(m_folder.filePath(u"text"_s), "text");
        QStringList files;
        for (int i = 1; i <= count; ++i)
            files += m_folder.filePath(i % unreadable == 0 ? u"text"_s : u"%1.mp3"_s.arg(i - 1));
        return files;
    }

    std::optional<QList<Song>> read(const QStringList &files)
    {
        events.clear();
        const auto pauses = std::make_shared<InstantPauses>();
        pauses->onPause = [this](std::chrono::milliseconds length) {
            record(u"pause %1"_s.arg(length.count()));
        };
        return QCoro::waitFor(readSongs(files, pauses, stop.get_token(),
                                        [this](qint64 processed) { record(QString::number(processed)); }));
    }

    QStringList events;
    /// The event at which the reading is stopped.
    QString stopAt;
    std::stop_source stop;

private:
    void record(const QString &event)
    {
        events += event;
        if (event == stopAt)
            stop.request_stop();
    }

    const QTemporaryDir m_folder;
};

TEST_F(ReadSongs, KeepsTheOrderOfTheFilesWithoutTheUnreadableOnes)
{
    QStringList files = manyFiles(700, 3);
    const std::optional<QList<Song>> songs = read(files);
    ASSERT_TRUE(songs);
    QStringList paths;
    for (const Song &song : *songs)
        paths += song.path;
    for (qsizetype i = 698; i >= 0; i -= 3)
        files.removeAt(i);
    EXPECT_EQ(paths, files);
    EXPECT_EQ(read({}), QList<Song>());
}

TEST_F(ReadSongs, GivesNothingWhenStoppedOnTheWay)
{
    const QStringList files = manyFiles(200, 1000);
    const std::pair<QString, QStringList> cases[] = {
        {u"100"_s, {u"50"_s, u"100"_s}},
        {u"pause 10"_s, {u"50"_s, u"100"_s, u"150"_s, u"200"_s, u"pause 10"_s}},
    };
    for (const auto &[event, expected] : cases) {
        stop = std::stop_source();
        stopAt = event;
        EXPECT_FALSE(read(files));
        EXPECT_EQ(events, expected);
    }
    EXPECT_FALSE(read(files));
    EXPECT_EQ(events, QStringList());
}

} // namespace
} // namespace sonavo
