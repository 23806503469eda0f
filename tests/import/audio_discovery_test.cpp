#include "import/audio_discovery.h"
#include "testing/private_home.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <limits>
#include <string>
#include <vector>

namespace sonavo {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using Names = std::vector<std::string>;

class AudioDiscoveryTest : public testing::Test
{
protected:
    void add(const Names &files) const
    {
        for (const std::string &name : files)
            home.add(name);
    }
    QList<QUrl> urls(const Names &names) const
    {
        QList<QUrl> urls;
        for (const std::string &name : names)
            urls += QUrl::fromLocalFile(QString::fromStdString(home.path(name)));
        return urls;
    }
    Names discovered(const Names &names = {""}) const
    {
        Names found;
        for (const QString &file : AudioDiscovery(urls(names)).result().result())
            found.push_back(fs::path(file.toStdString()).lexically_relative(home.path()));
        return found;
    }

    const PrivateHome home;
};

TEST_F(AudioDiscoveryTest, ListsAudioExtensionsInByteOrderWithoutNamesThatAreNotUtf8)
{
    add({"b.mp3", "a-.wav", "a/z.FLAC", "a/b/c.aac", "B.Mp3", "song.ogg", "mp3", "song.mp3.txt", "song.",
         "album.mp3/inner.m4a", "n\u0303.mp3", "\u00f1.mp3", "\uff5e.m4a", "\U0001F600.aac", "\ufeff.mp3",
         " \n100%#?\\.mp3", "\xFF.mp3", "\xED\xA0\x80.mp3", "folder\xFF/a.mp3"});
    const Names listed{" \n100%#?\\.mp3", "B.Mp3",      "a/b/c.aac",           "a/z.FLAC",
                       "a-.wav",          "album.mp3",  "album.mp3/inner.m4a", "b.mp3",
                       "n\u0303.mp3",     "\u00f1.mp3", "\ufeff.mp3",          "\uff5e.m4a",
                       "\U0001F600.aac"};
    EXPECT_THAT(discovered(), testing::ElementsAreArray(listed));
}

TEST_F(AudioDiscoveryTest, SkipsHiddenFilesAndPackageContentsUnlessTheyAreGiven)
{
    add({"a.mp3", ".hidden.mp3", ".mp3", ".folder/a.mp3", "Song.band/Media/b.mp3", "Album.ITLP/c.mp3",
         "bands/d.mp3", "x.band.old/e.mp3"});
    EXPECT_THAT(discovered(), ElementsAre("a.mp3", "bands/d.mp3", "x.band.old/e.mp3"));
    EXPECT_THAT(discovered({"Song.band", ".folder", ".mp3", ".hidden.mp3"}),
                ElementsAre("Song.band/Media/b.mp3", ".folder/a.mp3", ".hidden.mp3"));
}

TEST_F(AudioDiscoveryTest, KeepsTheOrderOfItemsAndListsTwiceWhatIsReachedTwice)
{
    add({"b.FLAC", "z/a.mp3", "song.ogg"});
    const Names items{"z", "b.FLAC", "song.ogg", "z/a.mp3", "z/", "vanished", ""};
    EXPECT_THAT(discovered(items),
                ElementsAre("z/a.mp3", "b.FLAC", "z/a.mp3", "z/a.mp3", "b.FLAC", "z/a.mp3"));
    const QList<QUrl> others{QUrl(QStringLiteral("https://example.org/a.mp3")),
                             QUrl(QStringLiteral("file:a.mp3")), QUrl()};
    EXPECT_TRUE(AudioDiscovery(others).result().result().isEmpty());
}

TEST_F(AudioDiscoveryTest, ListsLinksByNameAndFollowsOnlyAGivenLinkToAFolder)
{
    add({"real.mp3", "sub/in.mp3"});
    fs::create_symlink("real.mp3", home.path("link.mp3"));
    fs::create_symlink("nowhere", home.path("broken.mp3"));
    fs::create_symlink("sub", home.path("to_sub.mp3"));
    fs::create_symlink("..", home.path("sub/loop"));
    EXPECT_THAT(discovered(), ElementsAre("broken.mp3", "link.mp3", "real.mp3", "sub/in.mp3", "to_sub.mp3"));
    EXPECT_THAT(discovered({"to_sub.mp3", "link.mp3", "broken.mp3"}),
                ElementsAre("to_sub.mp3/in.mp3", "link.mp3", "broken.mp3"));
}

TEST_F(AudioDiscoveryTest, ListsNothingInUnreadableFolders)
{
    add({"a.mp3", "locked/b.mp3", "z.mp3"});
    ASSERT_EQ(::chmod(home.path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(home.path("locked").c_str(), 0), 0);
    // To root no folder is unreadable.
    const uid_t user = ::geteuid();
    ASSERT_EQ(::seteuid(user == 0 ? 65534 : user), 0);
    EXPECT_FALSE(std::ifstream(home.path("locked/b.mp3")));
    EXPECT_THAT(discovered({"", "locked"}), ElementsAre("a.mp3", "z.mp3"));
    ASSERT_EQ(::seteuid(user), 0);
    ASSERT_EQ(::chmod(home.path("locked").c_str(), 0700), 0);
}

TEST_F(AudioDiscoveryTest, EstimatesByCountingAHundredEntriesAndMultipliesTheWholeCountFromThere)
{
    add({"one.mp3", "song.ogg", "hidden/a.mp3", "hidden/.c/d.mp3", "packages/Song.band/a.mp3",
         "bytes/a.mp3"});
    for (int i = 0; i < 101; ++i) {
        const std::string name = std::to_string(i);
        add({"many/" + name + ".mp3", "other/" + name + ".txt", "bytes/\xFF" + name});
        if (i < 100)
            add({"hundred/" + name + ".mp3", "nested/inner/" + name + ".mp3"});
    }
    const std::pair<Names, qint64> cases[] = {
        {{}, 0},
        {{"one.mp3", "song.ogg", "one.mp3", "vanished"}, 2},
        {{"hidden", "packages", "bytes"}, 3},
        {{"many", "hundred"}, 1110},
        {{"nested"}, 1000},
        {{"one.mp3", "other"}, 10},
        {Names(18, "many"), std::numeric_limits<qint64>::max()},
    };
    for (const auto &[names, count] : cases)
        EXPECT_EQ(estimateSongCount(urls(names)), count) << testing::PrintToString(names);
    // QTemporaryDir cannot.
    fs::remove_all(home.path("bytes"));
}

} // namespace
} // namespace sonavo
