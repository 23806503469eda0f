#include "report/report_writers.h"
#include "report/terminal_text.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <clocale>
#include <limits>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

Song song(const QString &name, qint64 size, double duration)
{
    return {QUuid::createUuid(), u"/music/"_s + name, name,      duration, size, u"MP3"_s,
            u"Artist"_s,         u"Title"_s,          u"music"_s};
}

class ReportTest : public testing::Test
{
protected:
    ReportTest()
    {
        std::setlocale(LC_ALL, "C.UTF-8"); // for the width of characters
        output.open(QIODevice::WriteOnly);
        songs = {song(u"a.mp3"_s, 999, 61.9), song(u"二.mp3"_s, 5'000'000, 0.1 + 0.2),
                 song(u"c\x1b[2J\nd\u202e.mp3"_s, 84'300'000, 3725.0)};
        for (int i = 0; i < 7; ++i)
            groups.append({QUuid::createUuid(), songs[2], {songs[0], songs[1]}, i % GROUP_TINT_COUNT});
    }

    QList<Song> songs;
    QList<DuplicateGroup> groups;
    QBuffer output;
};

TEST_F(ReportTest, AlignsTheRowsOfAGroupAndAddsUp)
{
    ASSERT_TRUE(writeTextReport(output, songs, {groups[0]}));
    EXPECT_EQ(output.data().toStdString(),
              "Group of 3 songs\n"
              "  ORIGINAL   c\\x1b[2J\\nd\\u202e.mp3  MP3  62:05    84.3 MB  music\n"
              "  DUPLICATE  a.mp3                  MP3   1:01  999 bytes  music\n"
              "  DUPLICATE  二.mp3                 MP3   0:00       5 MB  music\n"
              "\n"
              "1 group \u2022 2 duplicate files \u2022 5 MB to free \u2022 3 songs scanned\n");
    output.buffer().clear();
    groups[0].duplicates[0].size = std::numeric_limits<qint64>::max();
    ASSERT_TRUE(writeTextReport(output, songs, {groups[0]}));
    EXPECT_TRUE(output.data().contains("9.22 EB to free")) << output.data().toStdString();
}

TEST_F(ReportTest, TellsWhatOnlyLookingFurtherFound)
{
    const OnlyFurther onlyFurther = QSet{songs[1].id};
    ASSERT_TRUE(writeTextReport(output, songs, {groups[0]}, onlyFurther));
    const std::string text = output.data().toStdString();
    EXPECT_NE(text.find("  DUPLICATE   a.mp3 "), text.npos) << text;
    EXPECT_NE(text.find("  DUPLICATE*  二.mp3 "), text.npos) << text;
    EXPECT_TRUE(text.ends_with("\n* 1 duplicate found only by looking further: listen before you delete\n"));

    const auto firstGroup = [this](const OnlyFurther &only) {
        QBuffer json;
        json.open(QIODevice::WriteOnly);
        EXPECT_TRUE(writeJsonReport(json, songs, groups, only));
        return QJsonDocument::fromJson(json.data())[u"groups"_s][0].toObject();
    };
    EXPECT_EQ(firstGroup(onlyFurther)[u"foundBy"_s], u"further"_s);
    EXPECT_EQ(firstGroup(onlyFurther)[u"onlyFurther"_s].toArray(), QJsonArray{1});
    EXPECT_EQ(firstGroup(QSet<QUuid>())[u"foundBy"_s], u"passes"_s);
    EXPECT_EQ(firstGroup(QSet<QUuid>())[u"onlyFurther"_s].toArray(), QJsonArray());
    EXPECT_FALSE(firstGroup(std::nullopt).contains(u"foundBy"_s));
}

TEST_F(ReportTest, WritesValuesThatASpreadsheetTakesForWhatTheyAre)
{
    songs[0].path = u"=1+\"2\".mp3"_s;
    songs[1].path = u"/a, \nb.mp3"_s;
    songs[2].duration = 0.0;
    ASSERT_TRUE(writeCsvReport(output, {{{}, songs[0], {songs[1]}}, {{}, songs[1], {songs[2]}}}));
    EXPECT_EQ(output.data().toStdString(),
              "group,role,path,size,seconds,kbit/s\r\n"
              "1,original,\"'=1+\"\"2\"\".mp3\",999,61.900,0\r\n"
              "1,duplicate,\"/a, \nb.mp3\",5000000,0.300,133333\r\n"
              "2,original,\"/a, \nb.mp3\",5000000,0.300,133333\r\n"
              "2,duplicate,\"/music/c\x1b[2J\nd\u202e.mp3\",84300000,0.000,\r\n");
}

TEST_F(ReportTest, WritesJsonThatReadsBackExactly)
{
    ASSERT_TRUE(writeJsonReport(output, songs, groups));
    const QJsonObject report = QJsonDocument::fromJson(output.data()).object();
    const QJsonArray listed = report[u"songs"_s].toArray();
    ASSERT_EQ(listed.size(), 3) << output.data().toStdString();
    for (int i = 0; i < 3; ++i) {
        const QVariantMap expected{{u"path"_s, songs[i].path},         {u"name"_s, songs[i].name},
                                   {u"duration"_s, songs[i].duration}, {u"size"_s, songs[i].size},
                                   {u"fileType"_s, u"MP3"_s},          {u"artist"_s, u"Artist"_s},
                                   {u"title"_s, u"Title"_s},           {u"folderName"_s, u"music"_s}};
        EXPECT_EQ(listed[i], QJsonObject::fromVariantMap(expected));
    }
    const QJsonArray grouped = report[u"groups"_s].toArray();
    ASSERT_EQ(grouped.size(), 7);
    EXPECT_EQ(grouped[0][u"original"_s].toInt(-1), 2);
    EXPECT_EQ(grouped[0][u"duplicates"_s].toArray(), (QJsonArray{0, 1}));
    EXPECT_EQ(grouped[5][u"color"_s].toInt(-1), 5);
    EXPECT_EQ(grouped[6][u"color"_s].toInt(-1), 0);
}

} // namespace
} // namespace sonavo
