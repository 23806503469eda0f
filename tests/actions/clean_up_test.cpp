#include "actions/clean_up.h"
#include "testing/audio_fixtures.h"
#include "testing/child_process.h"
#include "testing/other_file_system.h"
#include "testing/private_home.h"
#include "testing/system_call_listener.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <sys/syscall.h>
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
        QDir().mkpath(pathOf(u"music"_s));
        QFile::link(pathOf(u"music"_s), pathOf(u"linked"_s));
    }

    [[nodiscard]] QString pathOf(const QString &name) const
    {
        return QString::fromStdString(home.path(name.toStdString()));
    }

    /// A song of ten bytes whose file is there.
    [[nodiscard]] Song song(const QString &name) const
    {
        if (!QFileInfo::exists(pathOf(name)))
            home.add(name.toStdString(), "0123456789");
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

    [[nodiscard]] DuplicatesFolder makeFolder() const
    {
        return std::get<DuplicatesFolder>(
            DuplicatesFolder::create(pathOf(u"target"_s), QDateTime::currentDateTime()));
    }
    /// Cleans up in both ways, each with the same files.
    [[nodiscard]] std::pair<CleanUpOutcome, CleanUpOutcome>
    cleanUpBothWays(const std::function<QList<DuplicateGroup>()> &makeGroups) const
    {
        const CleanUpOutcome trashed = trashDuplicates(makeGroups());
        DuplicatesFolder folder = makeFolder();
        return {trashed, moveDuplicates(makeGroups(), folder)};
    }
    [[nodiscard]] static QStringList filesIn(const QString &folder)
    {
        return QDir(folder).entryList(QDir::Files, QDir::Name);
    }
    [[nodiscard]] QStringList trashedFiles() const { return filesIn(pathOf(u".local/share/Trash/files"_s)); }
    [[nodiscard]] QStringList movedFiles() const { return filesIn(makeFolder().path()); }

    const PrivateHome home;
};

/// The names of the files that failed.
QStringList failedFiles(const CleanUpOutcome &outcome)
{
    QStringList names;
    for (const FileFailure &failure : outcome.failures) {
        EXPECT_FALSE(failure.reason.isEmpty());
        names.append(QFileInfo(failure.path).fileName());
    }
    return names;
}

TEST_F(CleanUpTest, CountsWhatWasMovedAndWhatCouldNotBe)
{
    const auto [trashed, moved] = cleanUpBothWays([this] {
        // Nobody can tell whether there is a file behind a link to itself.
        QFile::link(u"unreachable"_s, pathOf(u"unreachable"_s));
        return QList{
            group(song(u"music/a.mp3"_s), {song(u"music/b.mp3"_s), missingSong(u"music/gone.mp3"_s)}),
            group(song(u"music/c.mp3"_s), {song(u"music/d.mp3"_s), missingSong(u"unreachable/e.mp3"_s)})};
    });
    EXPECT_EQ(trashed.moved, 2);
    EXPECT_EQ(trashed.savedBytes, 20);
    EXPECT_THAT(failedFiles(trashed), ElementsAre(u"e.mp3"_s));
    EXPECT_THAT(trashedFiles(), ElementsAre(u"b.mp3"_s, u"d.mp3"_s));

    EXPECT_EQ(moved.moved, 2);
    EXPECT_EQ(moved.savedBytes, 20);
    EXPECT_THAT(failedFiles(moved), ElementsAre(u"gone.mp3"_s, u"e.mp3"_s));
    EXPECT_THAT(movedFiles(), ElementsAre(u"b.mp3"_s, u"d.mp3"_s));
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
        EXPECT_THAT(outcome.failures, IsEmpty());
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
    EXPECT_THAT(failedFiles(trashed), ElementsAre(u"a.mp3"_s, u"b.mp3"_s, u"c.mp3"_s));
    EXPECT_EQ(moved.moved, 1);
    EXPECT_EQ(failedFiles(moved).size(), 4) << "a folder is not to be moved either";
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

/// A folder that is also seen through another file system, as other files.
class SecondView : public CleanUpTest
{
protected:
    void SetUp() override
    {
        for (const QString &name : {u"upper"_s, u"work"_s})
            QDir().mkpath(pathOf(name));
        const std::string layers = "lowerdir=" + home.path("music").string() +
                                   ",upperdir=" + home.path("upper").string() +
                                   ",workdir=" + home.path("work").string();
        static_cast<void>(song(u"music/album/a.mp3"_s));
        if (!m_mounts.areAllowed() || !m_mounts.mount(home.path("view"), "overlay", 0, "none", layers))
            GTEST_SKIP() << "an overlay cannot be mounted here";
    }

    const OtherFileSystem otherDisk{};

private:
    PrivateMounts m_mounts;
};

TEST_F(SecondView, KeepsTheOnlyFileOfASong)
{
    const Song real = song(u"music/album/a.mp3"_s);
    const Song view = song(u"view/album/a.mp3"_s);
    const Song copy = song(u"music/b.mp3"_s);
    const QList<DuplicateGroup> groups{group(view, {real, copy})};
    const auto expectKept = [&](const CleanUpOutcome &outcome) {
        EXPECT_THAT(failedFiles(outcome), ElementsAre(u"a.mp3"_s));
        EXPECT_EQ(contentOf(real.path), "0123456789");
        EXPECT_EQ(contentOf(view.path), "0123456789");
    };
    expectKept(trashDuplicates(groups));
    EXPECT_THAT(trashedFiles(), ElementsAre(u"b.mp3"_s));
    static_cast<void>(song(u"music/b.mp3"_s));
    DuplicatesFolder folder = makeFolder();
    expectKept(moveDuplicates(groups, folder));
    EXPECT_THAT(movedFiles(), ElementsAre(u"b.mp3"_s));
    DuplicatesFolder onOtherDisk =
        std::get<DuplicatesFolder>(DuplicatesFolder::create(otherDisk.path(), QDateTime::currentDateTime()));
    expectKept(moveDuplicates({group(view, {real})}, onOtherDisk));
    EXPECT_THAT(filesIn(onOtherDisk.path()), IsEmpty());

    const auto failure = trashSong(real, groups);
    ASSERT_TRUE(failure);
    EXPECT_THAT(failure->reason.toStdString(), testing::HasSubstr("put back"));
    EXPECT_EQ(contentOf(real.path), "0123456789");
}

TEST_F(SecondView, KeepsTheOnlyFileOfAnotherGroup)
{
    const Song view = song(u"view/album/a.mp3"_s);
    const Song real = song(u"music/album/a.mp3"_s);
    const Song copy = song(u"music/b.mp3"_s);
    const CleanUpOutcome outcome =
        trashDuplicates({group(view, {copy}), group(song(u"music/c.mp3"_s), {real})});
    EXPECT_THAT(failedFiles(outcome), ElementsAre(u"b.mp3"_s));
    EXPECT_EQ(outcome.savedBytes, 10);
    EXPECT_EQ(contentOf(copy.path), "0123456789");
    EXPECT_THAT(trashedFiles(), ElementsAre(u"a.mp3"_s));
}

/// What can happen to an original while its duplicate is moved.
TEST_F(CleanUpTest, PutsADuplicateBackWhenItsOriginalIsNotAsItWas)
{
    const QString original = pathOf(u"music/a.mp3"_s);
    const std::pair<const char *, std::function<void()>> cases[] = {
        {"gone", [&] { QFile::remove(original); }},
        {"emptied", [&] { writeFile(original, {}); }},
        {"overwritten", [&] { writeFile(original, "9876543210"); }},
        {"a folder", [&] { QFile::remove(original) && QDir().mkdir(original); }},
    };
    for (const auto &[name, happens] : cases) {
        const QList groups{group(song(u"music/a.mp3"_s), {song(u"music/b.mp3"_s)})};
        const auto cleanUp = [&groups] {
            const CleanUpOutcome outcome = trashDuplicates(groups);
            return outcome.moved == 0 && outcome.failures.size() == 1 ? 0 : 1;
        };
        bool isFirst = true;
        const auto onRename = [&, &happens = happens](const SystemCallListener &listener,
                                                      const seccomp_notif &call) {
            if (std::exchange(isFirst, false))
                happens();
            listener.letThrough(call.id);
        };
        const auto status = runInChild(cleanUp, {SYS_renameat2}, onRename);
        if (status == NOT_ALLOWED)
            GTEST_SKIP() << "no right to filter system calls";
        EXPECT_EQ(status, 0) << name;
        EXPECT_TRUE(QFileInfo::exists(pathOf(u"music/b.mp3"_s))) << name;
        EXPECT_THAT(trashedFiles(), IsEmpty()) << name;
        QDir(original).removeRecursively() || QFile::remove(original);
    }
}

} // namespace
} // namespace sonavo
