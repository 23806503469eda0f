#include "actions/action_test.h"
#include "actions/file_move.h"
#include "actions/trash.h"
#include "testing/system_call_listener.h"

#include <QFileInfo>

#include <csignal>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <cerrno>
#include <functional>

namespace sonavo {
namespace {

/// The calls of a move, each with the error that a network file system reports when it was asked a second
/// time, because the answer to the first was lost. EIO stands for calls that change no names.
const std::map<int, int> CALLS{
#ifdef SYS_link // the machine has the older calls, too
    {SYS_link, EEXIST},   {SYS_symlink, EEXIST},   {SYS_unlink, ENOENT},   {SYS_open, EIO},
    {SYS_lstat, EIO},     {SYS_stat, EIO},         {SYS_access, EIO},
#endif
    {SYS_linkat, EEXIST}, {SYS_symlinkat, EEXIST}, {SYS_unlinkat, ENOENT}, {SYS_renameat2, ENOENT},
    {SYS_openat, EIO},    {SYS_newfstatat, EIO},   {SYS_statx, EIO},       {SYS_fstat, EIO},
    {SYS_pread64, EIO},   {SYS_read, EIO},         {SYS_write, EIO},       {SYS_fsync, EIO},
    {SYS_fchmod, EIO},
};

enum class Fault
{
    FailsWithoutEffect,
    FailsAfterItsEffect,
    FailsAsDoAllThatFollow,
    EndsTheProcess,
};

/// Also exit statuses of a child; a sanitizer's is 1.
enum class Said
{
    Moved = 2,
    NotMoved,
    Uncertain,
    UncertainWithoutNeed,
};

struct Move
{
    fs::path from;
    fs::path targetFolder;
    std::function<std::optional<Failure>()> run;
};

template <typename Result>
std::optional<Failure> failureOf(const Result &result)
{
    const auto *failure = std::get_if<Failure>(&result);
    return failure ? std::optional(*failure) : std::nullopt;
}

std::optional<Failure> failureOf(const PutBackResult &result)
{
    return result.state == PutBackResult::State::Back ? std::nullopt : std::optional(Failure{result.reason});
}

/// A sanitizer writes to a pipe to learn whether memory can be read.
bool isPipe(quint64 descriptor)
{
    return fs::is_fifo("/proc/self/fd/" + std::to_string(descriptor));
}

/// Moves files while one system call meets a fault, on file systems with and without RENAME_NOREPLACE, which
/// network file systems do not have.
class LostAnswers : public ActionTest, public testing::WithParamInterface<std::tuple<Fault, bool>>
{
protected:
    const Fault fault = std::get<Fault>(GetParam());
    const bool canRefuseToReplace = std::get<bool>(GetParam());

    /// Does a move again and again, until every one of its calls has met the fault.
    void failEveryCall(const std::function<Move()> &makeMove) const
    {
        for (int number = 0, status = 0; (status & REACHED_NO_FAULT) == 0 && !HasFailure(); ++number) {
            SCOPED_TRACE("call " + std::to_string(number));
            const Move move = makeMove();
            const std::string content = contentOf(move.from);
            const auto exitStatus = runWithFault(move, number);
            if (exitStatus == NOT_ALLOWED)
                GTEST_SKIP() << "no right to filter system calls";
            EXPECT_TRUE(exitStatus || fault == Fault::EndsTheProcess);
            status = exitStatus.value_or(static_cast<int>(Said::Uncertain));
            ASSERT_NE(status, 1) << "the move crashed";
            expectTruth(move, content, Said(status & ~REACHED_NO_FAULT));
            fs::remove(move.from);
            fs::remove_all(move.targetFolder);
        }
    }

private:
    static constexpr int REACHED_NO_FAULT = 16;

    std::optional<int> runWithFault(const Move &move, int faultyCall) const
    {
        std::vector<unsigned> calls;
        for (const auto &[call, error] : CALLS)
            calls.push_back(static_cast<unsigned>(call));
        int count = 0;
        bool hitNamingCall = false;
        const auto handle = [&](const SystemCallListener &listener, const seccomp_notif &call) {
            if (!canRefuseToReplace && call.data.nr == SYS_renameat2)
                return listener.fail(call.id, EINVAL);
            if (call.data.nr == SYS_write && isPipe(call.data.args[0]))
                return listener.letThrough(call.id);
            const int number = count++;
            const bool goesOn = number > faultyCall && fault == Fault::FailsAsDoAllThatFollow;
            if (number != faultyCall && !goesOn) // waiting for the disk would take most of the time
                return call.data.nr == SYS_fsync ? listener.fail(call.id, 0) : listener.letThrough(call.id);
            const int error = CALLS.at(call.data.nr);
            hitNamingCall = error != EIO && fault != Fault::FailsAsDoAllThatFollow;
            if (fault == Fault::EndsTheProcess)
                ::kill(::getpid(), SIGKILL);
            else if (fault == Fault::FailsAfterItsEffect)
                listener.carryOut(call, error);
            else
                listener.fail(call.id, EIO);
        };
        const auto work = [&] {
            const std::optional<Failure> failure = move.run();
            auto said = failure ? Said::NotMoved : Said::Moved;
            if (failure && failure->reason.contains(toQString(move.from)) &&
                failure->reason.contains(toQString(move.targetFolder)))
                said = hitNamingCall ? Said::UncertainWithoutNeed : Said::Uncertain;
            return static_cast<int>(said) | (count > faultyCall ? 0 : REACHED_NO_FAULT);
        };
        return runInChild(work, calls, handle);
    }

    static void expectTruth(const Move &move, const std::string &content, Said said)
    {
        Files moved = filesIn(move.targetFolder);
        std::erase_if(moved, [](const auto &file) { return file.first.starts_with('.'); });
        for (const auto &[name, movedContent] : moved)
            EXPECT_EQ(movedContent, content);
        EXPECT_LE(moved.size(), 1U);
        EXPECT_TRUE(!moved.empty() || contentOf(move.from) == content);
        EXPECT_TRUE(said != Said::Moved || (!moved.empty() && !isAnythingAt(move.from)));
        EXPECT_TRUE(said != Said::NotMoved || moved.empty());
        EXPECT_NE(said, Said::UncertainWithoutNeed);
    }
};

TEST_P(LostAnswers, LoseNoFileThatIsMovedToAFolderOrBack)
{
    for (const fs::path &parent : {home.path("target"), other.path()}) {
        failEveryCall([&]() -> Move {
            const QString song = toQString(home.add("music/a.mp3"));
            DuplicatesFolder folder = folderIn(parent);
            return {song.toStdString(), folder.path().toStdString(),
                    [=]() mutable { return failureOf(folder.moveHere(song)); }};
        });
        failEveryCall([&]() -> Move {
            const auto moved =
                std::get<MovedFile>(folderIn(parent).moveHere(toQString(home.add("music/a.mp3"))));
            return {moved.path.toStdString(), home.path("music"), [=] { return failureOf(moveBack(moved)); }};
        });
    }
}

TEST_P(LostAnswers, LoseNoLink)
{
    fs::create_directory(home.path("music"));
    failEveryCall([&]() -> Move {
        const fs::path link = home.path("music/a.mp3");
        fs::create_symlink(home.path("real.mp3"), link);
        DuplicatesFolder folder = folderIn(other.path());
        return {link, folder.path().toStdString(),
                [=]() mutable { return failureOf(folder.moveHere(toQString(link))); }};
    });
}

TEST_P(LostAnswers, LoseNoFileThatGoesToTheTrashOrBack)
{
    failEveryCall([&]() -> Move {
        const fs::path song = home.add("music/a.mp3");
        return {song, trash / "files", [=] { return failureOf(moveToTrash(toQString(song))); }};
    });
    failEveryCall([&]() -> Move {
        const auto trashed = std::get<TrashedFile>(moveToTrash(toQString(home.add("music/a.mp3"))));
        return {trashed.file.path.toStdString(), home.path("music"),
                [=] { return failureOf(restore(trashed)); }};
    });
}

INSTANTIATE_TEST_SUITE_P(
    All, LostAnswers,
    testing::Combine(testing::Values(Fault::FailsWithoutEffect, Fault::FailsAfterItsEffect,
                                     Fault::FailsAsDoAllThatFollow, Fault::EndsTheProcess),
                     testing::Bool()));

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
        const fs::path copy = target.path().toStdString() + "/a.mp3";
        home.add("a.mp3");
        // The folder is flushed when the copy has its name, before the source is removed.
        const auto handle = [&, &action = action](const SystemCallListener &listener,
                                                  const seccomp_notif &call) {
            const bool isFolder = fs::is_directory("/proc/self/fd/" + std::to_string(call.data.args[0]));
            if (isFolder && fs::exists(copy))
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
