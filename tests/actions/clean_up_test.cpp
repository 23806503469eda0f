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

    /// Shows the folder "music" as "view" through another file system, as other files. Somebody has the
    /// folder "view/album" open, so that its names are remembered.
    [[nodiscard]] bool mountView()
    {
        for (const char *name : {"upper", "work"})
            fs::create_directory(home.path(name));
        const std::string layers = "lowerdir=" + home.path("music").string() +
                                   ",upperdir=" + home.path("upper").string() +
                                   ",workdir=" + home.path("work").string();
        home.add("music/album/a.mp3", CONTENT);
        fs::create_directories(home.path("upper/album"));
        if (!PrivateMounts::areAllowed() || !mounts.mount(home.path("view"), "overlay", 0, "none", layers))
            return false;
        m_openFolder = fs::directory_iterator(home.path("view/album"));
        return true;
    }
    /// Adds notes of all files as they are now.
    static void noteFiles(const QList<DuplicateGroup> &groups, FileNotes &notes)
    {
        for (const DuplicateGroup &group : groups) {
            for (const Song &song : membersOf(group)) {
                const auto snapshot = takeSnapshot(QFile::encodeName(song.path));
                notes.insert(song.id, noteOf(std::get<FileSnapshot>(snapshot)));
            }
        }
    }

private:
    fs::directory_iterator m_openFolder;
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
    [[nodiscard]] CleanUpOutcome cleanUp(const QList<DuplicateGroup> &groups,
                                         const CleanUpOptions &options = {}) const
    {
        if (GetParam() == Target::Trash)
            return trashDuplicates(groups, options);
        DuplicatesFolder folder = folderIn(target);
        return moveDuplicates(groups, folder, options);
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

fs::path pathOf(const DisposedSong &song)
{
    const auto *trashed = std::get_if<TrashedFile>(&song.file);
    return (trashed ? trashed->file : std::get<MovedFile>(song.file)).path.toStdString();
}

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
                 // One file that was moved already.
                 group(song("music/f.mp3"), {song("music/g.mp3"), song("linked/g.mp3")}),
                 group(song("linked/c.mp3"), {song("music/a.mp3")}),
                 // The original is the link, and the file that it leads to the duplicate.
                 group(song("music/link.mp3"), {song("music/a.mp3")}),
                 group(song("music/link to d.mp3"), {song("music/d.mp3")})});
    EXPECT_EQ(outcome.savedBytes, 20);
    EXPECT_THAT(outcome.failures, IsEmpty());
    EXPECT_THAT(movedFiles(), ElementsAre("b.mp3", "g.mp3"));
    EXPECT_EQ(putBack(outcome.moved).restored.size(), 2);
    EXPECT_EQ(fs::exists(pathOf(outcome.moved[0]).parent_path()), GetParam() == Target::Trash);
}

TEST_P(CleanUpTest, KeepsTheOnlyFileOfASongThatIsSeenThroughTwoFileSystems)
{
    if (!mountView())
        GTEST_SKIP() << "an overlay cannot be mounted here";
    const Song real = song("music/album/a.mp3");
    const Song view = song("view/album/a.mp3");
    // Files that are written within one tick of the clock have the same times.
    fs::last_write_time(home.path("music/album/a.mp3"),
                        fs::file_time_type::clock::now() - std::chrono::hours(1));
    // The other way round, nothing would be lost, but who knows.
    for (const QList<DuplicateGroup> &groups :
         {QList{group(view, {real, song("music/b.mp3")})}, QList{group(real, {view, song("music/c.mp3")})},
          // The original of one group is the duplicate of another.
          QList{group(view, {song("music/d.mp3")}), group(song("music/e.mp3"), {real})}}) {
        const CleanUpOutcome outcome = cleanUp(groups);
        EXPECT_THAT(failedFiles(outcome), ElementsAre("a.mp3"));
        EXPECT_EQ(outcome.savedBytes, 10);
    }
    EXPECT_EQ(contentOf(home.path("music/album/a.mp3")), CONTENT);
    EXPECT_THAT(movedFiles(), ElementsAre("b.mp3", "c.mp3", "d.mp3"));

    // Changed in between, it cannot be recognised before it is moved.
    const auto change = [this](qint64 done) {
        if (done == 1)
            fs::permissions(home.path("music/album/a.mp3"), fs::perms::owner_all);
    };
    const CleanUpOutcome outcome = cleanUp(
        {group(view, {song("music/f.mp3")}), group(song("music/e.mp3"), {real})}, {.reportProgress = change});
    EXPECT_THAT(failedFiles(outcome), ElementsAre("f.mp3"));
    EXPECT_EQ(contentOf(home.path("music/f.mp3")), CONTENT);
}

TEST_P(CleanUpTest, SparesWhateverIsNotTheFileThatWasScanned)
{
    const fs::path original = home.path("music/a.mp3");
    const fs::path duplicate = home.path("music/b.mp3");
    const auto replace = [this](const fs::path &file) { fs::rename(home.add("new", "9876543210"), file); };
    const std::pair<const char *, std::function<void()>> cases[] = {
        {"original emptied", [&] { fs::resize_file(original, 0); }},
        {"original overwritten", [&] { home.add("music/a.mp3", "9876543210"); }},
        {"original replaced", [&] { replace(original); }},
        {"original gone", [&] { fs::remove(original); }},
        {"duplicate grown", [&] { home.add("music/b.mp3", CONTENT + "1"); }},
        {"duplicate replaced", [&] { replace(duplicate); }},
        {"duplicate replaced by a link",
         [&] { fs::remove(duplicate), fs::create_symlink("c.mp3", duplicate); }},
    };
    for (const auto &[name, happens] : cases) {
        const Song a = song("music/a.mp3");
        const Song b = song("music/b.mp3");
        // Two writes within one tick of the clock could not be told apart.
        for (const fs::path &file : {original, duplicate})
            fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(1));
        CleanUpOptions options;
        noteFiles({group(a, {b, song("music/c.mp3")})}, options.notes);
        happens();
        const Files before = filesIn(home.path("music"));
        EXPECT_THAT(failedFiles(cleanUp({group(a, {b})}, options)), ElementsAre("b.mp3")) << name;
        EXPECT_EQ(filesIn(home.path("music")), before) << name;
        // Which song goes is the user's choice, but only if it still is that song.
        const bool isOriginalChanged = std::string(name).starts_with("original");
        const auto result = trashSong(isOriginalChanged ? a : b, {group(a, {b})}, options);
        EXPECT_TRUE(std::holds_alternative<Failure>(result)) << name;
        const auto ofOther = trashSong(isOriginalChanged ? b : a, {group(a, {b})}, options);
        EXPECT_TRUE(std::holds_alternative<DisposedSong>(ofOther)) << name;
        fs::remove(original);
        fs::remove(duplicate);
    }
}

TEST_P(CleanUpTest, StopsAfterTheFileAtHandAndCanBeUndone)
{
    const DuplicateGroup first = group(song("music/a.mp3"), {song("music/b.mp3"), song("music/c.mp3")});
    const DuplicateGroup second = group(song("music/d.mp3"), {song("music/e.mp3"), song("music/f.mp3")});
    const Files before = filesIn(home.path("music"));
    std::stop_source stop;
    CleanUpOptions options{.stop = stop.get_token()};
    noteFiles({first, second}, options.notes);
    options.reportProgress = [&](qint64 done) { done == 3 && stop.request_stop(); };
    const CleanUpOutcome outcome = cleanUp({first, second}, options);
    EXPECT_THAT(movedFiles(), ElementsAre("b.mp3", "c.mp3", "e.mp3"));
    EXPECT_EQ(outcome.moved.size(), 3);
    EXPECT_EQ(outcome.notReached, QList{second.duplicates[1]});

    home.add("music/c.mp3", "new");
    fs::remove(pathOf(outcome.moved[2]));
    const UndoOutcome undone = putBack(outcome.moved);
    EXPECT_EQ(undone.restored, QList{first.duplicates[0]});
    FileNotes notes;
    noteFiles({group(first.duplicates[0], {})}, notes);
    EXPECT_EQ(undone.notes, notes);
    ASSERT_EQ(undone.failures.size(), 1);
    EXPECT_EQ(undone.failures[0].song, first.duplicates[1]);
    EXPECT_THAT(undone.failures[0].reason.toStdString(),
                testing::StartsWith("It stays at " + pathOf(outcome.moved[1]).string()));
    ASSERT_EQ(undone.gone.size(), 1);
    EXPECT_EQ(undone.gone[0].song, second.duplicates[0]);

    fs::remove(home.path("music/c.mp3"));
    EXPECT_THAT(putBack(outcome.moved, {.stop = stop.get_token()}).restored, IsEmpty());
    EXPECT_EQ(putBack({outcome.moved[1]}).restored, QList{first.duplicates[1]});
    Files rest = before;
    rest.erase("e.mp3");
    EXPECT_EQ(filesIn(home.path("music")), rest);
    EXPECT_THAT(filesIn(target), IsEmpty());
}

TEST_P(CleanUpTest, PutsADuplicateBackWhoseOriginalIsNotAsItWasEvenIfStopped)
{
    const fs::path original = home.path("music/a.mp3");
    const std::pair<const char *, std::function<void()>> cases[] = {
        {"gone", [&] { fs::remove(original); }},
        {"emptied", [&] { fs::resize_file(original, 0); }},
        {"overwritten", [&] { home.add("music/a.mp3", "other"); }},
        {"a folder", [&] { fs::remove(original) && fs::create_directory(original); }},
    };
    for (const auto &[name, happens] : cases) {
        std::stop_source stop;
        const auto stopThen = [&stop, &change = happens](qint64) {
            change();
            stop.request_stop();
        };
        const CleanUpOutcome outcome =
            cleanUp({group(song("music/a.mp3"), {song("music/b.mp3"), song("music/c.mp3")})},
                    {.stop = stop.get_token(), .reportProgress = stopThen});
        EXPECT_THAT(failedFiles(outcome), ElementsAre("b.mp3")) << name;
        EXPECT_EQ(outcome.notReached.size(), 1) << name;
        EXPECT_EQ(contentOf(home.path("music/b.mp3")), CONTENT) << name;
        EXPECT_THAT(movedFiles(), IsEmpty()) << name;
        fs::remove(original);
    }
}

TEST_P(CleanUpTest, PutsBackAFileThatTookThePlaceOfASongRightBeforeItsMove)
{
    const Song duplicate = song("music/b.mp3");
    const QList<DuplicateGroup> groups{group(song("music/a.mp3"), {duplicate})};
    const auto failsToDelete = [&] {
        return GetParam() != Target::Trash || std::holds_alternative<Failure>(trashSong(duplicate, groups));
    };
    const auto failsToCleanUp = [&] { return failedFiles(cleanUp(groups)) == Names{"b.mp3"}; };
    for (const std::function<bool()> &fails : {std::function<bool()>(failsToDelete), {failsToCleanUp}}) {
        home.add("music/b.mp3", CONTENT);
        const auto replace = [&](const SystemCallListener &listener, const seccomp_notif &call) {
            if (contentOf(home.path("music/b.mp3")) == CONTENT)
                fs::rename(home.add("new", "another song"), home.path("music/b.mp3"));
            listener.letThrough(call.id);
        };
        const auto status = runInChild([&] { return fails() ? 0 : 1; }, {SYS_renameat2}, replace);
        if (status == NOT_ALLOWED)
            GTEST_SKIP() << "no right to filter system calls";
        EXPECT_EQ(status, 0);
        EXPECT_THAT(movedFiles(), IsEmpty());
    }
    EXPECT_EQ(contentOf(home.path("music/b.mp3")), "another song");
}

INSTANTIATE_TEST_SUITE_P(To, CleanUpTest, testing::Values(Target::Trash, Target::Folder, Target::OtherDisk));

using MoveDuplicatesTest = SongTest;

TEST_F(MoveDuplicatesTest, DoesNotReachAFileWhoseCopyIsStopped)
{
    const DuplicateGroup songs = group(song("music/a.mp3"), {song("music/b.mp3"), song("music/c.mp3")});
    std::stop_source stop;
    const auto work = [&] {
        DuplicatesFolder folder = folderIn(other.path());
        const CleanUpOutcome outcome = moveDuplicates({songs}, folder, {.stop = stop.get_token()});
        return outcome.notReached == songs.duplicates && outcome.failures.isEmpty() ? 0 : 1;
    };
    const auto onWrite = [&stop](const SystemCallListener &listener, const seccomp_notif &call) {
        stop.request_stop();
        listener.letThrough(call.id);
    };
    const auto status = runInChild(work, {SYS_pwrite64}, onWrite);
    if (status == NOT_ALLOWED)
        GTEST_SKIP() << "no right to filter system calls";
    EXPECT_EQ(status, 0);
    EXPECT_EQ(filesIn(home.path("music")).size(), 3U);
}

TEST_F(MoveDuplicatesTest, KnowsAFileWhoseTimeTheOtherDiskCannotStore)
{
    const DuplicateGroup songs = group(song("music/a.mp3"), {song("music/b.mp3")});
    fs::last_write_time(home.path("music/b.mp3"), fs::file_time_type::clock::now() - std::chrono::hours(1));
    const auto work = [&] {
        DuplicatesFolder folder = folderIn(other.path());
        return moveDuplicates({songs}, folder).moved.size() == 1 ? 0 : 1;
    };
    const auto refuse = [](const SystemCallListener &listener, const seccomp_notif &call) {
        listener.fail(call.id, EPERM);
    };
    const auto status = runInChild(work, {SYS_utimensat}, refuse);
    if (status == NOT_ALLOWED)
        GTEST_SKIP() << "no right to filter system calls";
    EXPECT_EQ(status, 0);
}

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

TEST_F(TrashSongTest, KeepsASongThatAnotherFileSystemShowsToo)
{
    if (!mountView())
        GTEST_SKIP() << "an overlay cannot be mounted here";
    const Song real = song("music/album/a.mp3");
    const auto result = trashSong(real, {group(song("view/album/a.mp3"), {real})});
    EXPECT_TRUE(std::holds_alternative<Failure>(result));
    EXPECT_EQ(filesIn(home.path("music")), (Files{{"album/a.mp3", CONTENT}}));
}

} // namespace
} // namespace sonavo
