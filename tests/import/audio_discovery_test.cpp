#include "import/audio_discovery.h"

#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

namespace sonavo {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

/// A folder of empty files, which may lie in folders of their own.
class Folder
{
public:
    explicit Folder(const Names &files = {})
    {
        for (const std::string &name : files)
            add(name);
        m_folder.setAutoRemove(false);
    }
    ~Folder() { fs::remove_all(path()); }
    Q_DISABLE_COPY_MOVE(Folder)

    void add(const std::string &name) const
    {
        fs::create_directories(path(name).parent_path());
        if (!std::ofstream(path(name)))
            throw std::runtime_error("cannot create " + name);
    }
    void addMany(const std::string &folder, int count, const std::string &extension = ".mp3") const
    {
        for (int i = 0; i < count; ++i)
            add(folder + '/' + std::to_string(i) + extension);
    }
    void link(const std::string &name, const std::string &target) const
    {
        fs::create_symlink(target, path(name));
    }

    fs::path path(const std::string &name = {}) const
    {
        return fs::path(m_folder.path().toStdString()) / name;
    }
    QUrl url(const std::string &name = {}) const
    {
        return QUrl::fromLocalFile(QString::fromStdString(path(name)));
    }

    /// What discovery lists for some of the names in it, or for all of it, without the path of the folder.
    Names discovered(const Names &given = {""}, const std::stop_token &stop = {}) const
    {
        QList<QUrl> urls;
        for (const std::string &name : given)
            urls += url(name);
        Names names;
        for (const QString &file : discoverAudioFiles(urls, stop)) {
            EXPECT_TRUE(file.startsWith(m_folder.path() + u'/')) << file.toStdString();
            names.push_back(file.sliced(m_folder.path().size() + 1).toStdString());
        }
        return names;
    }

private:
    QTemporaryDir m_folder;
};

/// Does without the rights of root, to whom no folder is unreadable.
class WithoutRoot
{
public:
    WithoutRoot()
    {
        if (::geteuid() == 0 && ::seteuid(65534) != 0)
            throw std::runtime_error("cannot give up the rights of root");
    }
    ~WithoutRoot() { EXPECT_EQ(::seteuid(m_user), 0); }
    Q_DISABLE_COPY_MOVE(WithoutRoot)

private:
    const uid_t m_user = ::geteuid();
};

/// Nested folders of one name with a song in each, made step by step because the whole path can be too long.
void addNestedFolders(const fs::path &start, const std::string &name, int levels)
{
    const fs::path before = fs::current_path();
    fs::current_path(start);
    for (int level = 0; level < levels; ++level) {
        ASSERT_EQ(::mkdir(name.c_str(), 0700), 0);
        ASSERT_EQ(::chdir(name.c_str()), 0);
        ASSERT_TRUE(std::ofstream("a.mp3"));
    }
    fs::current_path(before);
}

TEST(DiscoverAudioFiles, ListsWhatHasAnAudioExtensionInByteOrderOfNames)
{
    const Folder folder({"b.mp3", "a.mp3", "a-.wav", "a/z.FLAC", "a/b/c.aac", "B.Mp3", "song.ogg",
                         "song.aiff", "song", "mp3", "song.mp3.txt", "song.", "album.mp3/inner.m4a",
                         "\u00e9.mp3", "\uff5e.m4a", "\U0001F600.aac"});
    EXPECT_THAT(folder.discovered(),
                ElementsAre("B.Mp3", "a/b/c.aac", "a/z.FLAC", "a-.wav", "a.mp3", "album.mp3",
                            "album.mp3/inner.m4a", "b.mp3", "\u00e9.mp3", "\uff5e.m4a", "\U0001F600.aac"));
}

TEST(DiscoverAudioFiles, SkipsHiddenFilesAndPackageContents)
{
    const Folder folder({"a.mp3", ".hidden.mp3", ".mp3", ".folder/a.mp3", "Song.band/Media/b.mp3",
                         "Album.ITLP/c.mp3", "bands/d.mp3", "x.band.old/e.mp3"});
    EXPECT_THAT(folder.discovered(), ElementsAre("a.mp3", "bands/d.mp3", "x.band.old/e.mp3"));
    EXPECT_THAT(folder.discovered({"Song.band", ".folder"}),
                ElementsAre("Song.band/Media/b.mp3", ".folder/a.mp3"));
}

TEST(DiscoverAudioFiles, TakesWhatIsGivenInOrderAndListsTwiceWhatIsReachedTwice)
{
    const Folder folder({"b.FLAC", "z/a.mp3", "song.ogg", ".hidden.mp3"});
    EXPECT_THAT(folder.discovered({"z", "b.FLAC", "song.ogg", "z/a.mp3", ".hidden.mp3", "z/", ""}),
                ElementsAre("z/a.mp3", "b.FLAC", "z/a.mp3", ".hidden.mp3", "z/a.mp3", "b.FLAC", "z/a.mp3"));
    EXPECT_THAT(discoverAudioFiles({QUrl(QStringLiteral("https://example.org/a.mp3")), QUrl()}), IsEmpty());
}

TEST(DiscoverAudioFiles, ListsLinksByNameAndWalksNoFolderThroughALinkButAGivenOne)
{
    const Folder folder({"real.mp3", "sub/in.mp3"});
    folder.link("link.mp3", "real.mp3");
    folder.link("broken.mp3", "nowhere");
    folder.link("self.mp3", "self.mp3");
    folder.link("to_sub", "sub");
    folder.link("to_sub.mp3", "sub");
    folder.link("sub/loop", "..");
    EXPECT_THAT(folder.discovered(),
                ElementsAre("broken.mp3", "link.mp3", "real.mp3", "self.mp3", "sub/in.mp3", "to_sub.mp3"));
    EXPECT_THAT(folder.discovered({"to_sub", "link.mp3", "broken.mp3"}),
                ElementsAre("to_sub/in.mp3", "link.mp3", "broken.mp3"));
}

TEST(DiscoverAudioFiles, ListsNothingInUnreadableAndVanishedFolders)
{
    const Folder folder({"a.mp3", "locked/b.mp3", "z.mp3"});
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(folder.path("locked").c_str(), 0), 0);
    {
        const WithoutRoot withoutRoot;
        ASSERT_LT(::open(folder.path("locked").c_str(), O_RDONLY | O_CLOEXEC), 0);
        EXPECT_THAT(folder.discovered({"", "locked", "vanished", "a.mp3"}),
                    ElementsAre("a.mp3", "z.mp3", "a.mp3"));
    }
    ASSERT_EQ(::chmod(folder.path("locked").c_str(), 0700), 0);
}

TEST(DiscoverAudioFiles, ReachesThreeHundredLevelsAndEndsWherePathsBecomeTooLong)
{
    for (const std::string &name : {std::string("d"), std::string(250, 'd')}) {
        const Folder folder({"z.mp3"});
        addNestedFolders(folder.path(), name, 300);
        Names expected;
        std::string path;
        for (int level = 0; level < 300 && folder.path(path + name).native().size() < PATH_MAX; ++level) {
            path += name + '/';
            expected.push_back(path + "a.mp3");
        }
        EXPECT_EQ(expected.size() == 300, name.size() == 1);
        Names files = folder.discovered();
        ASSERT_FALSE(files.empty());
        EXPECT_EQ(files.back(), "z.mp3");
        files.pop_back();
        EXPECT_THAT(files, testing::UnorderedElementsAreArray(expected));
    }
}

TEST(DiscoverAudioFiles, CarriesEveryNameThatIsTextAndSkipsTheOthers)
{
    const Names texts{" .mp3",        "\"'\\*.mp3",
                      "100% #1?.mp3", "a\nb\r.mp3",
                      "n\u0303.mp3",  std::string(251, 'o') + ".mp3",
                      "\u00f1.mp3",   "\ufeffmark.mp3",
                      "\uffff.mp3",   "\U0001F3B5\u200d\U0001F525.mp3"};
    Folder folder(texts);
    for (const char *name :
         {"\xFF.mp3", "latin\xE9.mp3", "\xC0\xAF.mp3", "\xED\xA0\x80.mp3", "folder\xFF/a.mp3"})
        folder.add(name);
    EXPECT_THAT(folder.discovered(), testing::ElementsAreArray(texts));
    EXPECT_THAT(folder.discovered(texts), testing::ElementsAreArray(texts));
}

TEST(DiscoverAudioFiles, EndsWhenStopped)
{
    Folder folder;
    folder.addMany("a", 20);
    std::stop_source stop;
    EXPECT_EQ(folder.discovered({"a", "a"}, stop.get_token()).size(), 40U);
    stop.request_stop();
    EXPECT_LE(folder.discovered({"a", "a"}, stop.get_token()).size(), 1U);
}

TEST(EstimateSongCount, CountsByNameWhatIsFewAndExtrapolatesFromAHundredAndOneEntries)
{
    const Folder folder({"one.mp3", "song.ogg", "hidden/a.mp3", "hidden/.b.mp3", "hidden/.c/d.mp3",
                         "packages/Song.band/a.mp3"});
    folder.addMany("hundred", 100);
    folder.addMany("hundred_and_one", 101);
    folder.addMany("many", 300);
    folder.addMany("other", 150, ".txt");
    folder.addMany("nested/inner", 100);
    const std::pair<Names, qint64> cases[] = {
        {{}, 0},
        {{"one.mp3", "song.ogg", "one.mp3", "vanished"}, 2},
        {{"hidden"}, 1},
        {{"packages"}, 1},
        {{"hundred"}, 100},
        {{"hundred", "hundred"}, 200},
        {{"hundred_and_one"}, 1010},
        {{"many"}, 1010},
        {{"other"}, 0},
        {{"nested"}, 1000},
        {{"many", "many"}, 11'110},
        {{"many", "hundred"}, 1110},
        {{"one.mp3", "other"}, 10},
    };
    for (const auto &[names, count] : cases) {
        QList<QUrl> urls;
        for (const std::string &name : names)
            urls += folder.url(name);
        EXPECT_EQ(estimateSongCount(urls), count) << testing::PrintToString(names);
    }
}

TEST(EstimateSongCount, StaysAtTheLargestNumberForSeventeenAndMoreLargeFolders)
{
    const Folder folder({"one.mp3"});
    folder.addMany("many", 101);
    constexpr qint64 LARGEST = std::numeric_limits<qint64>::max();
    for (const int count : {15, 16, 17, 18, 19, 40}) {
        const QList<QUrl> urls(count, folder.url("many"));
        EXPECT_EQ(estimateSongCount(urls) == LARGEST, count >= 17) << count;
        EXPECT_GT(estimateSongCount(urls), 0) << count;
        EXPECT_EQ(estimateSongCount(urls + QList{folder.url("one.mp3")}) == LARGEST, count >= 17) << count;
    }
}

} // namespace
} // namespace sonavo
