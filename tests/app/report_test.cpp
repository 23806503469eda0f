#include "app/report.h"
#include "app/terminal_text.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace sonavo {
namespace {

Song song(const QString &name, qint64 size, double duration)
{
    Song song;
    song.id = QUuid::createUuid();
    song.path = QStringLiteral("/music/") + name;
    song.name = name;
    song.size = size;
    song.duration = duration;
    song.fileType = QStringLiteral("MP3");
    song.artist = QStringLiteral("Artist");
    song.title = QStringLiteral("Title");
    song.folderName = QStringLiteral("music");
    return song;
}

class ReportTest : public testing::Test
{
protected:
    ReportTest()
    {
        songs = {song(QStringLiteral("a.mp3"), 999, 61.2),
                 song(QStringLiteral("二.mp3"), 5'000'000, 0.1 + 0.2),
                 song(QStringLiteral("c\x1b[2J\nd\u202e.mp3"), 84'300'000, 3725.0)};
        for (int i = 0; i < 7; ++i)
            groups.append({QUuid::createUuid(), songs[2], {songs[0], songs[1]}, {}});
    }

    QList<Song> songs;
    QList<DuplicateGroup> groups;
    QBuffer output;
};

TEST_F(ReportTest, AlignsTheRowsOfAGroupAndAddsUp)
{
    ASSERT_TRUE(output.open(QIODevice::WriteOnly));
    ASSERT_TRUE(writeTextReport(output, songs, {groups[0]}));
    EXPECT_EQ(output.data().toStdString(),
              "Group of 3 songs\n"
              "  ORIGINAL   c\\x1b[2J\\nd\\u202e.mp3  MP3  62:05    84.3 MB  music\n"
              "  DUPLICATE  a.mp3                  MP3   1:01  999 bytes  music\n"
              "  DUPLICATE  二.mp3                 MP3   0:00       5 MB  music\n"
              "\n"
              "1 group \u2022 2 duplicate files \u2022 5 MB to free \u2022 3 songs scanned\n");
}

TEST_F(ReportTest, WritesJsonThatReadsBackExactly)
{
    ASSERT_TRUE(output.open(QIODevice::WriteOnly));
    ASSERT_TRUE(writeJsonReport(output, songs, groups, 6));
    QJsonParseError error;
    const QJsonObject report = QJsonDocument::fromJson(output.data(), &error).object();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();

    const QJsonArray listed = report[QStringLiteral("songs")].toArray();
    ASSERT_EQ(listed.size(), songs.size());
    for (int i = 0; i < listed.size(); ++i) {
        const QJsonObject object = listed[i].toObject();
        EXPECT_EQ(object.size(), 8);
        EXPECT_EQ(object[QStringLiteral("path")].toString(), songs[i].path);
        EXPECT_EQ(object[QStringLiteral("name")].toString(), songs[i].name);
        EXPECT_EQ(object[QStringLiteral("duration")].toDouble(), songs[i].duration);
        EXPECT_EQ(object[QStringLiteral("size")].toInteger(), songs[i].size);
        EXPECT_EQ(object[QStringLiteral("fileType")].toString(), QStringLiteral("MP3"));
        EXPECT_EQ(object[QStringLiteral("folderName")].toString(), QStringLiteral("music"));
    }
    const QJsonArray grouped = report[QStringLiteral("groups")].toArray();
    ASSERT_EQ(grouped.size(), 7);
    EXPECT_EQ(grouped[0].toObject()[QStringLiteral("original")].toInt(-1), 2);
    EXPECT_EQ(grouped[0].toObject()[QStringLiteral("duplicates")].toArray(), (QJsonArray{0, 1}));
    EXPECT_EQ(grouped[5].toObject()[QStringLiteral("color")].toInt(-1), 5);
    EXPECT_EQ(grouped[6].toObject()[QStringLiteral("color")].toInt(-1), 0);
}

} // namespace
} // namespace sonavo
