#include "actions/action_test.h"
#include "actions/duplicates_folder.h"

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
    EXPECT_EQ(folderIn(parent).path(), folder.path());
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
    for (const fs::path &target : {parent, other.path()}) {
        DuplicatesFolder links = folderIn(target);
        for (const fs::path &destination : {fs::path("real.mp3"), real}) {
            fs::create_symlink(destination, home.path("music/link.mp3"));
            EXPECT_TRUE(moves(links, home.path("music/link.mp3")));
        }
        const std::string link = "-> " + real.string();
        EXPECT_EQ(filesIn(pathOf(links)), (Files{{"link.mp3", link}, {"link (1).mp3", link}}));
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
    EXPECT_TRUE(moves(onDisk, home.add("small.mp3", "fits")));
    EXPECT_EQ(filesIn(pathOf(onDisk)), (Files{{"small.mp3", "fits"}}));

    ASSERT_EQ(::mount(nullptr, disk.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
    EXPECT_FALSE(moves(folder, pathOf(onDisk) / "small.mp3"));
    EXPECT_EQ(filesIn(pathOf(onDisk)), (Files{{"small.mp3", "fits"}}));
    EXPECT_EQ(filesIn(parent), Files());
}

} // namespace
} // namespace sonavo
