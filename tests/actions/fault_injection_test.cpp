// Every system call of a move, a trashing and an undo meets every fault once. Which calls these are is not
// listed: whatever a process does is stopped, but for what concerns no files.

#include "actions/action_test.h"
#include "actions/move_journal.h"
#include "actions/trash.h"
#include "actions/unfinished_moves.h"
#include "testing/system_call_listener.h"

#include <QElapsedTimer>
#include <QRegularExpression>

#include <csignal>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <functional>
#include <random>
#include <set>

namespace sonavo {
namespace {

/// Calls for memory, threads and the like.
const std::vector<unsigned> HARMLESS_CALLS{
    SYS_mmap,       SYS_munmap,          SYS_mprotect,      SYS_mremap,         SYS_madvise,     SYS_brk,
    SYS_futex,      SYS_sched_yield,     SYS_clock_gettime, SYS_getrandom,      SYS_getpid,      SYS_gettid,
    SYS_geteuid,    SYS_getuid,          SYS_rt_sigaction,  SYS_rt_sigprocmask, SYS_sigaltstack, SYS_exit,
    SYS_exit_group, SYS_clock_nanosleep, SYS_pipe2,         SYS_getcwd,
};

/// Calls that change names, each with the error that a network file system reports when it was asked a second
/// time, because the answer to the first was lost. All others report EIO.
const std::map<int, int> NAMING_CALLS{
#ifdef SYS_link // the machine has the older calls, too
    {SYS_link, EEXIST},    {SYS_symlink, EEXIST},   {SYS_unlink, ENOENT},
    {SYS_mkdir, EEXIST},   {SYS_rename, ENOENT},    {SYS_rmdir, ENOENT},
#endif
    {SYS_linkat, EEXIST},  {SYS_symlinkat, EEXIST}, {SYS_unlinkat, ENOENT},
    {SYS_mkdirat, EEXIST}, {SYS_renameat, ENOENT},  {SYS_renameat2, ENOENT},
};

enum class Disks
{
    Same,
    Other,
    SameWithoutNoReplace,
    SameWithoutNoReplaceAndLinks,
    OtherWithoutNoReplaceAndLinks,
};

enum class Operation
{
    Move,
    MoveBack,
    MoveLink,
    MoveLinkBack,
    Trash,
    Restore,
};

enum class Fault
{
    FailsWithoutEffect,
    FailsAfterItsEffect,
    FailsAsDoAllThatFollow,
    EndsTheProcess,
};

constexpr std::array FAULTS{Fault::FailsWithoutEffect, Fault::FailsAfterItsEffect,
                            Fault::FailsAsDoAllThatFollow, Fault::EndsTheProcess};

/// By call, counted from 0.
using Faults = std::map<int, Fault>;

enum class Said
{
    Nothing,
    Moved,
    NotMoved,
    Uncertain,
};

/// Shared with the process that meets the faults.
struct Report
{
    static constexpr int MAX_SONGS = 4;
    std::atomic<int> calls = 0;
    /// The number of the one that met a fault, as in SYS_unlink.
    std::atomic<int> hitCall = -1;
    std::array<std::atomic<Said>, MAX_SONGS> said{};
};

/// Names and contents, without numbers in names and without dates.
using Tree = std::multiset<std::pair<std::string, std::string>>;

using Away = std::variant<TrashedFile, MovedFile>;

/// A sanitizer writes to a pipe to learn whether memory can be read.
bool isPipe(quint64 descriptor)
{
    return fs::is_fifo("/proc/self/fd/" + std::to_string(descriptor));
}

bool canRefuseToReplace(Disks disks)
{
    return disks == Disks::Same || disks == Disks::Other;
}

bool canLink(Disks disks)
{
    return canRefuseToReplace(disks) || disks == Disks::SameWithoutNoReplace;
}

/// For how long pairs of faults are tried in each case, after all single ones; 0 for a sample of these.
int secondsOfPairs()
{
    return qEnvironmentVariableIntValue("SONAVO_FAULT_SECONDS");
}

bool isThorough()
{
    return secondsOfPairs() > 0;
}

class FaultInjection : public ActionTest, public testing::WithParamInterface<std::tuple<Disks, Operation>>
{
protected:
    FaultInjection()
        : m_report(static_cast<Report *>(
              ::mmap(nullptr, sizeof(Report), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)))
    {}
    ~FaultInjection() override { ::munmap(m_report, sizeof(Report)); }

    static constexpr qint64 SAMPLE_MS = 400;

    /// @return how many calls the operation made; nothing when this process may not stop them
    std::optional<int> expectTruthDespite(const Faults &faults)
    {
        std::string trace = "faults:";
        for (const auto &[call, fault] : faults)
            trace += ' ' + std::to_string(int(fault)) + " at call " + std::to_string(call);
        SCOPED_TRACE(trace);
        prepare();
        new (m_report) Report;
        const auto handle = [&](const SystemCallListener &listener, const seccomp_notif &call) {
            answer(listener, call, faults);
        };
        const auto status = runInChild([this] { return runAll(); }, HARMLESS_CALLS, handle,
                                       SystemCallListener::Stops::AllOtherCalls);
        if (status == NOT_ALLOWED)
            return std::nullopt;
        const bool isKilled = std::any_of(faults.begin(), faults.end(), [this](const auto &fault) {
            return fault.second == Fault::EndsTheProcess && fault.first < m_report->calls;
        });
        EXPECT_EQ(status, isKilled ? std::nullopt : std::optional(0)) << "it crashed";
        if (faults.size() > 1)
            expectNoLoss();
        else
            expectTruth(faults);
        return m_report->calls;
    }

    std::mt19937 m_random{std::random_device()()};
    Report *const m_report;

private:
    const std::vector<fs::path> songs =
        isThorough() ? std::vector{home.path("music/a.mp3"), home.path("music/link.mp3"),
                                   home.path("music/album/a.mp3")}
                     : std::vector{home.path("music/a.mp3")};
    const Disks disks = std::get<Disks>(GetParam());
    const Operation operation = std::get<Operation>(GetParam());
    const bool isOtherDisk = disks == Disks::Other || disks == Disks::OtherWithoutNoReplaceAndLinks;
    const fs::path parent = isOtherDisk ? other.path("target") : home.path("target");

    [[nodiscard]] bool isUndo() const
    {
        return operation == Operation::MoveBack || operation == Operation::MoveLinkBack ||
               operation == Operation::Restore;
    }
    [[nodiscard]] bool usesTrash() const
    {
        return operation == Operation::Trash || operation == Operation::Restore;
    }
    [[nodiscard]] bool isLink(std::size_t song) const
    {
        return operation == Operation::MoveLink || operation == Operation::MoveLinkBack || song == 1;
    }

    /// Makes everything as it is before the operation, with files of others beside it.
    void prepare()
    {
        for (const fs::path &root : {home.path("music"), parent, trash})
            fs::remove_all(root);
        m_target = folderIn(parent);
        PrivateHome::addFile(folder() / "a.mp3", "another's");
        for (const char *name : {"files/a.mp3", "info/a.mp3.trashinfo", "info/b.mp3.trashinfo"})
            PrivateHome::addFile(trash / name, "[Trash Info]\nPath=/another's\n");
        const fs::path copy = PrivateHome::addFile(folder() / ".living", "unfinished");
        m_filesOfOthers = tree();
        m_away.clear();
        for (std::size_t i = 0; i < songs.size(); ++i) {
            fs::create_directories(songs[i].parent_path());
            if (isLink(i))
                fs::create_symlink(std::to_string(i), songs[i]);
            else
                addSong(songs[i], contentOfSong(i));
            if (isUndo())
                m_away.push_back(std::get<Away>(takeAway(i, {})));
        }
        const QByteArray source((folder() / "a.mp3").c_str());
        m_livingCopy = m_living.record({.kind = Leftover::Kind::Copy,
                                        .path = copy.c_str(),
                                        .finalPath = home.path("finished").c_str(),
                                        .source = source,
                                        .sourceSnapshot = std::get<FileSnapshot>(takeSnapshot(source))});
    }

    [[nodiscard]] fs::path folder() const { return m_target->path().toStdString(); }
    static void addSong(const fs::path &path, const std::string &content)
    {
        PrivateHome::addFile(path, content);
        ::setxattr(path.c_str(), "user.rating", "5", 1, 0); // where the disk can store it
    }
    static std::string contentOfSong(std::size_t i) { return "song " + std::to_string(i); }

    std::variant<Away, Failure> takeAway(std::size_t i, const MoveOptions &options)
    {
        const auto toAway = [](const auto &result) -> std::variant<Away, Failure> {
            if (const auto *failure = std::get_if<Failure>(&result))
                return *failure;
            return Away(std::get<0>(result));
        };
        return usesTrash() ? toAway(moveToTrash(toQString(songs[i]), options))
                           : toAway(m_target->moveHere(toQString(songs[i]), options));
    }
    PutBackResult bringBack(std::size_t i, const MoveOptions &options) const
    {
        const auto *trashed = std::get_if<TrashedFile>(&m_away[i]);
        return trashed ? restore(*trashed, options)
                       : DuplicatesFolder::moveBack(std::get<MovedFile>(m_away[i]), options);
    }
    /// Where a song is before the operation.
    [[nodiscard]] fs::path startOf(std::size_t i) const
    {
        if (!isUndo())
            return songs[i];
        const auto *trashed = std::get_if<TrashedFile>(&m_away[i]);
        return (trashed ? trashed->file : std::get<MovedFile>(m_away[i])).path.toStdString();
    }

    Said run(std::size_t i, const MoveOptions &options)
    {
        std::optional<QString> reason;
        if (isUndo()) {
            const PutBackResult result = bringBack(i, options);
            if (result.state != PutBackResult::State::Back)
                reason = result.reason;
        } else if (const auto result = takeAway(i, options); std::holds_alternative<Failure>(result)) {
            reason = std::get<Failure>(result).reason;
        }
        if (!reason)
            return Said::Moved;
        const fs::path newFolder = usesTrash() ? trash / "files" : folder();
        const bool namesBoth =
            reason->contains(toQString(songs[i])) && reason->contains(toQString(newFolder));
        return namesBoth ? Said::Uncertain : Said::NotMoved;
    }

    /// In the process that meets the faults.
    int runAll()
    {
        MoveJournal journal(moveJournalFolder());
        MoveOptions options;
        options.journal = &journal;
        for (std::size_t i = 0; i < songs.size(); ++i)
            m_report->said[i] = run(i, options);
        return 0;
    }

    void answer(const SystemCallListener &listener, const seccomp_notif &call, const Faults &faults) const
    {
        const int number = call.data.nr;
        if ((number == SYS_write || number == SYS_read || number == SYS_close) && isPipe(call.data.args[0]))
            return listener.letThrough(call.id);
        if (!canRefuseToReplace(disks) && number == SYS_renameat2)
            return listener.fail(call.id, EINVAL);
        if (!canLink(disks) && isLinkCall(number))
            return listener.fail(call.id, EPERM);
        const int count = m_report->calls++;
        const auto next = faults.upper_bound(count);
        const auto last = next == faults.begin() ? faults.end() : std::prev(next);
        const bool isHit =
            last != faults.end() && (last->first == count || last->second == Fault::FailsAsDoAllThatFollow);
        if (!isHit) // waiting for the disk would take most of the time
            return number == SYS_fsync ? listener.fail(call.id, 0) : listener.letThrough(call.id);
        m_report->hitCall = number;
        const auto lost = NAMING_CALLS.find(number);
        if (last->second == Fault::EndsTheProcess)
            ::kill(::getpid(), SIGKILL);
        else if (last->second == Fault::FailsAfterItsEffect)
            listener.carryOut(call, lost != NAMING_CALLS.end() ? lost->second : EIO);
        else
            listener.fail(call.id, EIO);
    }
    static bool isLinkCall(int number)
    {
#ifdef SYS_link
        if (number == SYS_link)
            return true;
#endif
        return number == SYS_linkat;
    }

    [[nodiscard]] Tree tree() const
    {
        static const QRegularExpression numbers(
            QStringLiteral("( \\([0-9]+\\)|\\.[0-9]+(?=\\.mp3)|\nDeletionDate=.*)"));
        const auto withoutNumbers = [](const std::string &text) {
            return QString::fromStdString(text).remove(numbers).toStdString();
        };
        Tree files;
        for (const fs::path &root : {home.path("music"), parent, trash}) {
            for (const auto &[name, content] : filesIn(root))
                files.emplace(withoutNumbers(root / name), withoutNumbers(content));
        }
        return files;
    }

    /// What there is when some of the songs have been moved.
    /// @param moved a bit for each
    const Tree &treeAfter(unsigned moved)
    {
        if (const auto known = m_trees.find(moved); known != m_trees.end())
            return known->second;
        prepare();
        for (std::size_t i = 0; i < songs.size(); ++i) {
            const bool moves = (moved >> i & 1) != 0;
            EXPECT_TRUE(!moves || run(i, {}) == Said::Moved);
        }
        return m_trees[moved] = tree();
    }

    /// The files that are there but should not be, after a plus, and those that are missing, after a minus.
    static std::string difference(const Tree &now, const std::vector<Tree> &expected)
    {
        std::string text;
        for (const Tree &tree : expected) {
            for (const auto &[name, content] : now)
                text += tree.contains({name, content}) ? "" : "\n+ " + name + ": " + content;
            for (const auto &[name, content] : tree)
                text += now.contains({name, content}) ? "" : "\n- " + name + ": " + content;
            text += "\nor";
        }
        return text;
    }

    /// Several faults can leave something over, but no content is lost and nothing of others is touched.
    void expectNoLoss()
    {
        cleanUpUnfinishedMoves(moveJournalFolder());
        const Tree now = tree();
        for (std::size_t i = 0; i < songs.size(); ++i) {
            const std::string number = std::to_string(i);
            EXPECT_TRUE(std::ranges::any_of(now, [&](const auto &file) {
                return file.second.ends_with(' ' + number) || file.second.ends_with('/' + number);
            })) << songs[i];
        }
        for (const auto &file : m_filesOfOthers)
            EXPECT_TRUE(now.contains(file)) << file.first;
    }

    /// What was said is true, and after the next start everything is as it was, or as it was to be.
    void expectTruth(const Faults &faults)
    {
        const bool canBeFoundOut = faults.empty() || (faults.begin()->second <= Fault::FailsAfterItsEffect &&
                                                      NAMING_CALLS.contains(m_report->hitCall));
        unsigned certain = 0;
        unsigned moved = 0;
        for (std::size_t i = 0; i < songs.size(); ++i) {
            const Said said = m_report->said[i];
            EXPECT_FALSE(canBeFoundOut && said == Said::Uncertain);
            if (said == Said::Moved || said == Said::NotMoved) {
                certain |= 1U << i;
                EXPECT_EQ(isAnythingAt(startOf(i)), said == Said::NotMoved);
            }
            if (said == Said::Moved)
                moved |= 1U << i;
        }
        cleanUpUnfinishedMoves(moveJournalFolder());
        const Tree now = tree();
        const fs::path journals = moveJournalFolder().toStdString();
        EXPECT_EQ(std::distance(fs::directory_iterator(journals), {}), 1) << "journals but the living one";
        std::vector<Tree> expected;
        for (unsigned combination = 0; combination < 1U << songs.size(); ++combination) {
            if ((combination & certain) == moved)
                expected.push_back(treeAfter(combination));
        }
        EXPECT_TRUE(std::ranges::find(expected, now) != expected.end())
            << "system call " << m_report->hitCall << ", " << difference(now, expected);
    }

    MoveJournal m_living{moveJournalFolder()};
    MoveJournal::Entry m_livingCopy;
    std::optional<DuplicatesFolder> m_target;
    std::vector<Away> m_away;
    Tree m_filesOfOthers;
    std::map<unsigned, Tree> m_trees;
};

TEST_P(FaultInjection, LosesNothingAndTellsTheTruthWhateverASystemCallMeets)
{
    const auto calls = expectTruthDespite({});
    if (!calls)
        GTEST_SKIP() << "no right to stop system calls";
    EXPECT_EQ(m_report->said[0], Said::Moved);
    std::vector<std::pair<int, Fault>> faults;
    for (const Fault fault : FAULTS) {
        for (int call = 0; call < *calls; ++call)
            faults.emplace_back(call, fault);
    }
    std::shuffle(faults.begin(), faults.end(), m_random);
    QElapsedTimer time;
    time.start();
    for (const auto &fault : faults) {
        if (!isThorough() && time.hasExpired(SAMPLE_MS))
            break;
        expectTruthDespite({fault});
    }
    while (isThorough() && !time.hasExpired(1000 * secondsOfPairs())) {
        const auto &first = faults[m_random() % faults.size()];
        const auto &second = faults[m_random() % faults.size()];
        expectTruthDespite({first, second});
    }
}

INSTANTIATE_TEST_SUITE_P(MovesOnOneDisk, FaultInjection,
                         testing::Combine(testing::Values(Disks::Same, Disks::SameWithoutNoReplace,
                                                          Disks::SameWithoutNoReplaceAndLinks),
                                          testing::Values(Operation::Move, Operation::MoveBack,
                                                          Operation::Trash, Operation::Restore)));
INSTANTIATE_TEST_SUITE_P(MovesToAnotherDisk, FaultInjection,
                         testing::Combine(testing::Values(Disks::Other, Disks::OtherWithoutNoReplaceAndLinks),
                                          testing::Values(Operation::Move, Operation::MoveBack,
                                                          Operation::MoveLink, Operation::MoveLinkBack)));

} // namespace
} // namespace sonavo
