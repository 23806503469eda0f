#include "actions/action_test.h"
#include "actions/move_journal.h"
#include "actions/unfinished_moves.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <thread>

namespace sonavo {
namespace {

using Kind = Leftover::Kind;

/// Does something in a process that ends at once, with its records open.
void killWithin(const std::function<void(MoveJournal &)> &work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        MoveJournal journal(moveJournalFolder());
        work(journal);
        ::_exit(0);
    }
    ::waitpid(child, nullptr, 0);
}

class MoveJournalTest : public ActionTest
{
protected:
    MoveJournalTest() { fs::create_directory(home.path("new")); }

    static FileSnapshot snapshotOf(const fs::path &path)
    {
        return std::get<FileSnapshot>(takeSnapshot(QByteArray(path.c_str())));
    }
    Leftover leftover(Kind kind, const std::string &path, const std::string &content = {}) const
    {
        return {.kind = kind,
                .path = home.path(path).c_str(),
                .finalPath = home.path("new/a.mp3").c_str(),
                .source = song.c_str(),
                .sourceSnapshot = snapshotOf(song),
                .content = content.c_str()};
    }
    /// What is in the home folder after a step that was interrupted, but for the song.
    Files leftAfter(const std::function<void(MoveJournal &)> &work) const
    {
        killWithin(work);
        cleanUpUnfinishedMoves(moveJournalFolder());
        Files files = filesIn(home.path());
        if (contentOf(song) == "song")
            files.erase("music/a.mp3");
        return files;
    }

    const fs::path song = home.add("music/a.mp3");
};

TEST_F(MoveJournalTest, KeepsTheOnlyCopyAndWhatIsNotOurs)
{
    const struct
    {
        std::string name;
        Kind kind;
        std::string content;
        std::function<void()> meanwhile;
    } cases[] = {
        {"the source is gone", Kind::Copy, "song", [&] { fs::remove(song); }},
        {"the source was changed", Kind::Copy, "song", [&] { home.add("music/a.mp3", "tags"); }},
        {"somebody has filled it", Kind::Placeholder, "another", [] {}},
        {"a file of its own", Kind::SecondName, "song", [] {}},
        {"another link", Kind::NewLink, "-> elsewhere", [] {}},
        {"another's note", Kind::Note, "by\n", [] {}},
        {"a line follows", Kind::Line, "head\nto\nanother\n", [] {}},
    };
    for (const auto &[name, kind, content, meanwhile] : cases) {
        home.add("music/a.mp3");
        const auto run = [&, &ofKind = kind, &holds = content, &happens = meanwhile](MoveJournal &journal) {
            Leftover record = leftover(ofKind, "left", "to\n");
            record.offset = ofKind == Kind::Line ? 5 : 0;
            journal.record(record).keep();
            if (ofKind == Kind::NewLink)
                fs::create_symlink(holds.substr(3), home.path("left"));
            else
                home.add("left", holds);
            happens();
        };
        Files left = leftAfter(run);
        left.erase("music/a.mp3");
        EXPECT_EQ(left, (Files{{"left", content}})) << name;
        fs::remove(home.path("left"));
    }
}

TEST_F(MoveJournalTest, PutsBackASourceOnlyWhenItsOldNameIsFree)
{
    Files left = leftAfter([&](MoveJournal &journal) {
        journal.record(leftover(Kind::PrivateName, "music/.private")).keep();
        fs::rename(song, home.path("music/.private"));
        home.add("music/a.mp3", "another");
    });
    EXPECT_EQ(left.extract("music/.private").mapped(), "song");
    EXPECT_EQ(left.extract("music/a.mp3").mapped(), "another");
    EXPECT_EQ(left.size(), 1U) << "the journal waits for the name";
    fs::remove(song);
    cleanUpUnfinishedMoves(moveJournalFolder());
    EXPECT_EQ(filesIn(home.path()), (Files{{"music/a.mp3", "song"}}));
}

TEST_F(MoveJournalTest, LeavesAloneWhatALivingProcessHasRecorded)
{
    MoveJournal living(moveJournalFolder());
    {
        const auto copy = living.record(leftover(Kind::Copy, "new/.copy"));
        home.add("new/.copy", "so");
        const auto note = living.record(leftover(Kind::Note, "note", "note"));
        home.add("note", "note");
        cleanUpUnfinishedMoves(moveJournalFolder());
        EXPECT_TRUE(fs::exists(home.path("new/.copy")) && fs::exists(home.path("note")));
        EXPECT_EQ(fs::status(moveJournalFolder().toStdString()).permissions(), fs::perms::owner_all);
    }
    const fs::path journal = fs::directory_iterator(moveJournalFolder().toStdString())->path();
    EXPECT_EQ(fs::file_size(journal), 0U);
}

TEST_F(MoveJournalTest, RecordsEverythingWhileOthersLookForJournals)
{
    const std::jthread others([](const std::stop_token &stop) {
        while (!stop.stop_requested())
            cleanUpUnfinishedMoves(moveJournalFolder());
    });
    int recorded = 0;
    constexpr int JOURNALS = 8000;
    for (int i = 0; i < JOURNALS; ++i) {
        MoveJournal journal(moveJournalFolder());
        const auto entry = journal.record(leftover(Kind::Copy, "new/.copy"));
        const fs::directory_iterator files(moveJournalFolder().toStdString());
        recorded += std::ranges::any_of(files, [](const auto &file) { return file.file_size() > 0; });
    }
    EXPECT_EQ(recorded, JOURNALS);
}

TEST_F(MoveJournalTest, WaitsForADiskThatIsNotThere)
{
    const auto run = [&](MoveJournal &journal) {
        journal.record(leftover(Kind::Copy, "disk/.copy")).keep();
        home.add("disk/.copy", "so");
        fs::rename(home.path("disk"), home.path("away"));
    };
    EXPECT_EQ(leftAfter(run).size(), 2U);
    fs::rename(home.path("away"), home.path("disk"));
    cleanUpUnfinishedMoves(moveJournalFolder());
    EXPECT_EQ(filesIn(home.path()), (Files{{"music/a.mp3", "song"}}));
}

} // namespace
} // namespace sonavo
