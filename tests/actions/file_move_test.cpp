#include "actions/action_test.h"
#include "actions/file_move.h"
#include "testing/system_call_listener.h"

#include <sys/stat.h>
#include <sys/syscall.h>

#include <functional>

namespace sonavo {
namespace {

class FileMove : public ActionTest
{};

TEST_F(FileMove, KeepsEditsMadeToTheSourceDuringACopy)
{
    const fs::path song = home.path("a.mp3");
    const struct
    {
        std::string name;
        std::function<void()> action;
        std::string content;
    } cases[] = {
        {"longer", [&] { std::ofstream(song, std::ios::app) << " and tags"; }, "song and tags"},
        {"as long, with its time kept",
         [&] {
             const auto time = fs::last_write_time(song);
             std::fstream(song) << "tags";
             fs::last_write_time(song, time);
         },
         "tags"},
        {"replaced", [&] { fs::rename(home.add("new.mp3", "tags"), song); }, "tags"},
    };
    for (const auto &[name, action, content] : cases) {
        DuplicatesFolder target = folderIn(other.path(name));
        home.add("a.mp3");
        // The folder is flushed when the copy has its name, before the source is removed.
        const auto handle = [&, &action = action](const SystemCallListener &listener,
                                                  const seccomp_notif &call) {
            if (fs::is_directory("/proc/self/fd/" + std::to_string(call.data.args[0])))
                action();
            listener.letThrough(call.id);
        };
        const auto status = runInChild([&] { return moves(target, song) ? 0 : 1; }, {SYS_fsync}, handle);
        if (status == NOT_ALLOWED)
            GTEST_SKIP() << "no right to filter system calls";
        EXPECT_EQ(status, 1) << name;
        EXPECT_EQ(contentOf(song), content) << name;
        EXPECT_EQ(filesIn(target.path().toStdString()), (Files{{"a.mp3", "song"}})) << name;
    }
}

TEST_F(FileMove, TakesTimesAndPermissionsToAnotherFileSystemButNotTheSpecialOnes)
{
    const fs::path to = other.path("a.mp3");
    const std::string content(3'000'001, 'x');
    for (const mode_t mode : {0440U, 04755U, 02755U, 01644U, 07777U}) {
        const fs::path from = home.add("a.mp3", content);
        const auto written = fs::last_write_time(from) - std::chrono::nanoseconds(123'456'789'000'001);
        fs::last_write_time(from, written);
        ASSERT_EQ(::chmod(from.c_str(), mode), 0);
        EXPECT_EQ(moveWithoutReplacing(from.c_str(), to.c_str()).state, MoveResult::State::Moved);
        EXPECT_EQ(static_cast<mode_t>(fs::status(to).permissions()), mode & 0777);
        EXPECT_EQ(fs::last_write_time(to), written);
        EXPECT_TRUE(contentOf(to) == content);
        EXPECT_FALSE(fs::exists(from));
        fs::remove(to);
    }
}

TEST_F(FileMove, MovesBackOnlyTheSameFileAndOnlyToAFreeName)
{
    const fs::path song = home.path("a.mp3");
    for (const fs::path &parent : {home.path(), other.path()}) {
        DuplicatesFolder target = folderIn(parent);
        const auto moveSong = [&] { return std::get<MovedFile>(target.moveHere(toQString(song))); };
        home.add("a.mp3");
        const MovedFile moved = moveSong();
        home.add("a.mp3", "new");
        EXPECT_EQ(moveBack(moved).state, PutBackResult::State::Stays);
        EXPECT_EQ(contentOf(song), "new");
        fs::remove(song);
        EXPECT_EQ(moveBack(moved).state, PutBackResult::State::Back);
        EXPECT_EQ(contentOf(song), "song");

        const MovedFile replaced = moveSong();
        PrivateHome::addFile(replaced.path.toStdString(), "another");
        EXPECT_EQ(moveBack(replaced).state, PutBackResult::State::Stays);
        EXPECT_EQ(contentOf(replaced.path.toStdString()), "another");
        EXPECT_FALSE(fs::exists(song));
    }
}

} // namespace
} // namespace sonavo
