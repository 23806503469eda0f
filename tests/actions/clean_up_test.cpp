#include "actions/action_test.h"
#include "actions/clean_up.h"
#include "testing/system_call_listener.h"

#include <sys/syscall.h>

namespace sonavo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

const std::string CONTENT = "0123456789";

class SongTest : public ActionTest
{
protected:
    SongTest()
    {
        fs::create_directory(home.path("music"));
        fs::create_symlink("music", home.path("linked"));
    }

    /// A song of ten bytes whose file is there.
    [[nodiscard]] Song song(const std::string &name) const
    {
        if (!isAnythingAt(home.path(name)))
            home.add(name, CONTENT);
        return missingSong(name);
    }
    [[nodiscard]] Song missingSong(const std::string &name) const
    {
        Song song;
        song.id = QUuid::createUuid();
        song.path = toQString(home.path(name));
        song.size = 10;
        return song;
    }
    [[nodiscard]] static DuplicateGroup group(const Song &original, const QList<Song> &duplicates)
    {
        return {QUuid::createUuid(), original, duplicates, {}};
    }

    /// Shows the folder "music" as "view" through another file system, as other files.
    [[nodiscard]] bool mountView()
    {
        for (const char *name : {"upper", "work"})
            fs::create_directory(home.path(name));
        const std::string layers = "lowerdir=" + home.path("music").string() +
                                   ",upperdir=" + home.path("upper").string() +
                                   ",workdir=" + home.path("work").string();
        home.add("music/album/a.mp3", CONTENT);
        return PrivateMounts::areAllowed() && mounts.mount(home.path("view"), "overlay", 0, "none", layers);
    }
};

enum class Target
{
    Trash,
    Folder,
    OtherDisk,
};

class CleanUpTest : public SongTest, public testing::WithParamInterface<Target>
{
protected:
    [[nodiscard]] CleanUpOutcome cleanUp(const QList<DuplicateGroup> &groups) const
    {
        if (GetParam() == Target::Trash)
            return trashDuplicates(groups);
        DuplicatesFolder folder = folderIn(target);
        return moveDuplicates(groups, folder);
    }
    [[nodiscard]] Names movedFiles() const
    {
        Names names;
        for (const auto &[path, content] : filesIn(target))
            names.push_back(fs::path(path).filename());
        return names;
    }

    const fs::path target = GetParam() == Target::Trash    ? trash / "files"
                            : GetParam() == Target::Folder ? home.path("target")
                                                           : other.path();
};

Names failedFiles(const CleanUpOutcome &outcome)
{
    Names names;
    for (const SongFailure &failure : outcome.failures) {
        EXPECT_FALSE(failure.reason.isEmpty());
        names.push_back(fs::path(failure.song.path.toStdString()).filename());
    }
    return names;
}

TEST_P(CleanUpTest, MovesDuplicatesOfReadableOriginalsAndCountsWhatCouldNotBeMoved)
{
    fs::create_directory(home.path("music/folder.mp3"));
    // Nobody can tell whether there is a file behind a link to itself.
    fs::create_symlink("unreachable", home.path("unreachable"));
    const CleanUpOutcome outcome =
        cleanUp({group(song("music/a.mp3"), {song("music/b.mp3"), missingSong("music/gone.mp3")}),
                 group(song("music/c.mp3"), {song("music/d.mp3"), missingSong("unreachable/e.mp3")}),
                 group(missingSong("music/lost.mp3"), {song("music/f.mp3"), song("music/g.mp3")}),
                 group(missingSong("music/folder.mp3"), {song("music/h.mp3")}),
                 group(song("music/i.mp3"), {missingSong("music/folder.mp3")})});
    EXPECT_EQ(outcome.moved.size(), 2);
    EXPECT_EQ(outcome.savedBytes, 20);
    EXPECT_EQ(failedFiles(outcome), GetParam() == Target::Trash ? (Names{"e.mp3", "f.mp3", "g.mp3", "h.mp3"})
                                                                : (Names{"gone.mp3", "e.mp3", "f.mp3",
                                                                         "g.mp3", "h.mp3", "folder.mp3"}));
    EXPECT_THAT(movedFiles(), ElementsAre("b.mp3", "d.mp3"));
    EXPECT_TRUE(fs::is_directory(home.path("music/folder.mp3")));
}

TEST_P(CleanUpTest, PassesOverDuplicatesThatAreTheFileOfAnOriginal)
{
    fs::create_symlink("a.mp3", home.path("music/link.mp3"));
    // One of a file's two names may go, but not from under a link.
    fs::create_hard_link(home.add("music/d.mp3"), home.path("d.mp3"));
    fs::create_symlink("d.mp3", home.path("music/link to d.mp3"));
    // Mounted, the folder is still the same one, and its files are, though they have two names.
    const bool isMounted = PrivateMounts::areAllowed() &&
                           mounts.mount(home.path("mounted"), nullptr, MS_BIND, home.path("music"));
    fs::create_hard_link(home.add("music/e.mp3"), home.path("e.mp3"));
    const CleanUpOutcome outcome =
        cleanUp({group(song("music/a.mp3"), {song("linked/a.mp3"), song("music/link.mp3"),
                                             song("music/b.mp3"), song("music/c.mp3")}),
                 group(song("music/e.mp3"), {song(isMounted ? "mounted/e.mp3" : "music/e.mp3")}),
                 group(song("linked/c.mp3"), {song("music/a.mp3")}),
                 // The original is the link, and the file that it leads to the duplicate.
                 group(song("music/link.mp3"), {song("music/a.mp3")}),
                 group(song("music/link to d.mp3"), {song("music/d.mp3")})});
    EXPECT_EQ(outcome.savedBytes, 10);
    EXPECT_THAT(outcome.failures, IsEmpty());
    EXPECT_THAT(movedFiles(), ElementsAre("b.mp3"));
}

TEST_P(CleanUpTest, KeepsTheOnlyFileOfASongThatIsSeenThroughTwoFileSystems)
{
    if (!mountView())
        GTEST_SKIP() << "an overlay cannot be mounted here";
    const Song real = song("music/album/a.mp3");
    const Song view = song("view/album/a.mp3");
    const CleanUpOutcome outcome = cleanUp({group(view, {real, song("music/b.mp3")})});
    // Put back from another disk, the file is a new one, so that its group's original counts as changed.
    const bool isNew = GetParam() == Target::OtherDisk;
    EXPECT_EQ(failedFiles(outcome), isNew ? (Names{"a.mp3", "b.mp3"}) : Names{"a.mp3"});
    EXPECT_EQ(movedFiles(), isNew ? Names() : Names{"b.mp3"});

    // The original of one group is the duplicate of another.
    const CleanUpOutcome ofTwoGroups =
        cleanUp({group(view, {song("music/d.mp3")}), group(song("music/c.mp3"), {real})});
    EXPECT_THAT(failedFiles(ofTwoGroups), ElementsAre("d.mp3"));
    EXPECT_EQ(ofTwoGroups.savedBytes, 10);
    EXPECT_EQ(contentOf(home.path("music/d.mp3")), CONTENT);
    EXPECT_THAT(movedFiles(), testing::Contains("a.mp3"));
}

TEST_P(CleanUpTest, PutsADuplicateBackWhenItsOriginalIsNotAsItWas)
{
    const fs::path original = home.path("music/a.mp3");
    const std::pair<const char *, std::function<void()>> cases[] = {
        {"gone", [&] { fs::remove(original); }},
        {"emptied", [&] { fs::resize_file(original, 0); }},
        {"overwritten", [&] { home.add("music/a.mp3", "9876543210"); }},
        {"a folder", [&] { fs::remove(original) && fs::create_directory(original); }},
    };
    for (const auto &[name, happens] : cases) {
        const QList groups{group(song("music/a.mp3"), {song("music/b.mp3")})};
        const auto work = [&] {
            const CleanUpOutcome outcome = cleanUp(groups);
            return outcome.moved.isEmpty() && outcome.failures.size() == 1 ? 0 : 1;
        };
        bool isFirst = true;
        const auto onRename = [&, &happens = happens](const SystemCallListener &listener,
                                                      const seccomp_notif &call) {
            if (std::exchange(isFirst, false))
                happens();
            listener.letThrough(call.id);
        };
        const auto status = runInChild(work, {SYS_renameat2}, onRename);
        if (status == NOT_ALLOWED)
            GTEST_SKIP() << "no right to filter system calls";
        EXPECT_EQ(status, 0) << name;
        EXPECT_EQ(contentOf(home.path("music/b.mp3")), CONTENT) << name;
        EXPECT_THAT(movedFiles(), IsEmpty()) << name;
        fs::remove(original);
    }
}

INSTANTIATE_TEST_SUITE_P(To, CleanUpTest, testing::Values(Target::Trash, Target::Folder, Target::OtherDisk));

using TrashSongTest = SongTest;

TEST_F(TrashSongTest, KeepsASongThatIsTheSameFileAsAnotherMember)
{
    const Song original = song("music/a.mp3");
    const Song again = song("linked/a.mp3");
    const Song copy = song("music/b.mp3");
    const QList<DuplicateGroup> groups{group(original, {again, copy})};
    for (const Song &member : {original, again})
        EXPECT_TRUE(std::holds_alternative<Failure>(trashSong(member, groups)));
    EXPECT_TRUE(std::holds_alternative<DisposedSong>(trashSong(copy, groups)));
    EXPECT_EQ(filesIn(trash / "files"), (Files{{"b.mp3", CONTENT}}));
    // Without its double, the song may go.
    const QList<DuplicateGroup> rest{group(original, {copy}), group(copy, {again})};
    EXPECT_TRUE(std::holds_alternative<DisposedSong>(trashSong(original, rest)));
}

TEST_F(TrashSongTest, PutsASongBackThatAnotherFileSystemShowsToo)
{
    if (!mountView())
        GTEST_SKIP() << "an overlay cannot be mounted here";
    const Song real = song("music/album/a.mp3");
    const auto result = trashSong(real, {group(song("view/album/a.mp3"), {real})});
    const auto *failure = std::get_if<Failure>(&result);
    ASSERT_TRUE(failure);
    EXPECT_THAT(failure->reason.toStdString(), testing::HasSubstr("put back"));
    EXPECT_EQ(filesIn(home.path("music")), (Files{{"album/a.mp3", CONTENT}}));
}

} // namespace
} // namespace sonavo
