#include "actions/action_test.h"
#include "actions/file_identity.h"

namespace sonavo {
namespace {

class FileIdentityTest : public ActionTest
{
protected:
    static bool areOneFileAt(const fs::path &a, const fs::path &b)
    {
        const auto identityOfA = identityOf(toQString(a));
        const auto identityOfB = identityOf(toQString(b));
        return identityOfA && identityOfB && areOneFile(*identityOfA, *identityOfB);
    }
};

TEST_F(FileIdentityTest, SeesOneFileHoweverItIsReachedAndTellsOthersApart)
{
    const fs::path song = home.add("music/a.mp3");
    fs::create_directory(home.path("music/other"));
    fs::create_symlink("music", home.path("linked"));
    fs::create_symlink(song, home.path("link.mp3"));
    for (const char *way : {"music/a.mp3", "music/other/../a.mp3", "linked/a.mp3", "link.mp3"}) {
        EXPECT_TRUE(areOneFileAt(song, home.path(way))) << way;
        EXPECT_TRUE(areOneFileAt(home.path(way), song)) << way;
    }
    fs::create_hard_link(song, home.path("music/b.mp3"));
    for (const fs::path &file :
         {home.path("music/b.mp3"), home.add("copy.mp3"), PrivateHome::addFile(other.path("a.mp3"), "song")})
        EXPECT_FALSE(areOneFileAt(song, file)) << file;

    if (!mounts.areAllowed() || !mounts.mount(home.path("mounted"), nullptr, MS_BIND, home.path("music")))
        GTEST_SKIP() << "mounting is not allowed here";
    EXPECT_TRUE(areOneFileAt(song, home.path("mounted/a.mp3")));
    EXPECT_FALSE(areOneFileAt(song, home.path("mounted/b.mp3")));
}

TEST_F(FileIdentityTest, IsOnlyThereForAFileThatCanBeReached)
{
    fs::create_symlink("nowhere", home.path("dangling.mp3"));
    for (const char *name : {"dangling.mp3", "gone.mp3", ""})
        EXPECT_FALSE(identityOf(toQString(home.path(name)))) << name;
}

} // namespace
} // namespace sonavo
