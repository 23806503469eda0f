#include "import/audio_discovery.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

namespace sonavo {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using Names = std::vector<std::string>;

/// A folder of empty files, named relative to it.
class Folder
{
public:
    explicit Folder(const Names &files = {})
    {
        for (const std::string &name : files)
            add(name);
    }

    void add(const std::string &name) const
    {
        fs::create_directories(path(name).parent_path());
        ASSERT_TRUE(std::ofstream(path(name))) << name;
    }
    void addMany(const std::string &folder, int count, const std::string &extension = ".mp3") const
    {
        for (int i = 0; i < count; ++i)
            add((fs::path(folder) / std::to_string(i)).concat(extension));
    }

    fs::path path(const std::string &name = {}) const
    {
        return fs::path(m_folder.path().toStdString()) / name;
    }
    QList<QUrl> urls(const Names &names) const
    {
        QList<QUrl> urls;
        for (const std::string &name : names)
            urls += QUrl::fromLocalFile(QString::fromStdString(path(name)));
        return urls;
    }
    Names discovered(const Names &names = {""}, const std::stop_token &stop = {}) const
    {
        Names found;
        for (const QString &file : discoverAudioFiles(urls(names), stop))
            found.push_back(file.sliced(m_folder.path().size() + 1).toStdString());
        return found;
    }

private:
    QTemporaryDir m_folder;
};

TEST(DiscoverAudioFiles, ListsAudioExtensionsInByteOrderWithoutNamesThatAreNotUtf8)
{
    const Folder folder({"b.mp3",           "a.mp3",        "a-.wav",
                         "a/z.FLAC",        "a/b/c.aac",    "B.Mp3",
                         "song.ogg",        "song",         "mp3",
                         "song.mp3.txt",    "song.",        "album.mp3/inner.m4a",
                         "n\u0303.mp3",     "\u00f1.mp3",   "\uff5e.m4a",
                         "\U0001F600.aac",  "\ufeff.mp3",   " \n100%#?\\.mp3",
                         "\xFF.mp3",        "\xC0\xAF.mp3", "\xED\xA0\x80.mp3",
                         "folder\xFF/a.mp3"});
    const Names listed{" \n100%#?\\.mp3", "B.Mp3",      "a/b/c.aac",           "a/z.FLAC",      "a-.wav",
                       "a.mp3",           "album.mp3",  "album.mp3/inner.m4a", "b.mp3",         "n\u0303.mp3",
                       "\u00f1.mp3",      "\ufeff.mp3", "\uff5e.m4a",          "\U0001F600.aac"};
    EXPECT_THAT(folder.discovered(), testing::ElementsAreArray(listed));
}

TEST(DiscoverAudioFiles, SkipsHiddenFilesAndPackageContentsUnlessTheyAreGiven)
{
    const Folder folder({"a.mp3", ".hidden.mp3", ".mp3", ".folder/a.mp3", "Song.band/Media/b.mp3",
                         "Album.ITLP/c.mp3", "bands/d.mp3", "x.band.old/e.mp3"});
    EXPECT_THAT(folder.discovered(), ElementsAre("a.mp3", "bands/d.mp3", "x.band.old/e.mp3"));
    EXPECT_THAT(folder.discovered({"Song.band", ".folder", ".mp3", ".hidden.mp3"}),
                ElementsAre("Song.band/Media/b.mp3", ".folder/a.mp3", ".hidden.mp3"));
}

TEST(DiscoverAudioFiles, KeepsTheOrderOfItemsAndListsTwiceWhatIsReachedTwiceUntilStopped)
{
    const Folder folder({"b.FLAC", "z/a.mp3", "song.ogg"});
    const Names items{"z", "b.FLAC", "song.ogg", "z/a.mp3", "z/", "vanished", ""};
    EXPECT_THAT(folder.discovered(items),
                ElementsAre("z/a.mp3", "b.FLAC", "z/a.mp3", "z/a.mp3", "b.FLAC", "z/a.mp3"));
    EXPECT_TRUE(discoverAudioFiles({QUrl(QStringLiteral("https://example.org/a.mp3")), QUrl()}).isEmpty());
    std::stop_source stop;
    stop.request_stop();
    EXPECT_LE(folder.discovered({"", "z"}, stop.get_token()).size(), 1U);
}

TEST(DiscoverAudioFiles, ListsLinksByNameAndFollowsOnlyAGivenLinkToAFolder)
{
    const Folder folder({"real.mp3", "sub/in.mp3"});
    fs::create_symlink("real.mp3", folder.path("link.mp3"));
    fs::create_symlink("nowhere", folder.path("broken.mp3"));
    fs::create_symlink("sub", folder.path("to_sub.mp3"));
    fs::create_symlink("..", folder.path("sub/loop"));
    EXPECT_THAT(folder.discovered(),
                ElementsAre("broken.mp3", "link.mp3", "real.mp3", "sub/in.mp3", "to_sub.mp3"));
    EXPECT_THAT(folder.discovered({"to_sub.mp3", "link.mp3", "broken.mp3"}),
                ElementsAre("to_sub.mp3/in.mp3", "link.mp3", "broken.mp3"));
}

TEST(DiscoverAudioFiles, ListsNothingInUnreadableFolders)
{
    const Folder folder({"a.mp3", "locked/b.mp3", "z.mp3"});
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(folder.path("locked").c_str(), 0), 0);
    // To root no folder is unreadable.
    const uid_t user = ::geteuid();
    ASSERT_EQ(::seteuid(user == 0 ? 65534 : user), 0);
    EXPECT_FALSE(std::ifstream(folder.path("locked/b.mp3")));
    EXPECT_THAT(folder.discovered({"", "locked"}), ElementsAre("a.mp3", "z.mp3"));
    ASSERT_EQ(::seteuid(user), 0);
    ASSERT_EQ(::chmod(folder.path("locked").c_str(), 0700), 0);
}

TEST(EstimateSongCount, CountsUpToAHundredEntriesAndMultipliesTheWholeCountFromThere)
{
    const Folder folder({"one.mp3", "song.ogg", "hidden/a.mp3", "hidden/.b.mp3", "hidden/.c/d.mp3",
                         "packages/Song.band/a.mp3"});
    folder.addMany("hundred", 100);
    folder.addMany("many", 101);
    folder.addMany("other", 150, ".txt");
    folder.addMany("nested/inner", 100);
    const std::pair<Names, qint64> cases[] = {
        {{}, 0},
        {{"one.mp3", "song.ogg", "one.mp3", "vanished"}, 2},
        {{"hidden", "packages"}, 2},
        {{"hundred", "hundred"}, 200},
        {{"many", "many"}, 11'110},
        {{"many", "hundred"}, 1110},
        {{"nested"}, 1000},
        {{"one.mp3", "other"}, 10},
        {Names(16, "many"), 1010 * 1'111'111'111'111'111},
        {Names(18, "many"), std::numeric_limits<qint64>::max()},
    };
    for (const auto &[names, count] : cases)
        EXPECT_EQ(estimateSongCount(folder.urls(names)), count) << testing::PrintToString(names);
}

} // namespace
} // namespace sonavo
