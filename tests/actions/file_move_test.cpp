#include "actions/duplicates_folder.h"
#include "actions/file_move.h"
#include "actions/trash.h"
#include "testing/audio_fixtures.h"
#include "testing/child_process.h"
#include "testing/other_file_system.h"
#include "testing/private_home.h"
#include "testing/system_call_listener.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;

/// Calls that change names, with the error that a network file system reports when it was asked a second
/// time, because the answer to the first was lost.
const std::map<unsigned, int> NAMING_CALLS{
#ifdef SYS_link // the machine has the older calls, too
    {SYS_link, EEXIST},   {SYS_symlink, EEXIST},   {SYS_unlink, ENOENT},
#endif
    {SYS_linkat, EEXIST}, {SYS_symlinkat, EEXIST}, {SYS_unlinkat, ENOENT}, {SYS_renameat2, ENOENT},
};
const std::vector<unsigned> OTHER_CALLS{
#ifdef SYS_open
    SYS_open,   SYS_lstat,      SYS_stat,  SYS_access,
#endif
    SYS_openat, SYS_newfstatat, SYS_statx, SYS_fstat,  SYS_pread64,
    SYS_read,   SYS_write,      SYS_fsync, SYS_fchmod,
};

enum class Fault
{
    FailsWithoutEffect,
    FailsAfterItsEffect,
    FailsAsDoAllThatFollow,
};

enum class Said
{
    Moved,
    NotMoved,
    Uncertain,
    UncertainWithoutNeed,
};

/// A move of a file with the content "song".
struct Move
{
    QString from;
    QString targetFolder;
    std::function<std::optional<Failure>()> run;
};

template <typename Result>
std::optional<Failure> failureOf(const Result &result)
{
    const auto *failure = std::get_if<Failure>(&result);
    return failure ? std::optional(*failure) : std::nullopt;
}

/// Moves files while one system call fails.
class LostAnswers : public testing::TestWithParam<bool>
{
protected:
    /// Whether the file systems have RENAME_NOREPLACE; network file systems do not.
    const bool canRefuseToReplace = GetParam();

    /// Lets every call of a move fail in turn, in every way.
    void failEveryCall(const std::function<Move()> &makeMove) const
    {
        for (const Fault fault :
             {Fault::FailsWithoutEffect, Fault::FailsAfterItsEffect, Fault::FailsAsDoAllThatFollow}) {
            bool isReached = true;
            for (int number = 0; isReached && !HasFailure(); ++number) {
                SCOPED_TRACE("call " + std::to_string(number) + ", fault " + std::to_string(int(fault)));
                const Move move = makeMove();
                const auto status = runWithFault(move, number, fault);
                if (status == NOT_ALLOWED)
                    GTEST_SKIP() << "no right to filter system calls";
                ASSERT_TRUE(status);
                isReached = *status < REACHED_NO_FAULT;
                expectTruth(move, Said(*status % REACHED_NO_FAULT));
                QFile::remove(move.from);
                QDir(move.targetFolder).removeRecursively();
            }
        }
    }

private:
    static constexpr int REACHED_NO_FAULT = 10;

    std::optional<int> runWithFault(const Move &move, int faultyCall, Fault fault) const
    {
        std::vector<unsigned> calls = OTHER_CALLS;
        for (const auto &[call, error] : NAMING_CALLS)
            calls.push_back(call);
        int count = 0;
        bool hitNamingCall = false;
        const auto handle = [&](const SystemCallListener &listener, const seccomp_notif &call) {
            if (!canRefuseToReplace && call.data.nr == SYS_renameat2)
                return listener.fail(call.id, EINVAL);
            if (call.data.nr == SYS_write && !isRegularFile(static_cast<int>(call.data.args[0])))
                return listener.letThrough(call.id);
            const int number = count++;
            const bool goesOn = number > faultyCall && fault == Fault::FailsAsDoAllThatFollow;
            if (number != faultyCall && !goesOn) // waiting for the disk would take most of the time
                return call.data.nr == SYS_fsync ? listener.fail(call.id, 0) : listener.letThrough(call.id);
            const auto naming = NAMING_CALLS.find(static_cast<unsigned>(call.data.nr));
            hitNamingCall = naming != NAMING_CALLS.end() && fault != Fault::FailsAsDoAllThatFollow;
            if (fault == Fault::FailsAfterItsEffect)
                listener.carryOut(call, naming != NAMING_CALLS.end() ? naming->second : EIO);
            else
                listener.fail(call.id, EIO);
        };
        const auto work = [&] {
            const std::optional<Failure> failure = move.run();
            auto said = failure ? Said::NotMoved : Said::Moved;
            if (failure && failure->reason.contains(move.from) && failure->reason.contains(move.targetFolder))
                said = hitNamingCall ? Said::UncertainWithoutNeed : Said::Uncertain;
            return static_cast<int>(said) + (count > faultyCall ? 0 : REACHED_NO_FAULT);
        };
        return runInChild(work, calls, handle);
    }

    /// Sanitizers write to pipes, too, to see which memory can be read.
    static bool isRegularFile(int descriptor)
    {
        struct stat status = {};
        return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    }

    static void expectTruth(const Move &move, Said said)
    {
        const bool isAtOldPath = QFileInfo::exists(move.from) && contentOf(move.from) == "song";
        QList<QByteArray> moved;
        for (const QFileInfo &file : QDir(move.targetFolder).entryInfoList(QDir::Files))
            moved.append(contentOf(file.filePath()));
        EXPECT_THAT(moved, AnyOf(IsEmpty(), ElementsAre("song")));
        const bool isAtNewPath = !moved.isEmpty();
        if (said == Said::Moved)
            EXPECT_TRUE(isAtNewPath && !QFileInfo::exists(move.from));
        else if (said == Said::NotMoved)
            EXPECT_TRUE(isAtOldPath && !isAtNewPath);
        else
            EXPECT_TRUE(said == Said::Uncertain && (isAtOldPath || isAtNewPath));
    }
};

TEST_P(LostAnswers, LoseNoFileThatIsMovedToAFolderOrBack)
{
    const OtherFileSystem other;
    const QTemporaryDir source;
    const QTemporaryDir sameDisk;
    const QString song = source.filePath(u"a.mp3"_s);
    for (const QString &parent : {sameDisk.path(), other.path()}) {
        auto folder = std::get<DuplicatesFolder>(DuplicatesFolder::create(parent, {}));
        const auto addSong = [&] {
            QDir().mkpath(folder.path());
            QDir().mkpath(source.path());
            writeFile(song, "song");
        };
        failEveryCall([&]() -> Move {
            addSong();
            return {song, folder.path(), [&] { return failureOf(folder.moveHere(song)); }};
        });
        failEveryCall([&]() -> Move {
            addSong();
            const auto moved = std::get<MovedFile>(folder.moveHere(song));
            return {moved.path, source.path(), [moved] { return moveBack(moved); }};
        });
    }
}

TEST_P(LostAnswers, LoseNoLink)
{
    const QTemporaryDir source;
    const OtherFileSystem other;
    const QTemporaryDir elsewhere;
    writeFile(elsewhere.filePath(u"real.mp3"_s), "song");
    auto folder = std::get<DuplicatesFolder>(DuplicatesFolder::create(other.path(), {}));
    failEveryCall([&]() -> Move {
        QDir().mkpath(folder.path());
        const QString link = source.filePath(u"a.mp3"_s);
        QFile::link(elsewhere.filePath(u"real.mp3"_s), link);
        return {link, folder.path(), [&folder, link] { return failureOf(folder.moveHere(link)); }};
    });
}

TEST_P(LostAnswers, LoseNoFileThatGoesToTheTrashOrBack)
{
    const PrivateHome home;
    const auto path = [&](const char *name) { return QString::fromStdString(home.path(name)); };
    const QString trash = path(".local/share/Trash/files");
    failEveryCall([&]() -> Move {
        home.add("music/a.mp3");
        return {path("music/a.mp3"), trash, [&] { return failureOf(moveToTrash(path("music/a.mp3"))); }};
    });
    failEveryCall([&]() -> Move {
        home.add("music/a.mp3");
        const auto trashed = std::get<TrashedFile>(moveToTrash(path("music/a.mp3")));
        return {trashed.file.path, path("music"), [trashed] { return restore(trashed); }};
    });
}

INSTANTIATE_TEST_SUITE_P(WithoutAndWith, LostAnswers, testing::Bool(),
                         [](const auto &canRefuse) { return canRefuse.param ? "Replace" : "NoReplace"; });

TEST(FileMove, KeepsWhatIsDoneToASourceWhileItIsCopied)
{
    const OtherFileSystem other;
    const QTemporaryDir folder;
    const QString song = folder.filePath(u"a.mp3"_s);
    const struct
    {
        QString name;
        std::function<void(const std::filesystem::path &)> action;
        std::string content;
    } cases[] = {
        {u"longer"_s, [](const auto &file) { std::ofstream(file, std::ios::app) << " and tags"; },
         "song and tags"},
        {u"as long, with its time kept"_s,
         [](const auto &file) {
             const auto time = std::filesystem::last_write_time(file);
             std::fstream(file) << "tags";
             std::filesystem::last_write_time(file, time);
         },
         "tags"},
        {u"replaced"_s,
         [](const auto &file) {
             std::ofstream(file.string() + ".new") << "tags";
             std::filesystem::rename(file.string() + ".new", file);
         },
         "tags"},
    };
    for (const auto &[name, action, content] : cases) {
        auto target = std::get<DuplicatesFolder>(DuplicatesFolder::create(other.pathOf(name), {}));
        writeFile(song, "song");
        // The folder is flushed when the copy has its name, before the source is removed.
        const auto handle = [&, &action = action](const SystemCallListener &listener,
                                                  const seccomp_notif &call) {
            if (std::filesystem::is_directory("/proc/self/fd/" + std::to_string(call.data.args[0])))
                action(song.toStdString());
            listener.letThrough(call.id);
        };
        const auto status =
            runInChild([&] { return failureOf(target.moveHere(song)) ? 1 : 0; }, {SYS_fsync}, handle);
        if (status == NOT_ALLOWED)
            GTEST_SKIP() << "no right to filter system calls";
        EXPECT_EQ(status, 1) << name.toStdString();
        EXPECT_EQ(contentOf(song).toStdString(), content) << name.toStdString();
        EXPECT_EQ(contentOf(target.path() + u"/a.mp3"_s), "song") << name.toStdString();
    }
}

TEST(FileMove, TakesTimesAndPermissionsToAnotherFileSystemButNotTheSpecialOnes)
{
    const QTemporaryDir folder;
    const OtherFileSystem other;
    const QString from = folder.filePath(u"a.mp3"_s);
    const QString to = other.pathOf(u"a.mp3"_s);
    const QByteArray content(3'000'001, 'x');
    const QDateTime written(QDate(2001, 2, 3), QTime(4, 5, 6, 789));
    for (const mode_t mode : {0440U, 04755U, 02755U, 01644U, 07777U}) {
        writeFile(from, content);
        QFile file(from);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(written, QFileDevice::FileModificationTime));
        ASSERT_EQ(::fchmod(file.handle(), mode), 0);
        EXPECT_EQ(moveWithoutReplacing(QFile::encodeName(from), QFile::encodeName(to)).state,
                  MoveResult::State::Moved);
        EXPECT_EQ(std::get<FileSnapshot>(takeSnapshot(QFile::encodeName(to))).mode & 07777, mode & 0777);
        EXPECT_EQ(QFileInfo(to).lastModified(), written);
        EXPECT_TRUE(contentOf(to) == content);
        EXPECT_FALSE(QFileInfo::exists(from));
        QFile::remove(to);
    }
}

TEST(FileMove, GoesBackOnlyAsTheSameFileToAFreeName)
{
    const QTemporaryDir folder;
    const OtherFileSystem other;
    const QString song = folder.filePath(u"a.mp3"_s);
    for (const QString &parent : {folder.path(), other.path()}) {
        auto target = std::get<DuplicatesFolder>(DuplicatesFolder::create(parent, {}));
        writeFile(song, "song");
        const auto moved = std::get<MovedFile>(target.moveHere(song));
        writeFile(song, "new");
        EXPECT_TRUE(moveBack(moved));
        EXPECT_EQ(contentOf(song), "new");
        QFile::remove(song);
        EXPECT_FALSE(moveBack(moved));
        EXPECT_EQ(contentOf(song), "song");

        const auto again = std::get<MovedFile>(target.moveHere(song));
        writeFile(again.path, "another");
        EXPECT_TRUE(moveBack(again));
        EXPECT_EQ(contentOf(again.path), "another");
        EXPECT_FALSE(QFileInfo::exists(song));
    }
}

} // namespace
} // namespace sonavo
