#include "actions/duplicates_folder.h"
#include "testing/audio_fixtures.h"
#include "testing/child_process.h"
#include "testing/other_file_system.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <csignal>
#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>
#include <thread>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

/// Everything in a folder, hidden files too, in the order of the names.
QStringList entriesOf(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                  QDir::Name);
}

class DuplicatesFolderTest : public testing::Test
{
protected:
    static DuplicatesFolder makeIn(const QString &parent)
    {
        const QDateTime now(QDate(2024, 3, 5), QTime(14, 7, 9));
        return std::get<DuplicatesFolder>(DuplicatesFolder::create(parent, now));
    }
    static bool moves(DuplicatesFolder &folder, const QString &song)
    {
        return std::holds_alternative<MovedFile>(folder.moveHere(song));
    }
    QString addSong(const QString &name, const QByteArray &content) const
    {
        const QString path = m_source.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        writeFile(path, content);
        return path;
    }

    const QTemporaryDir m_source;
    const QTemporaryDir m_target;
};

TEST_F(DuplicatesFolderTest, IsNamedByDateAndTimeAndMadeWithItsParents)
{
    const QString parent = m_target.filePath(u"not yet/there"_s);
    const DuplicatesFolder folder = makeIn(parent);
    EXPECT_EQ(folder.path(), parent + u"/Duplicates_2024-03-05_14-07-09"_s);
    EXPECT_TRUE(QFileInfo(folder.path()).isDir());
    EXPECT_EQ(makeIn(parent).path(), folder.path());
    EXPECT_EQ(makeIn(parent + u'/').path(), folder.path());

    const QString file = addSong(u"file"_s, "in the way");
    const auto failed = DuplicatesFolder::create(file, QDateTime::currentDateTime());
    ASSERT_TRUE(std::holds_alternative<Failure>(failed));
    EXPECT_EQ(std::get<Failure>(failed).reason, u"Not a directory"_s);
    EXPECT_EQ(contentOf(file), "in the way");
}

TEST_F(DuplicatesFolderTest, GivesEveryFileAFreeName)
{
    DuplicatesFolder folder = makeIn(m_target.path());
    writeFile(folder.path() + u"/Song (2).mp3"_s, "was here");
    ASSERT_TRUE(QFile::link(u"nowhere"_s, folder.path() + u"/b.mp3"_s));
    for (const QString &name : {u"1/Song.mp3"_s, u"2/Song.mp3"_s, u"3/Song.mp3"_s, u"4/Song (1).mp3"_s,
                                u"5/a.b.c.flac"_s, u"6/a.b.c.flac"_s, u"7/bare"_s, u"8/bare"_s, u"9/b.mp3"_s,
                                u"10/50%1 Who%3F.mp3"_s, u"11/50%1 Who%3F.mp3"_s})
        EXPECT_TRUE(moves(folder, addSong(name, name.toUtf8()))) << name.toStdString();

    EXPECT_THAT(entriesOf(folder.path()),
                testing::UnorderedElementsAre(
                    u"Song.mp3"_s, u"Song (1).mp3"_s, u"Song (2).mp3"_s, u"Song (3).mp3"_s,
                    u"Song (1) (1).mp3"_s, u"a.b.c.flac"_s, u"a.b.c (1).flac"_s, u"bare"_s, u"bare (1)."_s,
                    u"b.mp3"_s, u"b (1).mp3"_s, u"50%1 Who%3F.mp3"_s, u"50%1 Who%3F (1).mp3"_s));
    EXPECT_EQ(contentOf(folder.path() + u"/Song (2).mp3"_s), "was here");
    EXPECT_EQ(contentOf(folder.path() + u"/Song (3).mp3"_s), "3/Song.mp3");
    EXPECT_EQ(contentOf(folder.path() + u"/Song (1) (1).mp3"_s), "4/Song (1).mp3");
    EXPECT_FALSE(moves(folder, m_source.filePath(u"gone.mp3"_s)));
}

TEST_F(DuplicatesFolderTest, LosesNothingWhenTwoFillItAtOnce)
{
    constexpr int SONGS = 300;
    for (const QString &side : {u"a"_s, u"b"_s}) {
        for (int i = 0; i < SONGS; ++i)
            addSong(u"%1/%2/Song.mp3"_s.arg(side).arg(i), side.toUtf8() + QByteArray::number(i));
    }
    const auto moveAll = [this](const QString &side) {
        DuplicatesFolder folder = makeIn(m_target.path());
        for (int i = 0; i < SONGS; ++i)
            EXPECT_TRUE(moves(folder, m_source.filePath(u"%1/%2/Song.mp3"_s.arg(side).arg(i))));
    };
    std::thread first(moveAll, u"a"_s);
    std::thread second(moveAll, u"b"_s);
    first.join();
    second.join();

    const QString path = makeIn(m_target.path()).path();
    QSet<QByteArray> contents;
    for (const QString &name : entriesOf(path))
        contents.insert(contentOf(path + u'/' + name));
    EXPECT_EQ(contents.size(), 2 * SONGS);
}

TEST_F(DuplicatesFolderTest, MovesALinkThatLeadsToTheSameFileAfterwards)
{
    const OtherFileSystem other;
    addSong(u"real.mp3"_s, "real");
    for (const QString &target : {m_target.path(), other.path()}) {
        DuplicatesFolder folder = makeIn(target);
        for (const QString &destination : {u"real.mp3"_s, m_source.filePath(u"real.mp3"_s)}) {
            const QString link = m_source.filePath(u"link.mp3"_s);
            std::filesystem::create_symlink(destination.toStdString(), link.toStdString());
            EXPECT_TRUE(moves(folder, link));
            EXPECT_FALSE(QFileInfo(link).isSymLink());
        }
        EXPECT_THAT(entriesOf(folder.path()), ElementsAre(u"link (1).mp3"_s, u"link.mp3"_s));
        for (const QString &name : entriesOf(folder.path())) {
            EXPECT_TRUE(QFileInfo(folder.path() + u'/' + name).isSymLink());
            EXPECT_EQ(contentOf(folder.path() + u'/' + name), "real");
        }
    }
    EXPECT_EQ(contentOf(m_source.filePath(u"real.mp3"_s)), "real");
}

TEST_F(DuplicatesFolderTest, KeepsTheSourceWhenADiskIsFullOrCannotBeWrittenTo)
{
    PrivateMounts mounts;
    const QString disk = m_target.filePath(u"disk"_s);
    if (!mounts.areAllowed() || !mounts.mount(disk.toStdString(), "tmpfs", 0, "none", "size=256k"))
        GTEST_SKIP() << "mounting is not allowed here";
    DuplicatesFolder folder = makeIn(disk);
    const QByteArray content(1'000'000, 'x');
    const QString large = addSong(u"large.mp3"_s, content);
    EXPECT_FALSE(moves(folder, large));
    EXPECT_EQ(contentOf(large), content);
    EXPECT_THAT(entriesOf(folder.path()), IsEmpty());
    EXPECT_TRUE(moves(folder, addSong(u"small.mp3"_s, "fits")));

    ASSERT_EQ(::mount(nullptr, disk.toUtf8(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
    DuplicatesFolder backwards = makeIn(m_source.path());
    EXPECT_FALSE(moves(backwards, folder.path() + u"/small.mp3"_s));
    EXPECT_EQ(contentOf(folder.path() + u"/small.mp3"_s), "fits");
    EXPECT_THAT(entriesOf(backwards.path()), IsEmpty());
}

TEST_F(DuplicatesFolderTest, NeverShowsHalfAFileWhenKilledWhileCopying)
{
    const OtherFileSystem other;
    const QByteArray content(64 * 1024 * 1024, 'x');
    const QString song = addSong(u"a.mp3"_s, content);
    DuplicatesFolder folder = makeIn(other.path());
    bool wasKilledInTime = false;
    for (int microseconds = 2000; !wasKilledInTime && microseconds > 1; microseconds /= 2) {
        const pid_t child = startInChild([&] { return moves(folder, song) ? 0 : 1; });
        ::usleep(static_cast<useconds_t>(microseconds));
        ::kill(child, SIGKILL);
        wasKilledInTime = !exitStatusOf(child);
        const QString target = folder.path() + u"/a.mp3"_s;
        ASSERT_TRUE(contentOf(QFileInfo::exists(song) ? song : target) == content);
        ASSERT_TRUE(!QFileInfo::exists(target) || contentOf(target) == content);
        if (!QFileInfo::exists(song))
            writeFile(song, content);
        QFile::remove(target);
    }
    EXPECT_TRUE(wasKilledInTime);
}

} // namespace
} // namespace sonavo
