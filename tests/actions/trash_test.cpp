#include "actions/action_test.h"
#include "actions/trash.h"

#include <QDateTime>
#include <QRegularExpression>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <vector>

namespace sonavo {
namespace {

using testing::ElementsAre;
using testing::Pair;
using testing::UnorderedElementsAre;

/// What a file manager can restore from a Trash, by its info files: contents by original path.
std::multimap<std::string, std::string> restorable(const fs::path &trash)
{
    static const QRegularExpression pattern(
        QStringLiteral("^\\[Trash Info\\]\nPath=(.*)\nDeletionDate=(.*)\n$"));
    const Files trashed = filesIn(trash / "files");
    std::multimap<std::string, std::string> files;
    for (const auto &[name, content] : filesIn(trash / "info")) {
        const auto info = pattern.match(QString::fromStdString(content));
        const auto file = trashed.find(fs::path(name).stem());
        if (!name.ends_with(".trashinfo") || !info.hasMatch() || file == trashed.end())
            continue;
        const QDateTime date = QDateTime::fromString(info.captured(2), QStringLiteral("yyyy-MM-ddThh:mm:ss"));
        EXPECT_TRUE(date.isValid() && std::abs(date.secsTo(QDateTime::currentDateTime())) < 60) << content;
        files.emplace(QByteArray::fromPercentEncoding(info.captured(1).toLatin1()), file->second);
    }
    return files;
}

bool isTrashed(const fs::path &file)
{
    return std::holds_alternative<TrashedFile>(moveToTrash(toQString(file)));
}

/// Whether a file cannot be moved, is told why, and nothing has changed in a folder that holds it and its
/// Trash.
void expectRefusal(const fs::path &file, const fs::path &folder, const std::string &reason)
{
    const Files before = filesIn(folder);
    const auto result = moveToTrash(toQString(file));
    ASSERT_TRUE(std::holds_alternative<Failure>(result)) << file;
    EXPECT_THAT(std::get<Failure>(result).reason.toStdString(), testing::HasSubstr(reason));
    EXPECT_EQ(filesIn(folder), before);
}

const std::string UNUSABLE = "The Trash of this disk cannot be used";

class TrashTest : public ActionTest
{
protected:
    TrashTest() { qputenv("TZ", "NPT-5:45"); }
};

TEST_F(TrashTest, KeepsTheNameAndTellsWhereTheFileWas)
{
    const fs::path song = home.add("Mus\u00edc 1/a#b %41\n\u00e9?&=+.mp3");
    EXPECT_TRUE(isTrashed(song));
    EXPECT_FALSE(fs::exists(song));
    EXPECT_THAT(restorable(trash), ElementsAre(Pair(song, "song")));
    const std::string info = contentOf(trash / "info/a#b %41\n\u00e9?&=+.mp3.trashinfo");
    EXPECT_THAT(info, testing::HasSubstr("/Mus%C3%ADc%201/a%23b%20%2541%0A%C3%A9%3F%26%3D%2B.mp3\n"));
    EXPECT_EQ(fs::status(trash).permissions(), fs::perms::owner_all);
}

TEST_F(TrashTest, OverwritesNothingThatIsInIt)
{
    const Files taken{{"files/a.mp3", "without an info file"}, {"info/a.2.mp3.trashinfo", "without a file"}};
    for (const auto &[name, content] : taken)
        PrivateHome::addFile(trash / name, content);
    fs::create_symlink("nowhere", trash / "files/a.3.mp3");
    for (const char *name : {"1/a.mp3", "2/a.mp3", "3/a.mp3"})
        EXPECT_TRUE(isTrashed(home.add(name, name)));

    EXPECT_THAT(restorable(trash), UnorderedElementsAre(Pair(home.path("1/a.mp3"), "1/a.mp3"),
                                                        Pair(home.path("2/a.mp3"), "2/a.mp3"),
                                                        Pair(home.path("3/a.mp3"), "3/a.mp3")));
    EXPECT_THAT(filesIn(trash), testing::IsSupersetOf(taken));
    EXPECT_EQ(contentOf(trash / "files/a.3.mp3"), "-> nowhere");
}

TEST_F(TrashTest, TakesNamesTooLongForTheirInfoFile)
{
    const std::string faces = QStringLiteral("\U0001F600").repeated(62).toStdString();
    for (const std::string folder : {"1/", "2/"})
        EXPECT_TRUE(isTrashed(home.add(folder + faces + "aa.mp3", folder)));
    EXPECT_EQ(restorable(trash).size(), 2U);
    std::string rests;
    for (const auto &[name, content] : filesIn(trash / "files"))
        rests += content + name.substr(name.find('.')) + ' ';
    EXPECT_EQ(rests, "2/.2.mp3 1/.mp3 ");
}

TEST_F(TrashTest, TakesLinksThemselvesAndKnowsTheRealPathsOfFiles)
{
    const fs::path song = home.add("music/a.mp3");
    const fs::path link = home.path("link.mp3");
    for (const std::string target : {"music/a.mp3", "missing", "music", "link.mp3"}) {
        fs::create_symlink(target, link);
        EXPECT_TRUE(isTrashed(link));
        EXPECT_THAT(restorable(trash), ElementsAre(Pair(link, "-> " + target)));
        fs::remove_all(trash);
    }
    fs::create_symlink("music", home.path("linked"));
    EXPECT_TRUE(isTrashed(home.path("linked/../linked/a.mp3")));
    EXPECT_THAT(restorable(trash), ElementsAre(Pair(song, "song")));
}

TEST_F(TrashTest, RefusesWhatItCannotMoveAndChangesNothing)
{
    expectRefusal(home.path("missing.mp3"), home.path(), std::strerror(ENOENT));
    expectRefusal(home.add("folder.mp3/a.mp3").parent_path(), home.path(), "Not a file");
    expectRefusal({}, home.path(), std::strerror(ENOENT));
    const fs::path song = home.add("kept/a.mp3");
    const fs::path unreadable = home.add("kept/unreadable.mp3");
    fs::permissions(unreadable, fs::perms::none);
    fs::permissions(song.parent_path(), fs::perms::owner_read | fs::perms::owner_exec);
    const uid_t user = ::geteuid() == 0 ? 65534 : ::geteuid(); // root can change all folders
    for (const fs::path &folder : {home.path(), song.parent_path()})
        ASSERT_EQ(::chown(folder.c_str(), user, ::getegid()), 0);
    ASSERT_EQ(::seteuid(user), 0);
    expectRefusal(song, home.path(), std::strerror(EACCES));
    expectRefusal(unreadable, home.path(), std::strerror(EACCES));
    EXPECT_EQ(::seteuid(::getuid()), 0);
    fs::permissions(song.parent_path(), fs::perms::owner_all);

    fs::remove_all(home.path(".local"));
    home.add(".local");
    expectRefusal(song, home.path(), UNUSABLE + ": " + std::strerror(ENOTDIR));
}

TEST_F(TrashTest, RestoresWhatItTookUnlessTheNameIsTaken)
{
    const fs::path song = home.add("music/a.mp3");
    const fs::path link = home.path("music/link.mp3");
    fs::create_symlink("a.mp3", link);
    const Files before = filesIn(home.path("music"));
    for (const fs::path &file : {link, song}) {
        const auto trashed = std::get<TrashedFile>(moveToTrash(toQString(file)));
        PrivateHome::addFile(file, "new");
        EXPECT_EQ(restore(trashed).state, PutBackResult::State::Stays);
        EXPECT_EQ(contentOf(file), "new");
        EXPECT_EQ(restorable(trash).size(), 1U);
        fs::remove(file);
        EXPECT_EQ(restore(trashed).state, PutBackResult::State::Back);
    }
    EXPECT_EQ(filesIn(trash), Files());

    const auto trashed = std::get<TrashedFile>(moveToTrash(toQString(song)));
    const std::string others = std::string(trashed.info) + "Key=value of another program\n";
    PrivateHome::addFile(trashed.infoFile.toStdString(), others);
    EXPECT_EQ(restore(trashed).state, PutBackResult::State::Back);
    EXPECT_EQ(filesIn(home.path("music")), before);
    EXPECT_EQ(filesIn(trash), (Files{{"info/a.mp3.trashinfo", others}}));
}

/// With a second disk.
class VolumeTest : public TrashTest
{
protected:
    void SetUp() override
    {
        if (!PrivateMounts::areAllowed())
            GTEST_SKIP() << "mounting is not allowed here";
        mountAt(volume);
    }

    void mountAt(const fs::path &folder, const char *type = "tmpfs", unsigned long flags = 0,
                 const std::string &source = "none")
    {
        ASSERT_TRUE(mounts.mount(folder, type, flags, source)) << std::strerror(errno);
    }
    void remount(unsigned long flags, const char *options = nullptr)
    {
        ASSERT_EQ(::mount(nullptr, volume.c_str(), nullptr, MS_REMOUNT | flags, options), 0);
    }
    bool trashesSong(const std::string &content) const
    {
        return isTrashed(PrivateHome::addFile(song, content));
    }

    const fs::path volume = home.path("volume");
    const fs::path atItsTop = volume / (".Trash-" + std::to_string(::geteuid()));
    const fs::path song = volume / "music/a b.mp3";
};

TEST_F(VolumeTest, HasATrashAtItsTop)
{
    EXPECT_TRUE(trashesSong("song"));
    EXPECT_FALSE(fs::exists(trash));
    fs::create_symlink(volume, home.path("to_volume"));
    EXPECT_TRUE(isTrashed(home.add("to_volume/linked.mp3")));
    fs::create_symlink(home.add("b.mp3"), volume / "to_home.mp3");
    EXPECT_TRUE(isTrashed(volume / "to_home.mp3"));
    EXPECT_THAT(restorable(atItsTop),
                UnorderedElementsAre(Pair("music/a b.mp3", "song"), Pair("linked.mp3", "song"),
                                     Pair("to_home.mp3", "-> " + home.path("b.mp3").string())));
}

TEST_F(VolumeTest, UsesASharedTrashOnlyIfItsFilesAreSafe)
{
    const fs::path forAll = volume / ".Trash";
    fs::create_directory(forAll);
    EXPECT_TRUE(trashesSong("not sticky"));
    fs::permissions(forAll, fs::perms::all | fs::perms::sticky_bit);
    EXPECT_TRUE(trashesSong("sticky"));
    EXPECT_THAT(restorable(forAll / std::to_string(::geteuid())),
                ElementsAre(Pair("music/a b.mp3", "sticky")));
    fs::rename(forAll, volume / "other");
    fs::create_symlink("other", forAll);
    EXPECT_TRUE(trashesSong("link"));
    EXPECT_THAT(restorable(atItsTop),
                UnorderedElementsAre(Pair("music/a b.mp3", "not sticky"), Pair("music/a b.mp3", "link")));

    fs::rename(atItsTop, volume / "moved");
    fs::create_symlink("moved", atItsTop);
    expectRefusal(PrivateHome::addFile(song, "song"), volume, UNUSABLE);
}

TEST_F(VolumeTest, CanHoldTheDataFolderOrBeAnotherViewOfIt)
{
    qputenv("XDG_DATA_HOME", (volume / "data").c_str());
    mountAt(home.path("view"), nullptr, MS_BIND, volume);
    EXPECT_TRUE(trashesSong("song"));
    EXPECT_TRUE(isTrashed(home.add("view/b.mp3")));
    EXPECT_THAT(restorable(volume / "data/Trash"), ElementsAre(Pair(song, "song")));
    EXPECT_THAT(restorable(atItsTop), ElementsAre(Pair("b.mp3", "song")));
}

TEST_F(VolumeTest, HasATrashAtItsTopWhereTheUserHasNoDataFolder)
{
    const int root = ::open("/", O_PATH | O_CLOEXEC);
    ASSERT_EQ(::chroot(volume.c_str()) + ::chdir("/"), 0);
    qputenv("XDG_DATA_HOME", "data");
    qunsetenv("HOME");
    const bool isMoved = isTrashed(PrivateHome::addFile("/music/a b.mp3", "song"));
    ASSERT_EQ(::fchdir(root) + ::chroot("."), 0);
    ::close(root);
    EXPECT_TRUE(isMoved);
    EXPECT_THAT(restorable(atItsTop), ElementsAre(Pair("music/a b.mp3", "song")));
    EXPECT_EQ(filesIn(volume).size(), 2U);
}

TEST_F(VolumeTest, IsASubvolumeOfBtrfsToo)
{
    const fs::path image = home.add("image", "");
    fs::resize_file(image, 128 << 20);
    const std::string at = " " + (volume / "disk").string();
    fs::create_directory(volume / "disk");
    const std::string make = "mkfs.btrfs " + image.string() + " && mount -o loop " + image.string() + at;
    if (std::system(("(" + make + ") >/dev/null 2>&1").c_str()) != 0)
        GTEST_SKIP() << "no btrfs can be made and mounted here";
    const int made = std::system(("btrfs -q subvolume create" + at + "/Music").c_str());
    qputenv("XDG_DATA_HOME", (volume / "disk/data").c_str());
    const fs::path songs = volume / "disk/Music/albums";
    const bool isInside = isTrashed(PrivateHome::addFile(songs / "a.mp3", "song"));
    const bool isOutside = isTrashed(PrivateHome::addFile(volume / "disk/b.mp3", "song"));
    const auto inside = restorable(songs.parent_path() / atItsTop.filename());
    const auto outside = restorable(volume / "disk/data/Trash");
    ASSERT_EQ(made + ::umount2((volume / "disk").c_str(), MNT_DETACH), 0);
    EXPECT_TRUE(isInside && isOutside);
    EXPECT_THAT(inside, ElementsAre(Pair("albums/a.mp3", "song")));
    EXPECT_THAT(outside, ElementsAre(Pair((volume / "disk/b.mp3").string(), "song")));
}

TEST_F(VolumeTest, KeepsItsFilesWhenTheTrashCannotTakeThem)
{
    PrivateHome::addFile(song, "song");
    remount(0, "size=16k");
    std::ofstream(volume / "rest") << std::string(1 << 20, 'x');
    expectRefusal(song, volume, std::strerror(ENOSPC));
    EXPECT_EQ(filesIn(atItsTop), Files());
    remount(MS_RDONLY);
    expectRefusal(song, volume, std::strerror(EROFS));

    home.add("b.mp3");
    mountAt(trash / "files");
    expectRefusal(home.path("b.mp3"), home.path(), UNUSABLE);
    mountAt(trash / "info", "tmpfs", MS_RDONLY);
    expectRefusal(home.path("b.mp3"), home.path(), std::strerror(EROFS));
}

} // namespace
} // namespace sonavo
