#include "actions/action_test.h"
#include "actions/file_move.h"
#include "testing/system_call_listener.h"

#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <functional>
#include <utility>

namespace sonavo {
namespace {

using State = MoveResult::State;
using BackState = PutBackResult::State;

QByteArray bytes(const fs::path &path)
{
    return path.c_str();
}

#ifdef SYS_rename
constexpr int RENAME = SYS_rename;
constexpr std::size_t RENAMED = 0;
constexpr int LINK = SYS_link;
#else
constexpr int RENAME = SYS_renameat;
constexpr std::size_t RENAMED = 1;
constexpr int LINK = SYS_linkat;
#endif

/// Whether an argument of a call is a path.
bool isGiven(const seccomp_notif &call, std::size_t argument, const fs::path &expected)
{
    std::ifstream memory("/proc/" + std::to_string(call.pid) + "/mem");
    memory.seekg(static_cast<std::streamoff>(call.data.args[argument]));
    std::string path;
    std::getline(memory, path, '\0');
    return path == expected;
}

bool isOnFolder(const seccomp_notif &call)
{
    return fs::is_directory("/proc/self/fd/" + std::to_string(call.data.args[0]));
}

std::string attributeOf(const fs::path &file, const char *name)
{
    std::array<char, 256> value{};
    const ssize_t size = ::getxattr(file.c_str(), name, value.data(), value.size());
    return size < 0 ? std::string() : std::string(value.data(), static_cast<std::size_t>(size));
}

bool setAttribute(const fs::path &file, const char *name, const std::string &value)
{
    return ::setxattr(file.c_str(), name, value.data(), value.size(), 0) == 0;
}

class FileMove : public ActionTest
{
protected:
    static MovedFile moveFile(const fs::path &from, const fs::path &to)
    {
        return describeMove(bytes(from), bytes(to), moveWithoutReplacing(bytes(from), bytes(to)));
    }
};

/// Moves files while others do something, or with calls that fail.
class DisturbedFileMove : public FileMove
{
protected:
    void SetUp() override
    {
        if (runInChild([] { return 0; }, {}, {}) == NOT_ALLOWED)
            GTEST_SKIP() << "no right to stop system calls";
    }

    /// @param handle for calls that rename, link, write and flush
    /// @param check called in the child process
    static State move(
        const fs::path &from, const fs::path &to,
        const std::function<void(const SystemCallListener &, const seccomp_notif &)> &handle,
        const MoveOptions &options = {},
        const std::function<void(const MoveResult &)> &check = [](const MoveResult &) {})
    {
        const auto work = [&] {
            const MoveResult result = moveWithoutReplacing(bytes(from), bytes(to), options);
            check(result);
            return HasFailure() ? -1 : static_cast<int>(result.state);
        };
        return static_cast<State>(
            runInChild(work, {RENAME, SYS_renameat2, LINK, SYS_pwrite64, SYS_fsync}, handle).value_or(-1));
    }
};

TEST_F(DisturbedFileMove, KeepsWhatIsWrittenUnderTheOldNameDuringAMove)
{
    const fs::path song = home.path("a.mp3");
    const auto makeSong = [&] { home.add("a.mp3"); };
    const auto makeLink = [&] { fs::create_symlink("song.mp3", song); };
    const auto replace = [&] { fs::rename(home.add("new.mp3", "tags"), song); };
    const auto append = [&] { std::ofstream(song, std::ios::app) << " and tags"; };
    const auto overwriteKeepingTime = [&] {
        const auto time = fs::last_write_time(song);
        std::fstream(song) << "tags";
        fs::last_write_time(song, time);
    };
    const struct
    {
        std::function<void()> make;
        /// The folder is flushed when the copy has its name, before the source is looked at for the last
        /// time. Then the source gets a private name.
        bool isAfterLastLook;
        std::function<void()> write;
        std::string content;
        std::string moved;
    } cases[] = {
        {makeSong, false, append, "song and tags", "song"},
        {makeSong, false, overwriteKeepingTime, "tags", "song"},
        {makeSong, true, append, "song and tags", "song"},
        {makeSong, true, replace, "tags", "song"},
        {makeLink, true, replace, "tags", "-> " + home.path("song.mp3").string()},
    };
    for (const auto &test : cases) {
        test.make();
        const fs::path to = other.path("a.mp3");
        bool isDone = false;
        const auto handle = [&](const SystemCallListener &listener, const seccomp_notif &call) {
            const bool isNow = test.isAfterLastLook ? call.data.nr == RENAME && isGiven(call, RENAMED, song)
                                                    : call.data.nr == SYS_fsync && isOnFolder(call);
            if (isNow && !std::exchange(isDone, true))
                test.write();
            listener.letThrough(call.id);
        };
        EXPECT_EQ(move(song, to, handle), State::Uncertain) << test.content;
        EXPECT_EQ(filesIn(home.path()), (Files{{"a.mp3", test.content}}));
        EXPECT_EQ(contentOf(to), test.moved);
        fs::remove(song);
        fs::remove(to);
    }
}

TEST_F(DisturbedFileMove, SaysWhereItLeftAFileThatCouldNotGetItsNameBack)
{
    const fs::path song = home.add("a.mp3");
    // Saved twice by others: when it gets its private name, and when that one is to be taken back.
    int saved = 0;
    const auto handle = [&](const SystemCallListener &listener, const seccomp_notif &call) {
        if (saved == 0 ? call.data.nr == RENAME && isGiven(call, RENAMED, song)
                       : call.data.nr == SYS_renameat2)
            fs::rename(home.add("new", "saved " + std::to_string(++saved)), song);
        listener.letThrough(call.id);
    };
    const auto check = [&](const MoveResult &result) {
        const QString reason = toFailure(result, bytes(song), "").reason;
        EXPECT_TRUE(reason.contains(QFile::decodeName(result.leftAt)));
        EXPECT_EQ(contentOf(result.leftAt.toStdString()), "saved 1");
    };
    EXPECT_EQ(move(song, other.path("a.mp3"), handle, {}, check), State::Uncertain);
    EXPECT_EQ(contentOf(song), "saved 2");
    EXPECT_EQ(contentOf(other.path("a.mp3")), "song");
}

TEST_F(FileMove, SaysWhenADiskRefusesTheNameOfAFile)
{
    const auto reason = [](int error, const fs::path &from, const fs::path &to) {
        return toFailure({.state = State::NotMoved, .error = error}, bytes(from), bytes(to)).reason;
    };
    const fs::path song = home.add("a.mp3");
    const QString refused = QStringLiteral("The disk cannot store a file of this name");
    EXPECT_EQ(reason(EINVAL, song, other.path("What?.mp3")), refused);
    EXPECT_EQ(reason(ENOENT, song, other.path("a\nb.mp3")), refused);
    EXPECT_EQ(reason(EINVAL, song, other.path("Ça va.mp3")), errorText(EINVAL))
        << "the name is not the reason";
    EXPECT_EQ(reason(ENOSPC, song, other.path("What?.mp3")), errorText(ENOSPC));
    EXPECT_EQ(reason(ENOENT, song, other.path("gone/What?.mp3")), errorText(ENOENT));
    EXPECT_EQ(reason(ENOENT, home.path("gone.mp3"), other.path("What?.mp3")), errorText(ENOENT));
}

TEST_F(FileMove, TakesTimesAndPermissionsToAnotherFileSystemButNotTheSpecialOnes)
{
    const fs::path to = other.path("a.mp3");
    const std::string content(3'000'001, 'x');
    // Only root can read what its owner may not.
    for (const mode_t mode : {0440U, ::geteuid() == 0 ? 0044U : 0444U, 04755U, 02755U, 01644U, 07777U}) {
        const fs::path from = home.add("a.mp3", content);
        const auto written = fs::last_write_time(from) - std::chrono::nanoseconds(123'456'789'000'001);
        fs::last_write_time(from, written);
        ASSERT_EQ(::chmod(from.c_str(), mode), 0);
        EXPECT_EQ(moveWithoutReplacing(from.c_str(), to.c_str()).state, MoveResult::State::Moved);
        EXPECT_EQ(static_cast<mode_t>(fs::status(to).permissions()), (mode & 0777) | S_IRUSR);
        EXPECT_EQ(fs::last_write_time(to), written);
        EXPECT_TRUE(contentOf(to) == content);
        EXPECT_FALSE(fs::exists(from));
        fs::remove(to);
    }
}

TEST_F(FileMove, TakesAttributesToAnotherFileSystemOrNamesThoseThatAreLost)
{
    // One user by name may read the file: version 2; tag, permissions and id of every entry. A namespace
    // knows no other user than this one.
    std::string accessList("\2\0\0\0"
                           "\1\0\6\0\xff\xff\xff\xff"
                           "\2\0\4\0\0\0\0\0"
                           "\4\0\4\0\xff\xff\xff\xff"
                           "\x10\0\4\0\xff\xff\xff\xff"
                           "\x20\0\0\0\xff\xff\xff\xff",
                           44);
    const uid_t user = ::geteuid();
    std::memcpy(&accessList[16], &user, sizeof user);
    const char *rating = "user.baloo.rating";
    const char *list = "system.posix_acl_access";
    const char *secret = "security.sonavo";
    const fs::path from = home.path("a.mp3");
    const auto add = [&] {
        home.add("a.mp3");
        setAttribute(from, secret, "x");
        return setAttribute(from, rating, "8") && setAttribute(from, list, accessList);
    };
    const fs::path probe = PrivateHome::addFile(other.path("probe"), "");
    if (!add() || !setAttribute(probe, rating, "8"))
        GTEST_SKIP() << "these file systems have no attributes of users";
    const fs::path to = other.path("a.mp3");
    const MoveResult kept = moveWithoutReplacing(bytes(from), bytes(to));
    EXPECT_EQ(kept.state, State::Moved);
    EXPECT_EQ(kept.lostAttributes, QStringList());
    EXPECT_EQ(attributeOf(to, rating), "8");
    EXPECT_EQ(attributeOf(to, list), accessList);
    EXPECT_EQ(attributeOf(to, secret), "");

    // A file gets no list that its new folder would give it.
    const fs::path shared = other.path("shared");
    fs::create_directory(shared);
    EXPECT_TRUE(setAttribute(shared, "system.posix_acl_default", accessList));
    EXPECT_EQ(moveWithoutReplacing(bytes(home.add("b.mp3")), bytes(shared / "b.mp3")).state, State::Moved);
    EXPECT_EQ(attributeOf(shared / "b.mp3", list), "");

    if (!PrivateMounts::areAllowed() || !mounts.mount(home.path("ram"), "ramfs"))
        GTEST_SKIP() << "a file system without attributes cannot be mounted here";
    ASSERT_TRUE(add());
    const MoveResult lost = moveWithoutReplacing(bytes(from), bytes(home.path("ram/a.mp3")));
    EXPECT_EQ(lost.state, State::Moved);
    EXPECT_EQ(QSet<QString>(lost.lostAttributes.begin(), lost.lostAttributes.end()),
              (QSet<QString>{QString::fromLatin1(rating), QString::fromLatin1(list)}));
}

TEST_F(FileMove, LeavesHolesInACopy)
{
    constexpr std::uintmax_t SIZE = 8'000'001;
    const fs::path from = home.add("a.mp3", std::string(5000, 'a'));
    fs::resize_file(from, SIZE / 2);
    std::ofstream(from, std::ios::app) << "middle";
    fs::resize_file(from, SIZE);
    const std::string content = contentOf(from);
    const fs::path to = other.path("a.mp3");
    EXPECT_EQ(moveWithoutReplacing(bytes(from), bytes(to)).state, State::Moved);
    EXPECT_TRUE(contentOf(to) == content);
    struct stat status = {};
    EXPECT_EQ(::stat(to.c_str(), &status), 0);
    EXPECT_LT(status.st_blocks, 100);
}

TEST_F(DisturbedFileMove, AbandonsACopyUntilItHasItsName)
{
    for (const auto &[stopsAt, isAtFolder] :
         std::vector<std::pair<int, bool>>{{SYS_pwrite64, false}, {SYS_fsync, false}, {SYS_fsync, true}}) {
        const fs::path from = home.add("a.mp3", std::string(3'000'000, 'x'));
        std::stop_source source;
        int writes = 0;
        const auto handle = [&, call = stopsAt, onFolder = isAtFolder](const SystemCallListener &listener,
                                                                       const seccomp_notif &now) {
            writes += now.data.nr == SYS_pwrite64 ? 1 : 0;
            if (now.data.nr == call && isOnFolder(now) == onFolder)
                source.request_stop();
            listener.letThrough(now.id);
        };
        const auto check = [&, call = stopsAt](const MoveResult &result) {
            EXPECT_EQ(result.error, result.state == State::Moved ? 0 : ECANCELED);
            EXPECT_EQ(writes, call == SYS_pwrite64 ? 1 : 3);
        };
        const auto state = move(from, other.path("a.mp3"), handle, {.stop = source.get_token()}, check);
        EXPECT_EQ(state, isAtFolder ? State::Moved : State::NotMoved);
        EXPECT_EQ(fs::exists(from), !isAtFolder);
        EXPECT_EQ(filesIn(other.path()).size(), isAtFolder ? 1U : 0U);
    }
}

TEST_F(DisturbedFileMove, CopiesNothingIfTheDiskRefusesTheNameOrTheFileHasNoEnd)
{
    const fs::path to = other.path("What?.mp3");
    for (const int expected : {EINVAL, EBUSY}) {
        const fs::path song = home.add("What?.mp3", std::string(3'000'000, 'x'));
        int writes = 0;
        const auto handle = [&](const SystemCallListener &listener, const seccomp_notif &call) {
            if (call.data.nr == SYS_openat && expected == EINVAL && isGiven(call, 1, to))
                return listener.fail(call.id, EINVAL);
            if (call.data.nr == SYS_pwrite64 && ++writes < 20)
                std::ofstream(song, std::ios::app) << std::string(1'500'000, 'y');
            listener.letThrough(call.id);
        };
        const auto work = [&] {
            const int error = moveWithoutReplacing(bytes(song), bytes(to)).error;
            return writes <= (error == EINVAL ? 0 : 4) ? error : -1;
        };
        EXPECT_EQ(runInChild(work, {SYS_openat, SYS_pwrite64}, handle), expected);
        EXPECT_TRUE(fs::exists(song));
        EXPECT_EQ(filesIn(other.path()), Files());
    }
}

TEST_F(DisturbedFileMove, RenamesOverAnEmptyFileOfItsOwnWhereNothingElseWorks)
{
    const fs::path from = home.path("a.mp3");
    const fs::path to = home.path("b.mp3");
    const struct
    {
        /// Done by others when the file is to be renamed over the empty one, which then fails.
        std::function<void()> action;
        State expected;
        Files files;
    } cases[] = {
        {{}, State::Moved, {{"b.mp3", "song"}}},
        {[] {}, State::NotMoved, {{"a.mp3", "song"}}},
        {[&] { std::ofstream(to) << "new"; }, State::NotMoved, {{"a.mp3", "song"}, {"b.mp3", "new"}}},
    };
    for (const auto &test : cases) {
        home.add("a.mp3");
        bool isDone = false;
        const auto handle = [&](const SystemCallListener &listener, const seccomp_notif &call) {
            if (call.data.nr != RENAME)
                return listener.fail(call.id, call.data.nr == SYS_renameat2 ? EINVAL : EOPNOTSUPP);
            if (!test.action || std::exchange(isDone, true))
                return listener.letThrough(call.id);
            test.action();
            listener.fail(call.id, EIO);
        };
        EXPECT_EQ(move(from, to, handle), test.expected);
        EXPECT_EQ(filesIn(home.path()), test.files);
        fs::remove(from);
        fs::remove(to);
    }
}

TEST_F(FileMove, TellsThatAnUnreadableFileWasNotMovedAndStillRenamesIt)
{
    fs::permissions(home.path(), fs::perms::all);
    for (const auto &[mode, expected] :
         {std::pair(0777U, State::Moved), std::pair(01777U, State::NotMoved)}) {
        const fs::path from = home.add(std::to_string(mode) + "/a.mp3");
        ::chmod(from.c_str(), 0);
        ::chmod(from.parent_path().c_str(), mode); // a sticky folder, where only the owner may rename a file
        const auto work = [&] {
            constexpr uid_t NOBODY = 65534;
            if (::setresuid(NOBODY, NOBODY, NOBODY) != 0)
                return NOT_ALLOWED;
            return static_cast<int>(moveWithoutReplacing(bytes(from), bytes(from) + "b").state);
        };
        const auto status = runInChild(work, {}, {});
        if (status == NOT_ALLOWED)
            GTEST_SKIP() << "no right to become another user";
        EXPECT_EQ(status, static_cast<int>(expected));
    }
}

TEST_F(FileMove, KnowsWhereAFileIsThatIsToGoBack)
{
    // A folder whose name is not UTF-8.
    const fs::path folder = home.path("\xfc");
    const fs::path song = folder / "sub/a.mp3";
    const struct
    {
        std::string name;
        std::function<void(const fs::path &moved)> action;
        BackState expected;
        std::string content;
    } cases[] = {
        {"untouched", [](const fs::path &) {}, BackState::Back, "song"},
        {"old folder removed", [&](const fs::path &) { fs::remove_all(folder); }, BackState::Back, "song"},
        {"old folder is a file", [&](const fs::path &) { fs::remove_all(folder), home.add("\xfc"); },
         BackState::Stays, ""},
        {"old name taken", [&](const fs::path &) { PrivateHome::addFile(song, "new"); }, BackState::Stays,
         "new"},
        {"replaced", [](const fs::path &moved) { PrivateHome::addFile(moved, "another"); }, BackState::Stays,
         ""},
        {"deleted", [](const fs::path &moved) { fs::remove(moved); }, BackState::Gone, ""},
        {"moved back by others",
         [&](const fs::path &moved) {
             std::system(("mv '" + moved.string() + "' '" + song.string() + "'").c_str());
         },
         BackState::Back, "song"},
    };
    for (const auto &[name, action, expected, content] : cases) {
        for (const fs::path &to : {home.path(name), other.path(name)}) {
            const MovedFile moved = moveFile(PrivateHome::addFile(song, "song"), to);
            action(to);
            const PutBackResult back = moveBack(moved);
            EXPECT_EQ(back.state, expected) << to;
            EXPECT_EQ(back.reason.isEmpty(), expected == BackState::Back) << to;
            EXPECT_EQ(back.snapshot.has_value(), expected == BackState::Back) << to;
            EXPECT_EQ(contentOf(song), content) << to;
            fs::remove_all(folder);
        }
    }

    if (!PrivateMounts::areAllowed() || !mounts.mount(home.path("disk"), "tmpfs"))
        GTEST_SKIP() << "a disk cannot be mounted here";
    MovedFile remounted = moveFile(home.add("b.mp3"), home.path("disk/b.mp3"));
    ++remounted.snapshot->device;
    EXPECT_EQ(moveBack(remounted).state, BackState::Back) << "its disk has another number";
    const MovedFile moved = moveFile(home.add("a.mp3"), home.path("disk/a.mp3"));
    ::umount2(home.path("disk").c_str(), MNT_DETACH);
    EXPECT_EQ(moveBack(moved).state, BackState::Stays) << "the disk is not there";
}

TEST(FileSnapshot, DoesNotTrustInodesThatAreMadeUp)
{
    FileSnapshot before{.inode = 1, .mode = S_IFREG, .size = 1, .modified = 1, .changed = 1};
    FileSnapshot later{.inode = 2, .mode = S_IFREG, .size = 1, .modified = 1, .changed = 2};
    const auto isSame = [&] {
        const bool same = isSameFile(later, before);
        EXPECT_EQ(isUntouched(later, before), same);
        EXPECT_EQ(isAsNoted(later, noteOf(before)), same);
        return same;
    };
    EXPECT_FALSE(isSame());
    before.hasLastingInode = later.hasLastingInode = false;
    EXPECT_TRUE(isSame());
    later.modified = 2;
    EXPECT_FALSE(isSame());
}

} // namespace
} // namespace sonavo
