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
#include <sys/mount.h>
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
#ifdef SYS_pipe
    SYS_pipe,
#endif
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

#ifdef SYS_link
constexpr int LINK = SYS_link;
#else
constexpr int LINK = SYS_linkat;
#endif

/// The disk of the songs and the one that they are moved to.
struct Disks
{
    bool areDifferent = false;
    bool canRefuseToReplace = true;
    bool canLink = true;
};

struct Operation
{
    bool usesTrash = false;
    bool isUndo = false;
    bool isOfLinks = false;
};

enum class Fault
{
    FailsWithoutEffect,
    FailsAfterItsEffect,
    FailsAsDoAllThatFollow,
    EndsTheProcess,
    // A disk is unmounted before the call, and is back before the next start.
    TakesTheSongsAway,
    TakesTheTargetAway,
};

constexpr std::array FAULTS{Fault::FailsWithoutEffect,     Fault::FailsAfterItsEffect,
                            Fault::FailsAsDoAllThatFollow, Fault::EndsTheProcess,
                            Fault::TakesTheSongsAway,      Fault::TakesTheTargetAway};

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

/// What is done to a song.
struct Step
{
    fs::path from;
    /// @return the reason if it failed
    std::function<std::optional<QString>(const MoveOptions &)> run;
};

template <typename Result>
std::optional<QString> reasonOf(const Result &result)
{
    const auto *failure = std::get_if<Failure>(&result);
    return failure ? std::optional(failure->reason) : std::nullopt;
}

std::optional<QString> reasonOf(const PutBackResult &result)
{
    return result.state == PutBackResult::State::Back ? std::nullopt : std::optional(result.reason);
}

/// A sanitizer writes to a pipe to learn whether memory can be read.
bool isPipe(quint64 descriptor)
{
    return fs::is_fifo("/proc/self/fd/" + std::to_string(descriptor));
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
        mountDisks();
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
        isThorough() ? std::vector{home.path("disk/music/a.mp3"), home.path("disk/music/link.mp3"),
                                   home.path("disk/music/album/a.mp3")}
                     : std::vector{home.path("disk/music/a.mp3")};
    const Disks disks = std::get<Disks>(GetParam());
    const Operation operation = std::get<Operation>(GetParam());
    const fs::path parent = disks.areDifferent ? other.path("disk/target") : home.path("target");

    [[nodiscard]] fs::path otherDisk() const { return parent.parent_path(); }

    /// The disk that a fault takes away; empty if there is none. Folders that are missing when a file goes
    /// back are made, so the disk of the songs may only be missing before that begins.
    [[nodiscard]] fs::path diskOf(Fault fault) const
    {
        if (!disks.areDifferent || (operation.isUndo && fault == Fault::TakesTheSongsAway))
            return {};
        return fault == Fault::TakesTheTargetAway ? otherDisk() : home.path("disk");
    }

    /// Mounts those of both disks that are not there.
    void mountDisks()
    {
        if (!disks.areDifferent || !PrivateMounts::areAllowed())
            return;
        for (const fs::path &disk : {home.path("disk"), otherDisk()}) {
            const fs::path content = disk.string() + " content";
            fs::create_directories(content);
            const bool isThere = !fs::create_directories(disk) && fs::equivalent(disk, content);
            EXPECT_TRUE(isThere || filesIn(disk).empty()) << "it would be hidden";
            EXPECT_TRUE(isThere || mounts.mount(disk, nullptr, MS_BIND, content));
        }
    }

    /// Makes everything as it is before the operation, with files of others beside it.
    void prepare()
    {
        mountDisks();
        for (const fs::path &root : {home.path("disk/music"), parent, trash})
            fs::remove_all(root);
        m_target = folderIn(parent);
        PrivateHome::addFile(folder() / "a.mp3", "another's");
        for (const char *name : {"files/a.mp3", "info/a.mp3.trashinfo", "info/b.mp3.trashinfo"})
            PrivateHome::addFile(trash / name, "[Trash Info]\nPath=/another's\n");
        const fs::path copy = PrivateHome::addFile(folder() / ".living", "unfinished");
        m_filesOfOthers = tree();
        m_steps.clear();
        for (const fs::path &song : songs) {
            fs::create_directories(song.parent_path());
            const std::string number = std::to_string(m_steps.size());
            if (operation.isOfLinks || m_steps.size() == 1)
                fs::create_symlink(number, song);
            else
                PrivateHome::addFile(song, "song " + number);
            ::setxattr(song.c_str(), "user.rating", "5", 1, 0); // where the disk can store it
            m_steps.push_back(stepWith(toQString(song)));
        }
        if (operation.isUndo)
            std::ranges::reverse(m_steps);
        const QByteArray source((folder() / "a.mp3").c_str());
        m_livingCopy = m_living.record({.kind = Leftover::Kind::Copy,
                                        .path = copy.c_str(),
                                        .finalPath = home.path("finished").c_str(),
                                        .source = source,
                                        .sourceSnapshot = std::get<FileSnapshot>(takeSnapshot(source))});
    }

    [[nodiscard]] fs::path folder() const { return m_target->path().toStdString(); }

    Step stepWith(const QString &song)
    {
        if (!operation.isUndo && operation.usesTrash)
            return {song.toStdString(),
                    [=](const auto &options) { return reasonOf(moveToTrash(song, options)); }};
        if (!operation.isUndo)
            return {song.toStdString(), [this, song](const auto &options) {
                        return reasonOf(m_target->moveHere(song, options));
                    }};
        if (operation.usesTrash) {
            const auto trashed = std::get<TrashedFile>(moveToTrash(song));
            return {trashed.file.path.toStdString(),
                    [=](const auto &options) { return reasonOf(restore(trashed, options)); }};
        }
        const auto moved = std::get<MovedFile>(m_target->moveHere(song));
        return {moved.path.toStdString(),
                [=](const auto &options) { return reasonOf(DuplicatesFolder::moveBack(moved, options)); }};
    }

    [[nodiscard]] static Said run(const Step &step, const MoveOptions &options)
    {
        const std::optional<QString> reason = step.run(options);
        if (!reason)
            return Said::Moved;
        return reason->contains(QStringLiteral("not certain")) ? Said::Uncertain : Said::NotMoved;
    }

    /// In the process that meets the faults.
    int runAll()
    {
        MoveJournal journal(moveJournalFolder());
        MoveOptions options;
        options.journal = &journal;
        for (std::size_t i = 0; i < m_steps.size(); ++i)
            m_report->said[i] = run(m_steps[i], options);
        return 0;
    }

    void answer(const SystemCallListener &listener, const seccomp_notif &call, const Faults &faults) const
    {
        const int number = call.data.nr;
        if ((number == SYS_write || number == SYS_read || number == SYS_close) && isPipe(call.data.args[0]))
            return listener.letThrough(call.id);
        if (!disks.canRefuseToReplace && number == SYS_renameat2)
            return listener.fail(call.id, EINVAL);
        if (!disks.canLink && number == LINK)
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
        switch (last->second) {
        case Fault::EndsTheProcess:
            ::kill(::getpid(), SIGKILL);
            break;
        case Fault::TakesTheSongsAway:
        case Fault::TakesTheTargetAway:
            ::umount2(diskOf(last->second).c_str(), MNT_DETACH);
            return listener.letThrough(call.id);
        case Fault::FailsAfterItsEffect:
            return listener.carryOut(call, lost != NAMING_CALLS.end() ? lost->second : EIO);
        case Fault::FailsWithoutEffect:
        case Fault::FailsAsDoAllThatFollow:
            return listener.fail(call.id, EIO);
        }
    }
    [[nodiscard]] Tree tree() const
    {
        static const QRegularExpression numbers(
            QStringLiteral("( \\([0-9]+\\)|\\.[0-9]+(?=\\.mp3)|\nDeletionDate=.*)"));
        const auto withoutNumbers = [](const std::string &text) {
            return QString::fromStdString(text).remove(numbers).toStdString();
        };
        Tree files;
        for (const fs::path &root : {home.path("disk/music"), parent, trash}) {
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
            EXPECT_TRUE(!moves || run(m_steps[i], {}) == Said::Moved);
        }
        return m_trees[moved] = tree();
    }

    /// Several faults can leave something over, but no content is lost and nothing of others is touched.
    void expectNoLoss()
    {
        cleanUpUnfinishedMoves(moveJournalFolder());
        const Tree now = tree();
        for (std::size_t i = 0; i < songs.size(); ++i) {
            const auto isSong = [i](const auto &file) { return file.second.ends_with(std::to_string(i)); };
            EXPECT_TRUE(std::ranges::any_of(now, isSong)) << songs[i];
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
                EXPECT_EQ(isAnythingAt(m_steps[i].from), said == Said::NotMoved);
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
        EXPECT_THAT(now, testing::AnyOfArray(expected)) << "system call " << m_report->hitCall;
    }

    MoveJournal m_living{moveJournalFolder()};
    MoveJournal::Entry m_livingCopy;
    std::optional<DuplicatesFolder> m_target;
    std::vector<Step> m_steps;
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
    time.restart();
    while (isThorough() && !time.hasExpired(1000 * secondsOfPairs())) {
        const auto &first = faults[m_random() % faults.size()];
        const auto &second = faults[m_random() % faults.size()];
        expectTruthDespite({first, second});
    }
}

constexpr Operation MOVE{};
constexpr Operation UNDO_MOVE{.isUndo = true};
constexpr Disks NEITHER_REFUSE_NOR_LINK{.canRefuseToReplace = false, .canLink = false};
INSTANTIATE_TEST_SUITE_P(OneDisk, FaultInjection,
                         testing::Combine(testing::Values(Disks{}, Disks{.canRefuseToReplace = false},
                                                          NEITHER_REFUSE_NOR_LINK),
                                          testing::Values(MOVE, UNDO_MOVE, Operation{.usesTrash = true},
                                                          Operation{.usesTrash = true, .isUndo = true})));
INSTANTIATE_TEST_SUITE_P(TwoDisks, FaultInjection,
                         testing::Combine(testing::Values(Disks{.areDifferent = true},
                                                          Disks{true, false, false}),
                                          testing::Values(MOVE, UNDO_MOVE, Operation{.isOfLinks = true},
                                                          Operation{.isUndo = true, .isOfLinks = true})));

} // namespace
} // namespace sonavo
