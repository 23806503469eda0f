#include "actions/action_test.h"
#include "actions/duplicates_folder.h"
#include "actions/trash.h"
#include "testing/system_call_listener.h"

#include <sys/syscall.h>

#include <set>
#include <thread>

namespace sonavo {
namespace {

class DuplicatesFolderTest : public ActionTest
{
protected:
    static fs::path pathOf(const DuplicatesFolder &folder) { return folder.path().toStdString(); }

    const fs::path parent = home.path("target");
    DuplicatesFolder folder = folderIn(parent);
};

TEST_F(DuplicatesFolderTest, IsNamedByDateAndTimeAndMadeWithItsParents)
{
    const fs::path notYetThere = home.path("not yet/there");
    EXPECT_EQ(pathOf(folderIn(notYetThere)), notYetThere / "Duplicates_2024-03-05_14-07-09");
    EXPECT_TRUE(fs::is_directory(notYetThere / "Duplicates_2024-03-05_14-07-09"));
    QLocale::setDefault(QLocale(QLocale::Persian));
    EXPECT_EQ(folderIn(parent).path(), folder.path());
    QLocale::setDefault(QLocale::system());
    EXPECT_EQ(folderIn(parent / "").path(), folder.path());
    const auto failed = DuplicatesFolder::create(toQString(home.add("file")), QDateTime::currentDateTime());
    EXPECT_EQ(std::get<Failure>(failed).reason, QStringLiteral("Not a directory"));
}

TEST_F(DuplicatesFolderTest, GivesEveryFileAFreeName)
{
    PrivateHome::addFile(pathOf(folder) / "Song (2).mp3", "was here");
    fs::create_symlink("nowhere", pathOf(folder) / "b.mp3");
    for (const char *name :
         {"1/Song.mp3", "2/Song.mp3", "3/Song.mp3", "4/Song (1).mp3", "5/a.b.c.flac", "6/a.b.c.flac",
          "7/bare", "8/bare", "9/b.mp3", "10/50%1 Who%3F.mp3", "11/50%1 Who%3F.mp3"})
        EXPECT_TRUE(moves(folder, home.add(name, name))) << name;
    EXPECT_EQ(filesIn(pathOf(folder)), (Files{{"Song.mp3", "1/Song.mp3"},
                                              {"Song (1).mp3", "2/Song.mp3"},
                                              {"Song (2).mp3", "was here"},
                                              {"Song (3).mp3", "3/Song.mp3"},
                                              {"Song (1) (1).mp3", "4/Song (1).mp3"},
                                              {"a.b.c.flac", "5/a.b.c.flac"},
                                              {"a.b.c (1).flac", "6/a.b.c.flac"},
                                              {"bare", "7/bare"},
                                              {"bare (1).", "8/bare"},
                                              {"b.mp3", "-> nowhere"},
                                              {"b (1).mp3", "9/b.mp3"},
                                              {"50%1 Who%3F.mp3", "10/50%1 Who%3F.mp3"},
                                              {"50%1 Who%3F (1).mp3", "11/50%1 Who%3F.mp3"}}));
    EXPECT_FALSE(moves(folder, home.path("gone.mp3")));
}

TEST_F(DuplicatesFolderTest, CutsNamesThatGetTooLong)
{
    const std::string longest = "a" + QStringLiteral("\u00e9").repeated(125).toStdString() + ".mp3";
    for (const char *song : {"1/", "2/"})
        EXPECT_TRUE(moves(folder, home.add(song + longest, song)));
    const std::string cut = "a" + QStringLiteral("\u00e9").repeated(123).toStdString() + " (1).mp3";
    EXPECT_EQ(filesIn(pathOf(folder)), (Files{{longest, "1/"}, {cut, "2/"}}));
}

TEST_F(DuplicatesFolderTest, ListsWhereItsFilesWere)
{
    const fs::path users = PrivateHome::addFile(pathOf(folder) / "Moved files.csv", "of the user");
    const fs::path list = pathOf(folder) / "Moved files (1).csv";
    EXPECT_FALSE(moves(folder, home.path("missing.mp3")));
    EXPECT_FALSE(fs::exists(list));
    for (const char *song : {"1/a.mp3", "2/a.mp3", "3/b, \"c\".mp3", "4/=1+1.mp3", "5/a\nb.mp3"}) {
        EXPECT_TRUE(moves(folder, home.add(song)));
        EXPECT_FALSE(moves(folder, home.path("missing.mp3")));
    }
    const std::string home1 = home.path().string(); // ends with a slash
    EXPECT_EQ(contentOf(list), "New name,Original path\n"
                               "a.mp3," +
                                   home1 +
                                   "1/a.mp3\n"
                                   "a (1).mp3," +
                                   home1 +
                                   "2/a.mp3\n"
                                   "\"b, \"\"c\"\".mp3\",\"" +
                                   home1 +
                                   "3/b, \"\"c\"\".mp3\"\n"
                                   "./=1+1.mp3," +
                                   home1 +
                                   "4/=1+1.mp3\n"
                                   "\"a\nb.mp3\",\"" +
                                   home1 + "5/a\nb.mp3\"\n");

    const std::string changed = contentOf(list) + "added by the user\n";
    PrivateHome::addFile(list, changed);
    EXPECT_TRUE(moves(folder, home.add("6/c.mp3")));
    EXPECT_EQ(contentOf(users), "of the user");
    EXPECT_EQ(contentOf(list), changed);
    EXPECT_EQ(contentOf(pathOf(folder) / "Moved files (2).csv"),
              "New name,Original path\nc.mp3," + home1 + "6/c.mp3\n");
}

TEST_F(DuplicatesFolderTest, FlushesLikeTheTrashWhereAFileWasBeforeTheFileMoves)
{
    const auto trashes = [](const fs::path &file) {
        return std::holds_alternative<TrashedFile>(moveToTrash(toQString(file)));
    };
    EXPECT_TRUE(moves(folder, home.add("1/a.mp3")) && trashes(home.add("2/a.mp3")));
    home.add("b.mp3");
    home.add("c.mp3");
    std::string calls;
    const auto note = [&calls](const SystemCallListener &listener, const seccomp_notif &call) {
        const bool isMove = call.data.nr == SYS_renameat2;
        const fs::path flushed = "/proc/self/fd/" + std::to_string(call.data.args[0]);
        calls += isMove ? "move " : fs::read_symlink(flushed).filename().string() + ' ';
        listener.letThrough(call.id);
    };
    const auto work = [&] {
        const bool isDone = moves(folder, home.path("b.mp3")) && trashes(home.path("c.mp3"));
        return isDone && calls == "Moved files.csv move c.mp3.trashinfo info move " ? 0 : 1;
    };
    const auto status = runInChild(work, {SYS_fsync, SYS_fdatasync, SYS_renameat2}, note);
    if (status == NOT_ALLOWED)
        GTEST_SKIP() << "no right to filter system calls";
    EXPECT_EQ(status, 0);
}

TEST_F(DuplicatesFolderTest, TakesBackTheLinesOfFilesThatGoBackAndLeavesNothingBehind)
{
    const fs::path list = pathOf(folder) / "Moved files.csv";
    QList<MovedFile> files;
    for (const char *song : {"1/a.mp3", "2/a\nb.mp3", "3/a.mp3", "4/a.mp3"})
        files.append(std::get<MovedFile>(folder.moveHere(toQString(home.add(song)))));
    const auto goesBack = [&files](int number) {
        return DuplicatesFolder::moveBack(files[number]).state == PutBackResult::State::Back;
    };
    const std::string all = contentOf(list);
    EXPECT_TRUE(goesBack(3));
    EXPECT_EQ(contentOf(list), all.substr(0, all.rfind("a (2).mp3")));
    EXPECT_TRUE(goesBack(1));
    DuplicatesFolder::forget({files[1], files[3]});
    const std::string rest = "New name,Original path\na.mp3," + home.path("1/a.mp3").string() +
                             "\na (1).mp3," + home.path("3/a.mp3").string() + '\n';
    EXPECT_EQ(contentOf(list), rest);
    PrivateHome::addFile(list, rest + "added by the user\n");
    EXPECT_TRUE(goesBack(2) && goesBack(0));
    DuplicatesFolder::forget(files);
    EXPECT_EQ(contentOf(list), "New name,Original path\nadded by the user\n");
    PrivateHome::addFile(list, "New name,Original path\n");
    DuplicatesFolder::forget(files);
    EXPECT_TRUE(fs::exists(parent) && !fs::exists(pathOf(folder)));
}

TEST_F(DuplicatesFolderTest, GivesNoFileBackToADiskThatIsNotThereAndLeavesNoFolderBehind)
{
    const fs::path disk = home.path("disk");
    if (!PrivateMounts::areAllowed() || !mounts.mount(disk, "tmpfs"))
        GTEST_SKIP() << "a disk cannot be mounted here";
    const fs::path song = PrivateHome::addFile(disk / "album/a.mp3", "song");
    DuplicatesFolder onOtherDisk = folderIn(other.path());
    const auto moved = std::get<MovedFile>(onOtherDisk.moveHere(toQString(song)));
    using State = PutBackResult::State;

    ::umount2(disk.c_str(), MNT_DETACH);
    EXPECT_EQ(DuplicatesFolder::moveBack(moved).state, State::Stays);
    EXPECT_TRUE(fs::is_empty(disk)) << "the file would be hidden when the disk is mounted";

    ASSERT_TRUE(mounts.mount(disk, "tmpfs"));
    std::stop_source stopped;
    stopped.request_stop();
    EXPECT_EQ(DuplicatesFolder::moveBack(moved, {.stop = stopped.get_token()}).state, State::Stays);
    EXPECT_TRUE(fs::is_empty(disk)) << "folders that were made for it";
    EXPECT_EQ(DuplicatesFolder::moveBack(moved).state, State::Back);
    EXPECT_EQ(contentOf(song), "song");

    DuplicatesFolder::forget({moved});
    EXPECT_FALSE(isAnythingAt(onOtherDisk.path().toStdString()));
    EXPECT_TRUE(moves(onOtherDisk, song)) << "into a new folder";
}

TEST_F(DuplicatesFolderTest, LosesNothingWhenTwoFillItAtOnce)
{
    constexpr int SONGS = 300;
    std::set<std::string> songs;
    for (int i = 0; i < 2 * SONGS; ++i)
        songs.insert(home.add(std::to_string(i) + "/Song.mp3", std::to_string(i)).parent_path().filename());
    const auto moveFrom = [this](int first) {
        DuplicatesFolder sameFolder = folderIn(parent);
        for (int i = first; i < first + SONGS; ++i)
            EXPECT_TRUE(moves(sameFolder, home.path(std::to_string(i) + "/Song.mp3")));
    };
    std::thread second(moveFrom, SONGS);
    moveFrom(0);
    second.join();
    std::set<std::string> moved;
    for (const auto &[name, content] : filesIn(parent))
        moved.insert(content);
    EXPECT_EQ(moved, songs);
}

TEST_F(DuplicatesFolderTest, MovesALinkThatLeadsToTheSameFileAfterwards)
{
    const fs::path real = home.add("music/real.mp3");
    const fs::path link = home.path("music/link.mp3");
    for (const fs::path &target : {parent, other.path()}) {
        DuplicatesFolder links = folderIn(target);
        std::map<std::string, MovedFile> movedByTarget;
        for (const fs::path &destination : {fs::path("real.mp3"), real}) {
            fs::create_symlink(destination, link);
            movedByTarget[destination] = std::get<MovedFile>(links.moveHere(toQString(link)));
        }
        const std::string toReal = "-> " + real.string();
        EXPECT_EQ(filesIn(pathOf(links)), (Files{{"link.mp3", toReal}, {"link (1).mp3", toReal}}));
        for (const auto &[destination, moved] : movedByTarget) {
            EXPECT_EQ(DuplicatesFolder::moveBack(moved).state, PutBackResult::State::Back);
            EXPECT_EQ(contentOf(link), "-> " + destination);
            fs::remove(link);
        }
    }
    EXPECT_EQ(filesIn(home.path("music")), (Files{{"real.mp3", "song"}}));
}

TEST_F(DuplicatesFolderTest, KeepsTheSourceWhenADiskIsFullOrCannotBeWrittenTo)
{
    const fs::path disk = home.path("disk");
    if (!mounts.areAllowed() || !mounts.mount(disk, "tmpfs", 0, "none", "size=256k"))
        GTEST_SKIP() << "mounting is not allowed here";
    DuplicatesFolder onDisk = folderIn(disk);
    const std::string content(1'000'000, 'x');
    const fs::path large = home.add("large.mp3", content);
    EXPECT_FALSE(moves(onDisk, large));
    EXPECT_TRUE(contentOf(large) == content);
    EXPECT_TRUE(fs::is_empty(pathOf(onDisk)));
    EXPECT_TRUE(moves(onDisk, home.add("small.mp3", "fits")));
    EXPECT_EQ(filesIn(pathOf(onDisk)), (Files{{"small.mp3", "fits"}}));

    ASSERT_EQ(::mount(nullptr, disk.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
    EXPECT_FALSE(moves(folder, pathOf(onDisk) / "small.mp3"));
    EXPECT_EQ(filesIn(pathOf(onDisk)), (Files{{"small.mp3", "fits"}}));
    EXPECT_EQ(filesIn(parent), Files());
}

} // namespace
} // namespace sonavo
