#include "actions/clean_up.h"
#include "testing/audio_fixtures.h"
#include "testing/private_home.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <unistd.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

class CleanUpTest : public testing::Test
{
protected:
    CleanUpTest()
    {
        QDir(m_folder.path()).mkdir(u"music"_s);
        QFile::link(pathOf(u"music"_s), pathOf(u"linked"_s));
    }

    [[nodiscard]] QString pathOf(const QString &name) const { return m_folder.filePath(name); }

    /// A song of ten bytes whose file is there.
    [[nodiscard]] Song song(const QString &name) const
    {
        if (!QFileInfo::exists(pathOf(name)))
            writeFile(pathOf(name), "0123456789");
        return missingSong(name);
    }
    [[nodiscard]] Song missingSong(const QString &name) const
    {
        Song song;
        song.id = QUuid::createUuid();
        song.path = pathOf(name);
        song.name = QFileInfo(name).fileName();
        song.size = 10;
        return song;
    }
    [[nodiscard]] static DuplicateGroup group(const Song &original, const QList<Song> &duplicates)
    {
        return {QUuid::createUuid(), original, duplicates, {}};
    }

    /// Cleans up in both ways, each with the same files.
    [[nodiscard]] std::pair<CleanUpOutcome, CleanUpOutcome>
    cleanUpBothWays(const std::function<QList<DuplicateGroup>()> &makeGroups)
    {
        const CleanUpOutcome trashed = trashDuplicates(makeGroups());
        auto folder = DuplicatesFolder::create(pathOf(u"target"_s), QDateTime::currentDateTime());
        m_target = std::get<DuplicatesFolder>(folder).path();
        const CleanUpOutcome moved = moveDuplicates(makeGroups(), std::get<DuplicatesFolder>(folder));
        return {trashed, moved};
    }
    [[nodiscard]] QStringList trashedFiles() const
    {
        const std::string trash = m_home.path(".local/share/Trash/files").string();
        return QDir(QString::fromStdString(trash)).entryList(QDir::Files, QDir::Name);
    }
    [[nodiscard]] QStringList movedFiles() const { return QDir(m_target).entryList(QDir::Files, QDir::Name); }

private:
    const PrivateHome m_home;
    const QTemporaryDir m_folder;
    QString m_target;
};

TEST_F(CleanUpTest, CountsWhatWasMovedAndWhatCouldNotBe)
{
    const auto [trashed, moved] = cleanUpBothWays([this] {
        // Nobody can tell whether there is a file behind a link to itself.
        QFile::link(u"unreachable"_s, pathOf(u"unreachable"_s));
        return QList{
            group(song(u"music/a.mp3"_s), {song(u"music/b.mp3"_s), missingSong(u"music/gone.mp3"_s)}),
            group(song(u"music/c.mp3"_s), {song(u"music/d.mp3"_s), song(u"music/e.mp3"_s)}),
            group(song(u"music/f.mp3"_s), {missingSong(u"unreachable/g.mp3"_s)})};
    });
    EXPECT_EQ(trashed.moved, 3);
    EXPECT_EQ(trashed.savedBytes, 30);
    EXPECT_EQ(trashed.failed, 1);
    EXPECT_THAT(trashedFiles(), ElementsAre(u"b.mp3"_s, u"d.mp3"_s, u"e.mp3"_s));

    EXPECT_EQ(moved.moved, 3);
    EXPECT_EQ(moved.savedBytes, 30);
    EXPECT_EQ(moved.failed, 2);
    EXPECT_THAT(movedFiles(), ElementsAre(u"b.mp3"_s, u"d.mp3"_s, u"e.mp3"_s));
}

TEST_F(CleanUpTest, PassesOverDuplicatesThatAreTheFileOfAnOriginal)
{
    const auto [trashed, moved] = cleanUpBothWays([this] {
        QFile::link(u"a.mp3"_s, pathOf(u"music/link.mp3"_s));
        // One of a file's two names may go, but not from under a link.
        static_cast<void>(song(u"music/d.mp3"_s));
        ::link(QFile::encodeName(pathOf(u"music/d.mp3"_s)), QFile::encodeName(pathOf(u"d.mp3"_s)));
        QFile::link(u"d.mp3"_s, pathOf(u"music/link to d.mp3"_s));
        return QList{group(song(u"music/a.mp3"_s), {song(u"linked/a.mp3"_s), song(u"music/link.mp3"_s),
                                                    song(u"music/b.mp3"_s), song(u"music/c.mp3"_s)}),
                     group(song(u"linked/c.mp3"_s), {song(u"music/a.mp3"_s)}),
                     // The original is the link, and the file that it leads to the duplicate.
                     group(song(u"music/link.mp3"_s), {song(u"music/a.mp3"_s)}),
                     group(song(u"music/link to d.mp3"_s), {song(u"music/d.mp3"_s)})};
    });
    for (const CleanUpOutcome &outcome : {trashed, moved}) {
        EXPECT_EQ(outcome.moved, 1);
        EXPECT_EQ(outcome.savedBytes, 10);
        EXPECT_EQ(outcome.failed, 0);
    }
    EXPECT_THAT(trashedFiles(), ElementsAre(u"b.mp3"_s));
    EXPECT_THAT(movedFiles(), ElementsAre(u"b.mp3"_s));
    EXPECT_TRUE(QFileInfo::exists(pathOf(u"music/a.mp3"_s)));
    EXPECT_TRUE(QFileInfo::exists(pathOf(u"music/c.mp3"_s)));
    EXPECT_TRUE(QFileInfo::exists(pathOf(u"music/d.mp3"_s)));
}

TEST_F(CleanUpTest, LeavesTheDuplicatesOfAMissingOriginalAndFoldersThatHaveASongsName)
{
    const auto [trashed, moved] = cleanUpBothWays([this] {
        QDir().mkpath(pathOf(u"music/folder.mp3"_s));
        return QList{
            group(missingSong(u"music/gone.mp3"_s), {song(u"music/a.mp3"_s), song(u"music/b.mp3"_s)}),
            group(missingSong(u"music/folder.mp3"_s), {song(u"music/c.mp3"_s)}),
            group(song(u"music/d.mp3"_s), {song(u"music/e.mp3"_s), missingSong(u"music/folder.mp3"_s)})};
    });
    EXPECT_EQ(trashed.moved, 1);
    EXPECT_EQ(trashed.failed, 3);
    EXPECT_EQ(moved.moved, 1);
    EXPECT_EQ(moved.failed, 4) << "a folder is not to be moved either";
    EXPECT_TRUE(QFileInfo(pathOf(u"music/folder.mp3"_s)).isDir());
    for (const QString &name : {u"music/a.mp3"_s, u"music/b.mp3"_s, u"music/c.mp3"_s})
        EXPECT_TRUE(QFileInfo::exists(pathOf(name))) << name.toStdString();
}

TEST_F(CleanUpTest, DoesNotTrashASongThatAnotherMemberOfItsGroupWouldMiss)
{
    const Song original = song(u"music/a.mp3"_s);
    const Song again = song(u"linked/a.mp3"_s);
    const Song copy = song(u"music/b.mp3"_s);
    const QList<DuplicateGroup> groups{group(original, {again, copy})};
    for (const Song &member : {original, again}) {
        const auto failure = trashSong(member, groups);
        ASSERT_TRUE(failure);
        EXPECT_FALSE(failure->reason.isEmpty());
    }
    EXPECT_THAT(trashedFiles(), IsEmpty());
    EXPECT_FALSE(trashSong(copy, groups));
    // Without its double, the song may go.
    EXPECT_FALSE(trashSong(original, {group(original, {copy}), group(copy, {again})}));
}

} // namespace
} // namespace sonavo
