#include "session/clean_up.h"
#include "session/clean_up_text.h"
#include "testing/fake_desktop.h"
#include "testing/music_folder.h"
#include "testing/private_home.h"
#include "testing/test_pauses.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

namespace sonavo {
namespace {

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

/// Clean-ups of real files, with a Trash of their own.
class CleanUpTest : public testing::Test
{
protected:
    CleanUpTest()
    {
        std::filesystem::create_directories(home.path("target"));
        desktop.onChooseFolder = [this] { return pathOf("target"); };
    }
    /// Timers of toasts run out.
    void TearDown() override { settle(); }

    void finish() const
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !job.state().isRunning; }, 20'000));
    }
    void trashDuplicates()
    {
        cleanUp.trashDuplicates();
        finish();
    }
    void moveDuplicates()
    {
        cleanUp.moveDuplicatesToFolder();
        finish();
    }
    void deleteSong(const Song &song)
    {
        cleanUp.deleteSong(song);
        finish();
    }
    void undo()
    {
        cleanUp.undo();
        finish();
    }

    [[nodiscard]] QString pathOf(const std::string &name) const
    {
        return QString::fromStdString(home.path(name).string());
    }
    [[nodiscard]] QStringList filesIn(const std::string &folder) const
    {
        return sonavo::filesIn(pathOf(folder));
    }
    /// Makes a file of four bytes and a song of it.
    [[nodiscard]] Song song(const std::string &name) const
    {
        Song song;
        song.id = QUuid::createUuid();
        song.path = QString::fromStdString(home.add("music/" + name).string());
        song.name = QFileInfo(song.path).fileName();
        song.size = 4;
        return song;
    }
    /// Makes groups of copies: "0/0.mp3", "1/0.mp3", ..., "0/1.mp3", ...
    void addGroups(int groupCount, int copies)
    {
        QList<Song> songs;
        QList<DuplicateGroup> groups;
        for (int i = 0; i < groupCount; ++i) {
            QList<Song> members;
            for (int copy = 0; copy < copies; ++copy)
                members += song(std::to_string(copy) + "/" + std::to_string(i) + ".mp3");
            songs += members;
            groups += DuplicateGroup{QUuid::createUuid(), members.takeFirst(), members, 0};
        }
        library.setSongs(songs);
        library.setDuplicateGroups(groups);
    }
    [[nodiscard]] DuplicateGroup group() const { return library.duplicateGroups().value(0); }
    /// The songs, the groups and the music that is on the disk.
    [[nodiscard]] std::vector<std::string> shown() const
    {
        std::vector<std::string> lines;
        for (const Song &song : library.songs())
            lines.push_back(song.path.toStdString());
        for (const DuplicateGroup &group : library.duplicateGroups()) {
            lines.push_back(group.id.toString().toStdString());
            for (const Song &member : membersOf(group))
                lines.push_back("member " + member.path.toStdString());
        }
        QStringList files = filesIn("music");
        files.sort();
        for (const QString &file : files)
            lines.push_back("file " + file.toStdString());
        return lines;
    }
    [[nodiscard]] std::string toast() const
    {
        const Notices::State &state = notices.state();
        const QString type = QVariant::fromValue(state.toastType).toString();
        return (type + u": "_s + state.toastMessage).toStdString();
    }

    const PrivateHome home;
    FakeDesktop desktop;
    std::shared_ptr<InstantPauses> pauses = std::make_shared<InstantPauses>();
    Library library;
    Notices notices{pauses};
    Preview preview{desktop};
    Scan scan{library, notices, pauses};
    FileJob job;
    CleanUp cleanUp{{desktop, library, preview, notices, scan, job}, pauses};
};

TEST_F(CleanUpTest, MovesNothingWithoutDuplicatesOrAFolder)
{
    moveDuplicates();
    EXPECT_EQ(toast(), "Info: No duplicates to move");
    EXPECT_THAT(desktop.takeCalls(), IsEmpty());

    addGroups(1, 2);
    desktop.onChooseFolder = [] { return QString(); };
    moveDuplicates();
    home.add("file");
    desktop.onChooseFolder = [this] { return pathOf("file"); };
    moveDuplicates();
    EXPECT_EQ(toast(), "Error: Failed to create folder: Not a directory");
    const char *dialog = "Select a folder to move duplicate files to / Select Folder";
    EXPECT_THAT(desktop.takeCalls(), ElementsAre(dialog, dialog));
    EXPECT_EQ(library.duplicateGroups().size(), 1);
    EXPECT_EQ(library.songs().size(), 2);
    EXPECT_EQ(filesIn("music").size(), 2);
    EXPECT_EQ(desktop.clipboard, QString());
}

TEST_F(CleanUpTest, StopsThePreviewOfADuplicateButNotOfAnOriginal)
{
    for (const bool isMove : {true, false}) {
        for (const bool isOriginal : {true, false}) {
            addGroups(2, 3);
            preview.toggle(isOriginal ? group().original : library.duplicateGroups()[1].duplicates[1]);
            desktop.onChooseFolder = [this, isOriginal] {
                EXPECT_EQ(preview.state().song.has_value(), isOriginal);
                return QString();
            };
            isMove ? moveDuplicates() : trashDuplicates();
            EXPECT_EQ(preview.state().song.has_value(), isOriginal);
            preview.stop();
        }
    }
}

TEST_F(CleanUpTest, EndsThePreviewOfASongWhoseRowLeavesTheList)
{
    for (const int copies : {2, 3}) {
        addGroups(1, copies);
        preview.toggle(group().duplicates[0]);
        deleteSong(group().original);
        EXPECT_EQ(preview.state().song.has_value(), copies == 3);
        preview.stop();
    }

    addGroups(2, 2);
    const QList<DuplicateGroup> groups = library.duplicateGroups();
    preview.toggle(groups[1].original);
    cleanUp.trashGroup(groups[1].original.id);
    finish();
    EXPECT_FALSE(preview.state().song) << "the other group is shown";

    undo();
    preview.toggle(groups[1].original);
    trashDuplicates();
    EXPECT_TRUE(preview.state().song) << "the summary shows it";
    home.add("music/1/1.mp3");
    undo();
    EXPECT_FALSE(preview.state().song) << "only the other group is back";

    preview.toggle(groups[0].original);
    addGroups(1, 2);
    EXPECT_FALSE(preview.state().song) << "the songs of another scan are shown";
}

TEST_F(CleanUpTest, MovesNothingWhenTheResultChangesWhileTheDialogIsOpen)
{
    auto shortLived =
        std::make_unique<CleanUp>(CleanUp::Session{desktop, library, preview, notices, scan, job}, pauses);
    const std::function<void()> changes[] = {
        [this] { library.clear(); },
        [this] { addGroups(1, 2); },
        [this] { deleteSong(group().duplicates[0]); },
        [&shortLived] { shortLived.reset(); },
    };
    for (const auto &change : changes) {
        addGroups(1, 2);
        desktop.onChooseFolder = [this, &change] {
            change();
            return pathOf("target");
        };
        shortLived->moveDuplicatesToFolder();
        finish();
        EXPECT_TRUE(QDir(pathOf("target")).isEmpty());
    }
    EXPECT_FALSE(shortLived);
    EXPECT_EQ(filesIn("music").size(), 2);
}

TEST_F(CleanUpTest, CleansUpOneGroupAndLeavesTheOthers)
{
    addGroups(3, 3);
    QList<DuplicateGroup> groups = library.duplicateGroups();
    groups[1].original.path = pathOf("music/0/../1/0.mp3");
    library.setDuplicateGroups(groups);
    const std::vector<std::string> before = shown();
    cleanUp.trashGroup(groups[0].duplicates[1].id);
    finish();
    EXPECT_EQ(toast(), "Success: Moved 1 files to Trash • Saved 4 bytes");
    EXPECT_TRUE(QFile::exists(pathOf("music/1/0.mp3"))) << "it is the original of another group";
    EXPECT_EQ(library.duplicateGroups().size(), 2);
    EXPECT_EQ(filesIn("music").size(), 8);
    EXPECT_EQ(cleanUp.state().summary, nullptr) << "the list is still there";
    undo();
    EXPECT_EQ(shown(), before);

    const auto moveGroup = [&](qsizetype group) {
        cleanUp.moveGroupToFolder(groups[group].original.id);
        finish();
        return cleanUp.state().summary;
    };
    EXPECT_EQ(moveGroup(2), nullptr);
    EXPECT_EQ(filesIn("target").size(), 2);
    ASSERT_TRUE(QFile::remove(groups[1].duplicates[0].path));
    const auto failed = moveGroup(1);
    ASSERT_NE(failed, nullptr) << "else it says nowhere what has failed";
    EXPECT_EQ(failed->failures.size(), 1);
    EXPECT_EQ(moveGroup(0)->moved, 2) << "nothing is left to do";
}

TEST_F(CleanUpTest, CopiesThePathOfTheNewFolderAndSaysSoASecondLater)
{
    addGroups(1, 3);
    std::vector<std::chrono::milliseconds> lengths;
    auto toastMeanwhile = toast();
    pauses->onPause = [&](std::chrono::milliseconds length) {
        lengths.push_back(length);
        if (length == 1s)
            toastMeanwhile = toast();
    };
    moveDuplicates();
    EXPECT_EQ(library.songs().size(), 1);
    EXPECT_THAT(library.duplicateGroups(), IsEmpty());
    EXPECT_THAT(filesIn("target"), testing::UnorderedElementsAre(desktop.clipboard + u"/0.mp3"_s,
                                                                 desktop.clipboard + u"/0 (1).mp3"_s));
    EXPECT_TRUE(QTest::qWaitFor([this] { return toast() == "Info: Folder path copied to clipboard"; }));
    EXPECT_EQ(toastMeanwhile, "Success: Moved 2 files to folder \u2022 Saved 8 bytes");
    EXPECT_THAT(lengths, ElementsAre(8s, 1s, 8s)) << "the first and the last are those of the toasts";
    settle();
}

TEST_F(CleanUpTest, KeepsEveryFileThatTheTrashDoesNotTake)
{
    addGroups(1, 3);
    home.add(".local/share/Trash", "a file where the Trash would be");
    deleteSong(group().duplicates[0]);
    EXPECT_THAT(toast(), testing::StartsWith("Error: Could not delete file: "));
    EXPECT_EQ(library.songs().size(), 3);
    EXPECT_EQ(group().duplicates.size(), 2);
    trashDuplicates();
    EXPECT_EQ(toast(), "Error: Moved 0 files to Trash \u2022 2 failed");
    EXPECT_EQ(filesIn("music").size(), 3);
    EXPECT_EQ(library.songs().size(), 1);

    trashDuplicates();
    EXPECT_EQ(toast(), "Success: Moved 0 files to Trash \u2022 Saved Zero KB");
    EXPECT_EQ(library.history().nextText(), QString());

    // They are tried again, and that can be undone; the summary is of both.
    const auto failed = cleanUp.state().summary;
    ASSERT_EQ(failed->failures.size(), 2);
    ASSERT_TRUE(QFile::remove(pathOf(".local/share/Trash")));
    ASSERT_TRUE(QFile::remove(failed->failures[0].song.path));
    ASSERT_TRUE(QDir().mkdir(failed->failures[0].song.path));
    cleanUp.retry();
    finish();
    EXPECT_EQ(toast(), "Success: Moved 1 files to Trash \u2022 Saved 4 bytes");
    EXPECT_EQ(headlineOf(*cleanUp.state().summary), u"1 file moved to the Trash \u2022 4 bytes"_s);
    undo();
    EXPECT_EQ(cleanUp.state().summary, failed);
    EXPECT_EQ(library.songs().size(), 1);
    library.clear();
    EXPECT_EQ(cleanUp.state().summary, nullptr);
}

TEST_F(CleanUpTest, DeletesASongAndRepairsItsGroup)
{
    addGroups(1, 3);
    const Song original = group().original;
    const QList<Song> duplicates = group().duplicates;
    std::vector<std::string> changes;
    const QObject end;
    QObject::connect(&library, &Library::songsChanged, &end, [&] { changes.emplace_back("songs"); });
    QObject::connect(&library, &Library::duplicateGroupsChanged, &end,
                     [&] { changes.emplace_back("groups"); });
    QObject::connect(&notices, &Notices::changed, &end, [&] {
        if (notices.state().isToastShown)
            changes.push_back(toast());
    });
    preview.toggle(original);
    settle();
    deleteSong(*preview.state().song);
    EXPECT_THAT(desktop.takeCalls(),
                ElementsAre(original.path.toStdString() + ": play",
                            original.path.toStdString() + ": volume 0.0",
                            original.path.toStdString() + ": pause",
                            original.path.toStdString() + ": release", testing::EndsWith(": gone")));
    EXPECT_THAT(changes, ElementsAre("songs", "Success: Moved to Trash: 0.mp3", "groups"));
    EXPECT_EQ(group().original, duplicates[0]);
    EXPECT_EQ(library.songs(), duplicates);
    EXPECT_EQ(filesIn(".local/share/Trash/files").size(), 1);

    // Of a song whose file is gone nothing is said, and its group stays as it is.
    settle();
    changes.clear();
    ASSERT_TRUE(QFile::remove(duplicates[1].path));
    deleteSong(duplicates[1]);
    EXPECT_THAT(changes, ElementsAre("songs"));
    EXPECT_EQ(group().duplicates.size(), 1);
}

TEST_F(CleanUpTest, UndoesStepByStepWhatItHasDone)
{
    addGroups(3, 4);
    const std::function<void()> steps[] = {
        [this] { deleteSong(library.duplicateGroups()[1].original); },
        [this] { deleteSong(group().duplicates[1]); },
        [this] { trashDuplicates(); },
        [this] { undo(); },
        [this] { moveDuplicates(); },
    };
    std::vector<std::vector<std::string>> before;
    for (const auto &step : steps) {
        before.push_back(shown());
        step();
    }
    EXPECT_EQ(library.history().nextText(), u"Undo Move to Folder"_s);
    EXPECT_EQ(library.songs().size(), 3);
    for (const std::size_t step : {4U, 1U, 0U}) {
        undo();
        EXPECT_EQ(shown(), before[step]);
        EXPECT_EQ(notices.state().toastAction, QString());
    }
    EXPECT_EQ(toast(), "Success: 1 file put back");
    EXPECT_EQ(library.history().nextText(), QString());
    EXPECT_EQ(cleanUp.state().summary, nullptr);
    EXPECT_TRUE(QDir(pathOf("target")).isEmpty()) << "the folder is removed";
    EXPECT_THAT(filesIn(".local/share/Trash"), IsEmpty());

    // Not even the end of a group that was left with its original is for good.
    addGroups(1, 2);
    const std::vector<std::string> pair = shown();
    deleteSong(group().original);
    trashDuplicates();
    EXPECT_THAT(library.duplicateGroups(), IsEmpty());
    undo();
    EXPECT_EQ(shown(), pair);
    addGroups(3, 4);

    // Of other songs, only the files go back.
    deleteSong(group().duplicates[0]);
    const QList<Song> others = {song("other.mp3")};
    library.setSongs(others);
    undo();
    EXPECT_EQ(library.songs(), others);
    EXPECT_EQ(filesIn("music").size(), 13);
}

TEST_F(CleanUpTest, UndoesOlderStepsAlthoughFilesOfANewerOneCannotGoBack)
{
    addGroups(2, 3);
    const std::vector<std::string> before = shown();
    const Song deleted = group().duplicates[0];
    const Song blocked = group().duplicates[1];
    const Song lost = library.duplicateGroups()[1].duplicates[1];
    deleteSong(deleted);
    trashDuplicates();
    ASSERT_TRUE(QFile(lost.path).open(QIODevice::ReadOnly) == false);
    ASSERT_TRUE(QFile::remove(pathOf(".local/share/Trash/files/1.2.mp3")) ||
                QFile::remove(pathOf(".local/share/Trash/files/1 (2).mp3")));
    home.add("music/2/0.mp3", "another song");

    undo();
    EXPECT_EQ(toast(), "Error: 1 file put back \u2022 2 failed");
    EXPECT_THAT(notices.state().alertMessage.toStdString(),
                testing::AllOf(testing::HasSubstr("2 files could not be put back:"),
                               testing::HasSubstr("\u2022 0.mp3: "), testing::HasSubstr("\u2022 1.mp3: ")));
    EXPECT_EQ(library.duplicateGroups().size(), 1);
    undo();
    EXPECT_EQ(toast(), "Error: 0 files put back \u2022 1 failed");
    undo();
    EXPECT_EQ(toast(), "Success: 1 file put back");
    EXPECT_EQ(group().duplicates, QList{deleted});
    ASSERT_TRUE(QFile::remove(blocked.path));
    undo();
    EXPECT_EQ(library.history().nextText(), QString());
    std::vector<std::string> expected = before;
    std::erase_if(expected, [&](const std::string &line) { return line.ends_with(lost.path.toStdString()); });
    EXPECT_EQ(shown(), expected);
}

TEST_F(CleanUpTest, KeepsTheSongsThatAStoppedJobHasNotReached)
{
    addGroups(200, 6);
    const std::vector<std::string> before = shown();
    cleanUp.trashDuplicates();
    const auto hasBegun = [this] { return filesIn(".local/share/Trash/files").size() > 3; };
    ASSERT_TRUE(QTest::qWaitFor(hasBegun));
    job.requestStop();
    EXPECT_TRUE(job.state().isStopping);
    finish();
    const qsizetype moved = filesIn(".local/share/Trash/files").size();
    EXPECT_EQ(toast(), "Info: Moved " + std::to_string(moved) + " files to Trash \u2022 " +
                           std::to_string(1'000 - moved) + " not moved");
    EXPECT_EQ(library.songs().size(), 1'200 - moved);
    EXPECT_EQ(library.duplicateTotals(),
              (DuplicateTotals{static_cast<int>(1'000 - moved), 4 * (1'000 - moved)}));
    EXPECT_EQ(library.duplicateGroups().size(), 200 - moved / 5);

    undo();
    EXPECT_EQ(shown(), before);
}

} // namespace
} // namespace sonavo
