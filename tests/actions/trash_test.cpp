#include "actions/trash.h"
#include "testing/other_file_system.h"
#include "testing/private_home.h"

#include <QDateTime>
#include <QRegularExpression>

#include <gmock/gmock.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace sonavo {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::Pair;
using testing::UnorderedElementsAre;
/// Contents by path; of a link, what it says.
using Files = std::map<std::string, std::string>;

std::string contentOf(const fs::path &file)
{
    if (fs::is_symlink(file))
        return "-> " + fs::read_symlink(file).string();
    std::ostringstream content;
    content << std::ifstream(file).rdbuf();
    return content.str();
}

/// All files in a folder and below.
Files filesIn(const fs::path &folder)
{
    Files files;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_symlink() || !entry.is_directory())
            files[entry.path().lexically_relative(folder)] = contentOf(entry.path());
    }
    return files;
}

/// What a file manager can restore from a Trash, by its info files: contents by original path.
std::multimap<std::string, std::string> restorable(const fs::path &trash)
{
    static const QRegularExpression pattern(
        QStringLiteral("^\\[Trash Info\\]\nPath=(.*)\nDeletionDate=(.*)\n$"));
    std::multimap<std::string, std::string> files;
    for (const fs::directory_entry &entry : fs::directory_iterator(trash / "info")) {
        const fs::path file = trash / "files" / entry.path().stem();
        const auto info = pattern.match(QString::fromStdString(contentOf(entry.path())));
        if (entry.path().extension() != ".trashinfo" || !fs::exists(fs::symlink_status(file)) ||
            !info.hasMatch())
            continue;
        const QDateTime date = QDateTime::fromString(info.captured(2), QStringLiteral("yyyy-MM-ddThh:mm:ss"));
        EXPECT_TRUE(date.isValid() && std::abs(date.secsTo(QDateTime::currentDateTime())) < 60)
            << info.captured(2).toStdString();
        files.emplace(QByteArray::fromPercentEncoding(info.captured(1).toLatin1()).toStdString(),
                      contentOf(file));
    }
    return files;
}

bool isTrashed(const fs::path &file)
{
    return std::holds_alternative<TrashedFile>(moveToTrash(QString::fromStdString(file)));
}

std::string saying(int error)
{
    return std::generic_category().message(error);
}

/// Whether a file cannot be moved, is told why, and nothing has changed in a folder that holds it and its
/// Trash.
void expectRefusal(const fs::path &file, const fs::path &folder, const std::string &reason)
{
    const Files before = filesIn(folder);
    const auto result = moveToTrash(QString::fromStdString(file));
    ASSERT_TRUE(std::holds_alternative<Failure>(result)) << file;
    EXPECT_THAT(std::get<Failure>(result).reason.toStdString(), testing::HasSubstr(reason));
    EXPECT_EQ(filesIn(folder), before);
}

class TrashTest : public testing::Test
{
protected:
    TrashTest() { qputenv("TZ", "NPT-5:45"); }

    PrivateHome home;
    const fs::path trash = home.path(".local/share/Trash");
};

TEST_F(TrashTest, KeepsTheNameAndTellsWhereTheFileWas)
{
    const fs::path song = home.add("Mus\u00edc 1/a#b %41\n\u00e9?&=+.mp3", "noise");
    EXPECT_TRUE(isTrashed(song));
    EXPECT_FALSE(fs::exists(song));
    EXPECT_THAT(restorable(trash), ElementsAre(Pair(song.string(), "noise")));
    const std::string info = contentOf(trash / "info/a#b %41\n\u00e9?&=+.mp3.trashinfo");
    EXPECT_THAT(info, testing::HasSubstr("/Mus%C3%ADc%201/a%23b%20%2541%0A%C3%A9%3F%26%3D%2B.mp3\n"));
    EXPECT_EQ(fs::status(trash).permissions(), fs::perms::owner_all);
}

TEST_F(TrashTest, OverwritesNothingThatIsInIt)
{
    const Files taken{{"files/a.mp3", "without an info file"}, {"info/a.2.mp3.trashinfo", "without a file"}};
    for (const auto &[name, content] : taken)
        home.addFile(trash / name, content);
    fs::create_symlink("nowhere", trash / "files/a.3.mp3");
    for (const char *name : {"1/a.mp3", "2/a.mp3", "3/a.mp3"})
        EXPECT_TRUE(isTrashed(home.add(name, name)));

    EXPECT_THAT(restorable(trash), UnorderedElementsAre(Pair(home.path("1/a.mp3").string(), "1/a.mp3"),
                                                        Pair(home.path("2/a.mp3").string(), "2/a.mp3"),
                                                        Pair(home.path("3/a.mp3").string(), "3/a.mp3")));
    EXPECT_THAT(filesIn(trash), testing::IsSupersetOf(taken));
    EXPECT_EQ(contentOf(trash / "files/a.3.mp3"), "-> nowhere");
}

TEST_F(TrashTest, TakesNamesTooLongForTheirInfoFile)
{
    const std::string longest = QStringLiteral("\U0001F600").repeated(62).toStdString() + "aa.mp3";
    for (const std::string folder : {"1/", "2/"})
        EXPECT_TRUE(isTrashed(home.add(folder + longest, folder)));
    EXPECT_THAT(restorable(trash), UnorderedElementsAre(Pair(home.path("1/" + longest).string(), "1/"),
                                                        Pair(home.path("2/" + longest).string(), "2/")));
    std::vector<QString> rests;
    for (const auto &[name, content] : filesIn(trash / "files"))
        rests.push_back(QString::fromStdString(name).remove(QStringLiteral("\U0001F600")));
    EXPECT_THAT(rests, UnorderedElementsAre(QStringLiteral(".mp3"), QStringLiteral(".2.mp3")));
}

TEST_F(TrashTest, TakesLinksThemselvesAndKnowsTheRealPathsOfFiles)
{
    const fs::path song = home.add("music/a.mp3");
    const fs::path link = home.path("link.mp3");
    for (const std::string target : {"music/a.mp3", "missing", "music", "link.mp3"}) {
        fs::create_symlink(target, link);
        EXPECT_TRUE(isTrashed(link));
        EXPECT_THAT(restorable(trash), ElementsAre(Pair(link.string(), "-> " + target)));
        fs::remove_all(trash);
    }
    EXPECT_EQ(contentOf(song), "song");

    fs::create_symlink("music", home.path("linked"));
    EXPECT_TRUE(isTrashed(home.path("linked/../linked/a.mp3")));
    EXPECT_THAT(restorable(trash), ElementsAre(Pair(song.string(), "song")));
}

TEST_F(TrashTest, RefusesWhatItCannotMoveAndChangesNothing)
{
    expectRefusal(home.path("missing.mp3"), home.path(), saying(ENOENT));
    expectRefusal(home.add("folder.mp3/a.mp3").parent_path(), home.path(), "Not a file");
    expectRefusal({}, home.path(), saying(ENOENT));
    const fs::path song = home.add("a.mp3");
    home.add(".local");
    expectRefusal(song, home.path(), "The Trash of this disk cannot be used: " + saying(ENOTDIR));
}

TEST_F(TrashTest, LeavesNoInfoFileWhenTheFolderOfTheFileCannotBeChanged)
{
    const fs::path song = home.add("kept/a.mp3");
    fs::permissions(song.parent_path(), fs::perms::owner_read | fs::perms::owner_exec);
    if (::geteuid() == 0) { // to whom all folders can be changed
        ASSERT_EQ(::chown(home.path().c_str(), 65534, 0), 0);
        ASSERT_EQ(::chown(song.parent_path().c_str(), 65534, 0), 0);
        ASSERT_EQ(::seteuid(65534), 0);
    }
    expectRefusal(song, home.path(), saying(EACCES));
    EXPECT_EQ(::seteuid(::getuid()), 0);
    fs::permissions(song.parent_path(), fs::perms::owner_all);
}

TEST_F(TrashTest, RestoresWhatItTookUnlessTheNameIsTaken)
{
    const fs::path song = home.add("music/a.mp3");
    const fs::path link = home.path("music/link.mp3");
    fs::create_symlink("a.mp3", link);
    const Files before = filesIn(home.path("music"));
    for (const fs::path &file : {link, song}) {
        const auto trashed = std::get<TrashedFile>(moveToTrash(QString::fromStdString(file)));
        home.addFile(file, "new");
        EXPECT_TRUE(restore(trashed));
        EXPECT_EQ(contentOf(file), "new");
        EXPECT_EQ(restorable(trash).size(), 1);
        fs::remove(file);
        EXPECT_FALSE(restore(trashed));
    }
    EXPECT_EQ(filesIn(home.path("music")), before);
    EXPECT_THAT(filesIn(trash), testing::IsEmpty());
}

/// With a second disk.
class VolumeTest : public TrashTest
{
protected:
    void SetUp() override
    {
        if (!PrivateMounts::areAllowed())
            GTEST_SKIP() << "mounting is not allowed here";
        mountAt(volume, "tmpfs");
    }

    void mountAt(const fs::path &folder, const char *type, unsigned long flags = 0,
                 const std::string &source = "none")
    {
        ASSERT_TRUE(m_mounts.mount(folder, type, flags, source)) << std::strerror(errno);
    }

    const fs::path volume = home.path("volume");
    const fs::path atItsTop = volume / (".Trash-" + std::to_string(::geteuid()));
    const fs::path song = volume / "music/a b.mp3";

private:
    PrivateMounts m_mounts;
};

TEST_F(VolumeTest, HasATrashAtItsTop)
{
    home.addFile(song, "song");
    EXPECT_TRUE(isTrashed(song));
    EXPECT_THAT(restorable(atItsTop), ElementsAre(Pair("music/a b.mp3", "song")));
    EXPECT_FALSE(fs::exists(trash));

    home.addFile(volume / "linked.mp3", "song");
    fs::create_symlink(volume, home.path("to_volume"));
    EXPECT_TRUE(isTrashed(home.path("to_volume/linked.mp3")));
    fs::create_symlink(home.add("b.mp3"), volume / "to_home.mp3");
    EXPECT_TRUE(isTrashed(volume / "to_home.mp3"));
    EXPECT_THAT(restorable(atItsTop),
                UnorderedElementsAre(Pair("music/a b.mp3", "song"), Pair("linked.mp3", "song"),
                                     Pair("to_home.mp3", "-> " + home.path("b.mp3").string())));
}

TEST_F(VolumeTest, UsesATrashForAllWhereFilesAreSafeInIt)
{
    const fs::path forAll = volume / ".Trash";
    fs::create_directory(forAll);
    EXPECT_TRUE(isTrashed(home.addFile(song, "not sticky")));
    fs::permissions(forAll, fs::perms::all | fs::perms::sticky_bit);
    EXPECT_TRUE(isTrashed(home.addFile(song, "sticky")));
    EXPECT_THAT(restorable(forAll / std::to_string(::geteuid())),
                ElementsAre(Pair("music/a b.mp3", "sticky")));
    fs::rename(forAll, volume / "other");
    fs::create_symlink("other", forAll);
    EXPECT_TRUE(isTrashed(home.addFile(song, "link")));
    EXPECT_THAT(restorable(atItsTop),
                UnorderedElementsAre(Pair("music/a b.mp3", "not sticky"), Pair("music/a b.mp3", "link")));

    fs::rename(atItsTop, volume / "moved");
    fs::create_symlink("moved", atItsTop);
    expectRefusal(home.addFile(song, "song"), volume, "The Trash of this disk cannot be used");
}

TEST_F(VolumeTest, CanHoldTheDataFolder)
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(QString::fromStdString(volume / "data")));
    const fs::path disk = home.path("disk");
    mountAt(disk, "tmpfs");
    EXPECT_TRUE(isTrashed(home.addFile(song, "song")));
    EXPECT_TRUE(isTrashed(home.addFile(disk / "b.mp3", "song")));
    EXPECT_THAT(restorable(volume / "data/Trash"), ElementsAre(Pair(song.string(), "song")));
    EXPECT_THAT(restorable(disk / atItsTop.filename()), ElementsAre(Pair("b.mp3", "song")));
}

TEST_F(VolumeTest, CanBeAnotherViewOfTheHomeDisk)
{
    home.add("music/a.mp3");
    mountAt(home.path("view"), nullptr, MS_BIND, home.path("music"));
    EXPECT_TRUE(isTrashed(home.path("view/a.mp3")));
    EXPECT_THAT(restorable(home.path("view") / atItsTop.filename()), ElementsAre(Pair("a.mp3", "song")));
}

TEST_F(VolumeTest, KeepsItsFilesWhenTheTrashCannotTakeThem)
{
    home.addFile(song, "song");
    ASSERT_EQ(::mount(nullptr, volume.c_str(), nullptr, MS_REMOUNT, "size=16k"), 0);
    std::ofstream(volume / "rest") << std::string(1 << 20, 'x');
    expectRefusal(song, volume, saying(ENOSPC));
    EXPECT_TRUE(fs::is_empty(atItsTop / "files"));
    ASSERT_EQ(::mount(nullptr, volume.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
    expectRefusal(song, volume, saying(EROFS));

    home.add("b.mp3");
    mountAt(trash / "files", "tmpfs");
    expectRefusal(home.path("b.mp3"), home.path(), "The Trash of this disk cannot be used");
    mountAt(trash / "info", "tmpfs", MS_RDONLY);
    expectRefusal(home.path("b.mp3"), home.path(), saying(EROFS));
}

} // namespace
} // namespace sonavo
