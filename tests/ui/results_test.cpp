#include "generators/small_audio.h"
#include "session/file_job.h"
#include "testing/music_folder.h"
#include "tests/ui/ui_test.h"

#include <QSemaphore>
#include <QStyleHints>
#include <QThreadPool>

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const QString PLAY = u"Click to listen and verify this song"_s;
const QString DELETE = u"Delete this song"_s;
const QString MOVE = u"Move Duplicates"_s;
const QString CLEAN_UP = u"Cleanup All"_s;

/// The results screen over real files, with its own Trash.
class ResultsTest : public UiTest
{
protected:
    ResultsTest() { qputenv("XDG_DATA_HOME", QFile::encodeName(m_dataHome.path())); }

    void showGroups(const QList<int> &sizes)
    {
        music.addGroups(sizes);
        scan(music.urls());
        ASSERT_TRUE(waitForText(u"Group of %1 songs"_s.arg(sizes.last())));
    }

    struct Row
    {
        QAccessibleInterface *node;
        QRect rect;
        /// What it says, in short: "Group of 2 songs", "Original 0/1" (the song's and the folder's number).
        std::string name;
    };
    /// The rows on screen from top to bottom.
    [[nodiscard]] std::vector<Row> rows() const
    {
        // Rows come and go when the window is drawn next.
        [[maybe_unused]] const QImage drawn = window->grabWindow();
        const QRect list = rectOf(find(QAccessible::List, u"Duplicate songs"_s)->object());
        std::vector<Row> rows;
        for (QAccessibleInterface *node : accessibleNodes()) {
            const QStringList words = node->text(QAccessible::Name).split(u", "_s);
            const bool isSong = node->role() == QAccessible::ListItem;
            const QString name =
                isSong ? u"%1 %2/%3"_s.arg(words[0], words[1].mid(6, 1), words.last()) : words[0];
            if (!isSong && !name.startsWith(u"Group of"_s))
                continue;
            const QRect rect = rectOf(node->object());
            if (list.contains(rect.center()))
                rows.push_back({node, rect, name.toStdString()});
        }
        std::ranges::sort(rows, {}, [](const Row &row) { return row.rect.y(); });
        return rows;
    }
    [[nodiscard]] std::vector<std::string> names() const
    {
        std::vector<std::string> names;
        for (const Row &row : rows())
            names.push_back(row.name);
        return names;
    }
    [[nodiscard]] std::string currentName() const
    {
        for (const Row &row : rows()) {
            if (row.node->state().selected)
                return row.name;
        }
        return {};
    }
    void clickRow(std::size_t row, Qt::MouseButton button = Qt::LeftButton) const
    {
        // On the name.
        const QRect rect = rows().at(row).rect;
        QTest::mouseClick(window, button, {}, {rect.left() + 200, rect.center().y()});
    }
    [[nodiscard]] QAccessibleInterface *buttonInRow(const QString &name, std::size_t row) const
    {
        const QRect rect = rows().at(row).rect;
        for (QAccessibleInterface *node : accessibleNodes()) {
            if (node->text(QAccessible::Name) == name && rect.contains(rectOf(node->object()).center()))
                return node;
        }
        throw std::runtime_error("the row has no button " + name.toStdString());
    }
    void clickInRow(const QString &button, std::size_t row) const
    {
        QTest::mouseClick(window, Qt::LeftButton, {}, rectOf(buttonInRow(button, row)->object()).center());
    }
    void type(std::string_view text) const
    {
        for (const char character : text)
            QTest::keyClick(window, character);
    }
    [[nodiscard]] bool waitForMenu(const QString &entry) const
    {
        return waitFor([&] { return find(QAccessible::MenuItem, entry) != nullptr; });
    }
    [[nodiscard]] bool isOffered(const QString &entry) const
    {
        return find(QAccessible::MenuItem, entry)->object()->property("enabled").toBool();
    }
    /// Chooses an entry of the menu that opens, and waits until its job is over.
    void choose(const QString &entry) const
    {
        ASSERT_TRUE(waitForMenu(entry));
        activate(find(QAccessible::MenuItem, entry));
        EXPECT_TRUE(waitFor([&] { return find(QAccessible::MenuItem, entry) == nullptr; }));
        finishJob();
    }
    /// Waits until files that are being moved are where they go.
    void finishJob() const
    {
        ASSERT_TRUE(waitFor([this] { return !session.isCleaningUp(); }));
    }
    /// Deletes by the pointer, once it may delete again after an earlier click.
    void deleteRow(std::size_t row) const
    {
        QTest::qWait(QGuiApplication::styleHints()->mouseDoubleClickInterval() + 50);
        clickInRow(DELETE, row);
        finishJob();
    }

    [[nodiscard]] QStringList trashed() const { return filesIn(m_dataHome.filePath(u"Trash/files"_s)); }
    [[nodiscard]] std::string playing() const
    {
        const auto &song = session.currentlyPlayingSong();
        return song ? song->path.mid(music.path().size() + 1).toStdString() : std::string();
    }

    const MusicFolder music;

private:
    QTemporaryDir m_dataHome;
};

TEST_F(ResultsTest, CanBeUsedByKeyboardAlone)
{
    showGroups({3, 2});
    // Nothing is deleted by what has the focus first.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Return, Qt::Key_Delete, Qt::Key_Down, Qt::Key_Down})
        press(key);
    EXPECT_THAT(trashed(), IsEmpty());
    EXPECT_EQ(currentName(), "Duplicate 0/1");
    press(Qt::Key_Space);
    EXPECT_EQ(playing(), "1/Artist0 - Title0.flac");
    press(Qt::Key_Space);
    EXPECT_EQ(playing(), "");
    press(Qt::Key_Left);
    EXPECT_EQ(rows().size(), 4U);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Left, Qt::Key_Right, Qt::Key_Down, Qt::Key_Down})
        press(key);

    // The current row is the next one, whether one row went or a whole group.
    press(Qt::Key_Delete);
    EXPECT_TRUE(waitFor([this] { return currentName() == "Duplicate 0/2"; })) << currentName();
    finishJob();
    press(Qt::Key_Delete);
    EXPECT_TRUE(waitFor([this] { return rows().size() == 3; }));
    finishJob();
    press(Qt::Key_Down);
    EXPECT_THAT(currentName(), HasSubstr(" 1/"));
}

TEST_F(ResultsTest, ShowsGroupsToAScreenReaderAndDoesWhatItPresses)
{
    showGroups({2, 3});
    EXPECT_THAT(names(), ElementsAre("Group of 2 songs", "Original 0/0", "Duplicate 0/1", "Group of 3 songs",
                                     "Original 1/0", "Duplicate 1/1", "Duplicate 1/2"));
    for (const QString &text :
         {u"3 duplicates"_s, u"5 total"_s, u"ORIGINAL   "_s, u"DUPLICATE"_s, u"Artist0 - Title0.flac"_s,
          u"FLAC"_s, u"0:01"_s, u"22 KB"_s, u"File Name"_s,
          u"Found 3 duplicate files \u2022 Use speaker icon to verify before deleting"_s})
        EXPECT_TRUE(shows(text)) << text.toStdString();
    EXPECT_NE(find(QAccessible::ListItem, u"Original, Artist0 - Title0.flac, FLAC, 0:01, 22 KB, 0"_s),
              nullptr);
    EXPECT_EQ(find(QAccessible::Button, QString()), nullptr) << "every button has a name";

    clickRow(3);
    EXPECT_EQ(rows().size(), 4U);
    activate(rows()[3].node);
    EXPECT_EQ(rows().size(), 7U);
    activate(buttonInRow(PLAY, 1));
    EXPECT_EQ(playing(), "0/Artist0 - Title0.flac");
    activate(buttonInRow(u"Stop listening"_s, 1));
    EXPECT_EQ(playing(), "");
    activate(rows()[1].node);
    EXPECT_EQ(playing(), "0/Artist0 - Title0.flac");
    EXPECT_EQ(buttonInRow(DELETE, 2)->text(QAccessible::Description),
              u"Moves Artist0 - Title0.flac to the Trash");
    activate(buttonInRow(DELETE, 2));
    finishJob();
    EXPECT_THAT(names(), ElementsAre("Group of 3 songs", "Original 1/0", "Duplicate 1/1", "Duplicate 1/2"));
    EXPECT_TRUE(shows(u"2 duplicates"_s));
    activate(CLEAN_UP);
    EXPECT_TRUE(waitForText(u"Moved 2 files to Trash \u2022 Saved 43 KB"_s));
    EXPECT_TRUE(waitForText(u"2 files moved to the Trash \u2022 43 KB"_s));
    EXPECT_TRUE(shows(u"2 songs remain"_s));
    EXPECT_FALSE(shows(u"Perfect! No Duplicates Found"_s));
    EXPECT_EQ(trashed().size(), 3);
    EXPECT_EQ(filesIn(music.path()).size(), 2);
    // There is nothing left to do it to.
    session.setShowToast(false);
    activate(CLEAN_UP);
    activate(MOVE);
    QTest::qWait(50);
    EXPECT_FALSE(session.showToast());
}

TEST_F(ResultsTest, PlaysOneSongAtATimeAndSeeksOnlyInItsRow)
{
    showGroups({2});
    clickInRow(PLAY, 1);
    EXPECT_TRUE(waitFor([this] { return session.player() != nullptr; }));
    desktop.calls.clear();
    clickRow(2);
    EXPECT_THAT(desktop.takeCalls(), IsEmpty());
    const QRect playingRow = rows()[1].rect;
    const QImage lit = pictureOf(playingRow);
    QTest::mouseClick(window, Qt::LeftButton, {}, QPoint(880, playingRow.center().y() - 12));
    EXPECT_THAT(desktop.takeCalls(), ElementsAre(HasSubstr("0/Artist0 - Title0.flac: seek ")));

    clickInRow(PLAY, 2);
    EXPECT_EQ(playing(), "1/Artist0 - Title0.flac");
    EXPECT_TRUE(waitFor([&] { return pictureOf(playingRow) != lit; }));
    clickInRow(u"Stop listening"_s, 2);
    EXPECT_EQ(playing(), "");
}

TEST_F(ResultsTest, ComparesSongsOfAGroupFromTheSameSecond)
{
    for (const QString &name : {u"0/Artist0 - Title0"_s, u"1/Artist0 - Title0"_s, u"0/Artist1 - Title1"_s,
                                u"1/Artist1 - Title1"_s}) {
        const QString path = music.pathOf(name + u".mp3"_s);
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(smallAudio(u"MP3"_s, 100).content) > 0);
    }
    scan(music.urls());
    ASSERT_TRUE(waitForText(u"Group of 2 songs"_s));
    const auto startOf = [this](const std::string &name) {
        EXPECT_TRUE(waitFor([&] { return playing() == name && session.player(); })) << playing();
        const std::vector<std::string> calls = desktop.takeCalls();
        return calls.size() > 1 && calls.end()[-2].ends_with("seek 50") ? 50 : 0;
    };
    clickRow(1);
    press(Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(startOf("0/Artist0 - Title0.mp3"), 0) << "nothing is playing yet";
    session.seekPlayback(50.5, 100);
    press(Qt::Key_Down);
    press(Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(startOf("1/Artist0 - Title0.mp3"), 50);
    QTest::mouseClick(window, Qt::LeftButton, Qt::ShiftModifier,
                      rectOf(buttonInRow(PLAY, 1)->object()).center());
    EXPECT_EQ(startOf("0/Artist0 - Title0.mp3"), 50);
    clickRow(2, Qt::RightButton);
    choose(u"Listen from the Same Second"_s);
    EXPECT_EQ(startOf("1/Artist0 - Title0.mp3"), 50);
    clickRow(4);
    press(Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(startOf("0/Artist1 - Title1.mp3"), 0) << "another song";
    clickRow(1, Qt::RightButton);
    ASSERT_TRUE(waitForMenu(u"Listen from the Same Second"_s));
    EXPECT_FALSE(isOffered(u"Listen from the Same Second"_s));
}

TEST_F(ResultsTest, DeletesSongsAndLeavesEverythingElseInPlace)
{
    showGroups({3, 2});
    clickInRow(PLAY, 5);
    deleteRow(1);
    EXPECT_THAT(names(), ElementsAre("Group of 2 songs", "Original 0/1", "Duplicate 0/2", "Group of 2 songs",
                                     "Original 1/0", "Duplicate 1/1"));
    EXPECT_TRUE(waitForText(u"Moved to Trash: Artist0 - Title0.flac"_s));
    EXPECT_TRUE(shows(u"2 duplicates"_s));
    deleteRow(1);
    EXPECT_TRUE(shows(u"1 duplicate"_s));
    EXPECT_THAT(names(), ElementsAre("Group of 2 songs", "Original 1/0", "Duplicate 1/1"));
    EXPECT_EQ(playing(), "0/Artist1 - Title1.flac");

    deleteRow(1);
    EXPECT_EQ(playing(), "");
    EXPECT_TRUE(waitForText(u"Perfect! No Duplicates Found"_s));
    EXPECT_TRUE(shows(u"2 songs scanned"_s));
    EXPECT_TRUE(shows(u"Drop a folder to scan for duplicate songs"_s));
}

TEST_F(ResultsTest, DeletesOneSongForOnePressHoweverItIsMade)
{
    showGroups({6});
    const QPoint button = rectOf(buttonInRow(DELETE, 2)->object()).center();
    QTest::mouseClick(window, Qt::LeftButton, {}, button);
    finishJob();
    QTest::mouseDClick(window, Qt::LeftButton, {}, button);
    finishJob();
    EXPECT_EQ(trashed().size(), 1);

    clickRow(2);
    QTest::keyPress(window, Qt::Key_Delete);
    finishJob();
    for (int repeat = 0; repeat < 5; ++repeat) {
        QKeyEvent again(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(window, &again);
    }
    // X11 can send repeats as presses of their own, at the time of the release before.
    for (int repeat = 1; repeat < 5; ++repeat) {
        for (const QEvent::Type type : {QEvent::KeyRelease, QEvent::KeyPress}) {
            QKeyEvent again(type, Qt::Key_Delete, Qt::NoModifier);
            again.setTimestamp(static_cast<quint64>(repeat));
            QCoreApplication::sendEvent(window, &again);
        }
        finishJob();
    }
    QTest::keyRelease(window, Qt::Key_Delete);
    finishJob();
    EXPECT_EQ(trashed().size(), 2);
    press(Qt::Key_Delete);
    finishJob();
    EXPECT_EQ(trashed().size(), 3);
}

TEST_F(ResultsTest, KeepsItsPlaceWhenASongIsDeletedFarDown)
{
    showGroups(QList<int>(30, 2));
    clickInRow(PLAY, 1);
    for (int i = 0; i < 61; ++i)
        press(Qt::Key_Down);
    ASSERT_TRUE(waitFor([this] { return !currentName().empty(); }));
    EXPECT_EQ(playing(), "0/Artist0 - Title0.flac");
    const std::vector<std::string> before = names();
    const int top = rows()[0].rect.y();
    ASSERT_GT(before.size(), 6U);
    std::size_t duplicate = 3;
    while (!before[duplicate].starts_with("Dupl"))
        ++duplicate;
    clickInRow(DELETE, duplicate);
    finishJob();
    EXPECT_EQ(trashed().size(), 1);
    EXPECT_EQ(rows()[0].rect.y(), top);
    EXPECT_EQ(names()[0], before[0]);
    EXPECT_EQ(names()[1], before[1]);
}

TEST_F(ResultsTest, MovesDuplicatesToAFolderAndClearsTheList)
{
    const QTemporaryDir target;
    desktop.onChooseFolder = [&target] { return target.path(); };
    showGroups({3});
    click(MOVE);
    EXPECT_TRUE(waitForText(u"Moved 2 files to folder \u2022 Saved 43 KB"_s));
    EXPECT_EQ(filesIn(desktop.clipboard).size(), 2);
    click(u"Clear List"_s);
    EXPECT_TRUE(waitForText(WELCOME));
}

TEST_F(ResultsTest, OffersWhatCanBeDoneWithASongInItsMenu)
{
    showGroups({2});
    const QString path = music.pathOf(u"1/Artist0 - Title0.flac"_s);
    clickRow(2, Qt::RightButton);
    choose(u"Show in Folder"_s);
    EXPECT_THAT(desktop.takeCalls(), ElementsAre("show " + path.toStdString()));
    press(Qt::Key_Menu);
    choose(u"Copy Path"_s);
    EXPECT_EQ(desktop.clipboard, path);
    press(Qt::Key_F10, Qt::ShiftModifier);
    choose(u"Listen"_s);
    EXPECT_EQ(playing(), "1/Artist0 - Title0.flac");
    clickRow(2, Qt::RightButton);
    choose(u"Stop"_s);
    EXPECT_EQ(playing(), "");
    clickRow(2, Qt::RightButton);
    choose(u"Move to Trash"_s);
    EXPECT_EQ(trashed().size(), 1);
}

TEST_F(ResultsTest, LetsTheUserDecideWhichCopiesAreKept)
{
    showGroups({3, 2});
    const std::vector<std::string> before = names();
    clickRow(3);
    press(Qt::Key_K);
    EXPECT_TRUE(waitForText(u"Changed the original in 1 group"_s));
    finishJob();
    EXPECT_EQ(currentName(), "Original 0/2") << "the next key is for the same song";
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(waitFor([&] { return names() == before; }));
    finishJob();

    clickRow(2, Qt::RightButton);
    choose(u"Keep Copies in This Folder"_s);
    EXPECT_TRUE(waitForText(u"Changed the original in 2 groups"_s));
    EXPECT_EQ(names()[1], "Original 0/1");
    EXPECT_EQ(names()[5], "Original 1/1");
    clickRow(6, Qt::RightButton);
    choose(u"Keep This One"_s);
    EXPECT_EQ(names()[5], "Original 1/0");
    clickRow(1, Qt::RightButton);
    ASSERT_TRUE(waitForMenu(u"Keep This One"_s));
    EXPECT_FALSE(isOffered(u"Keep This One"_s)) << "it is kept already";
    choose(u"Keep Lossless Copies"_s);
    EXPECT_TRUE(waitForText(u"No original has changed"_s));
    clickRow(5, Qt::RightButton);
    choose(u"Not a Duplicate"_s);
    EXPECT_TRUE(waitForText(u"Not a duplicate: Artist1 - Title1.flac"_s));
    EXPECT_EQ(names().size(), 4U);
    activate(u"Undo"_s);
    EXPECT_TRUE(waitFor([&] { return names().size() == 7; }));
    finishJob();

    press(Qt::Key_F, Qt::ControlModifier);
    for (const Qt::Key key : {Qt::Key_T, Qt::Key_L, Qt::Key_E, Qt::Key_1})
        press(key);
    EXPECT_TRUE(waitForText(u"Filter hides 2 duplicates"_s));
    clickRow(1, Qt::RightButton);
    ASSERT_TRUE(waitForMenu(u"Not a Duplicate"_s));
    EXPECT_FALSE(isOffered(u"Keep Copies in This Folder"_s) || isOffered(u"Keep Lossless Copies"_s));
    EXPECT_TRUE(isOffered(u"Not a Duplicate"_s));
}

TEST_F(ResultsTest, CleansUpOneGroupFromItsHeader)
{
    const QTemporaryDir target;
    desktop.onChooseFolder = [&target] { return target.path(); };
    showGroups({3, 2, 2});
    press(Qt::Key_F, Qt::ControlModifier);
    for (const Qt::Key key : {Qt::Key_E, Qt::Key_1})
        press(key);
    EXPECT_TRUE(waitForText(u"Filter hides 3 duplicates"_s));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Home, Qt::Key_Menu})
        press(key);
    choose(u"Move Duplicates to Trash"_s);
    ASSERT_EQ(trashed().size(), 1);
    EXPECT_TRUE(trashed()[0].endsWith(u"Artist1 - Title1.flac"));
    click(u"Show all groups"_s);
    EXPECT_TRUE(waitFor([this] { return names().size() == 7; }));
    clickInRow(u"Clean Up This Group"_s, 0);
    choose(u"Move Duplicates to Folder…"_s);
    EXPECT_EQ(filesIn(target.path()).size(), 2);
    EXPECT_THAT(names(), ElementsAre("Group of 2 songs", "Original 2/0", "Duplicate 2/1"));
    QTest::mouseClick(window, Qt::RightButton, {}, rows()[0].rect.center());
    choose(u"Move Duplicates to Trash"_s);
    EXPECT_TRUE(waitForText(u"1 file moved to the Trash \u2022 22 KB"_s));
}

TEST_F(ResultsTest, ShowsHowFarACleanUpIsAndIgnoresWhatWouldChangeTheSession)
{
    showGroups({2, 3});
    clickRow(1);
    const std::vector<std::string> before = names();
    QSemaphore disk;
    fileJobThread().start([&disk] { disk.acquire(); });
    // Until the buttons have faded in.
    QTest::qWait(300);
    const QImage picture = window->grabWindow();
    session.cleanupAll();
    QTest::qWait(60);
    EXPECT_EQ(window->grabWindow(), picture) << "a short one shows nothing";

    const QString message = u"Moving 1 of 3 to the Trash"_s;
    ASSERT_TRUE(waitForText(message));
    EXPECT_EQ(focusedName(), u"Stop");
    QAccessibleInterface *bar = find(QAccessible::ProgressBar, u"Progress"_s);
    ASSERT_TRUE(bar && bar->valueInterface());
    EXPECT_EQ(bar->valueInterface()->currentValue().toDouble(), session.cleanUpFraction());
    clickRow(1);
    for (const Qt::Key key : {Qt::Key_L, Qt::Key_O, Qt::Key_Z})
        press(key, Qt::ControlModifier);
    press(Qt::Key_Delete);
    clickInRow(DELETE, 2);
    click(u"Clear List"_s);
    press(Qt::Key_Space);
    EXPECT_EQ(playing(), "0/Artist0 - Title0.flac") << "listening goes on";
    EXPECT_EQ(names(), before);

    press(Qt::Key_Escape);
    EXPECT_TRUE(waitForText(u"Stopping\u2026"_s));
    disk.release();
    EXPECT_TRUE(waitForNoText(message));
    EXPECT_TRUE(waitForText(u"Moved 0 files to Trash \u2022 3 not moved"_s));
    EXPECT_EQ(names(), before);
    EXPECT_THAT(trashed(), IsEmpty());
    EXPECT_TRUE(waitFor([this] { return focusedName().startsWith(u"Original, Artist0"); }))
        << focusedName().toStdString();

    fileJobThread().start([&disk] { disk.acquire(); });
    session.cleanupAll();
    ASSERT_TRUE(waitForText(message));
    disk.release();
    EXPECT_TRUE(waitForText(u"3 files moved to the Trash \u2022 65 KB"_s));
    EXPECT_TRUE(waitFor([this] { return focusedName() != u"Stop"; }));
}

TEST_F(ResultsTest, TakesBackByToastKeyAndSummaryWhatItHasDone)
{
    showGroups({2, 3});
    const std::vector<std::string> before = names();
    const auto isAsBefore = [&] { return !session.isCleaningUp() && names() == before; };
    press(Qt::Key_Z, Qt::ControlModifier);
    QTest::qWait(20);
    EXPECT_FALSE(session.isCleaningUp() || session.showToast()) << "nothing to undo";

    deleteRow(1);
    ASSERT_TRUE(waitFor([this] { return find(QAccessible::Button, u"Undo"_s) != nullptr; }));
    for (int stops = 0; stops < 20 && focusedName() != u"Undo"; ++stops)
        press(Qt::Key_Tab);
    const auto endToast = [this] {
        endPauses(std::chrono::seconds(8));
        QTest::qWait(20);
    };
    endToast();
    EXPECT_TRUE(session.showToast()) << "the focus is on it";
    press(Qt::Key_Return);
    EXPECT_TRUE(waitFor(isAsBefore));
    EXPECT_THAT(trashed(), IsEmpty());
    EXPECT_TRUE(waitFor([this] { return focusedName() == u"Group of 3 songs"; }))
        << focusedName().toStdString();

    click(CLEAN_UP);
    EXPECT_TRUE(waitForText(u"3 files moved to the Trash \u2022 65 KB"_s));
    finishJob();
    EXPECT_TRUE(waitFor([this] { return focusedName().startsWith(u"3 files moved"); }));
    press(Qt::Key_Tab);
    EXPECT_EQ(focusedName(), u"Undo Move to Trash");
    EXPECT_EQ(find(QAccessible::Button, CLEAN_UP)->text(QAccessible::Description), u"No duplicates to move");
    // Until the toast stands still.
    QTest::qWait(700);
    QTest::mouseMove(window, rectOf(find(QAccessible::Button, u"Undo"_s)->object()).center());
    QTest::qWait(20);
    endToast();
    EXPECT_TRUE(session.showToast()) << "the pointer is on it";
    QTest::mouseMove(window, QPoint(10, 200));
    EXPECT_TRUE(waitFor([this] { return !session.showToast(); }));
    click(u"Undo Move to Trash"_s);
    EXPECT_TRUE(waitFor(isAsBefore));

    press(Qt::Key_Delete);
    clickRow(1);
    press(Qt::Key_Delete);
    finishJob();
    EXPECT_EQ(trashed().size(), 1);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(waitFor(isAsBefore)) << "while the list has the focus";
}

TEST_F(ResultsTest, FindsMoreAndMarksWhatOnlyThatHasFound)
{
    scan(SAMPLES);
    const QString firstHint = u"Found 7 duplicate files \u2022 Use speaker icon to verify before deleting"_s;
    ASSERT_TRUE(waitForText(firstHint));
    const std::vector<std::string> before = names();
    press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(waitForText(u"Found 8 duplicate files \u2022 1 more duplicate found \u2022 "
                            "Use speaker icon to verify before deleting"_s));
    EXPECT_TRUE(waitForText(u"1 more duplicate found"_s));
    const QString reason =
        u"Found only by comparing every song with every other. Listen before you delete it."_s;
    EXPECT_EQ(rows()[2].node->text(QAccessible::Name),
              u"Duplicate, Ada Finch - Glass Road.flac, FLAC, 0:01, 22 KB, Albums, "_s + reason);
    EXPECT_FALSE(rows()[1].node->text(QAccessible::Name).contains(reason));
    for (const int x : {70, 71})
        QTest::mouseMove(window, QPoint(x, rows()[2].rect.center().y()));
    EXPECT_TRUE(waitFor([&] { return find(QAccessible::ToolTip, reason) != nullptr; }));

    for (int stops = 0; stops < 20 && focusedName() != u"Return to First Result"; ++stops)
        press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_TRUE(waitForText(firstHint));
    EXPECT_EQ(names(), before);
    EXPECT_EQ(focusedName(), u"Find More Duplicates");

    scan({QUrl::fromLocalFile(QStringLiteral(SONAVO_SAMPLES "/Laptop"))});
    ASSERT_TRUE(waitForText(u"Perfect! No Duplicates Found"_s));
    click(u"Find More Duplicates"_s);
    EXPECT_TRUE(waitForText(u"No more duplicates found"_s));
    EXPECT_TRUE(shows(u"Perfect! No Duplicates Found"_s));
}

TEST_F(ResultsTest, FiltersAndSortsWhatIsShownAndNothingElse)
{
    showGroups({2, 3, 2});
    const std::vector<std::string> before = names();
    press(Qt::Key_F, Qt::ControlModifier);
    type("tITLE1 arti");
    const auto shows2nd = [this] { return names().size() == 4 && names()[1] == "Original 1/0"; };
    EXPECT_TRUE(waitFor(shows2nd));
    EXPECT_TRUE(waitForText(u"Filter hides 2 duplicates"_s));
    activate(CLEAN_UP);
    activate(MOVE);
    // In the field they only edit.
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Left, Qt::Key_Delete, Qt::Key_Space, Qt::Key_K})
        press(key);
    press(Qt::Key_Z, Qt::ControlModifier);
    press(Qt::Key_Z, Qt::ControlModifier);
    QTest::qWait(50);
    EXPECT_THAT(trashed(), IsEmpty());
    EXPECT_FALSE(session.isCleaningUp() || session.currentlyPlayingSong());
    type("x");
    EXPECT_TRUE(waitForText(u"No group matches the filter"_s));
    press(Qt::Key_Return);
    for (const Qt::Key key : {Qt::Key_K, Qt::Key_Delete, Qt::Key_Space, Qt::Key_Menu, Qt::Key_Left})
        press(key); // there is no row that they could mean
    press(Qt::Key_F, Qt::ControlModifier);
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return names() == before; }));
    EXPECT_TRUE(waitForNoText(u"Filter hides 4 duplicates"_s));
    EXPECT_EQ(focusedName(), u"Group of 2 songs") << "the list has the keyboard again";

    activate(u"Sort: As Found"_s);
    ASSERT_TRUE(waitFor([this] { return find(QAccessible::MenuItem, u"Space Freed"_s) != nullptr; }));
    activate(find(QAccessible::MenuItem, u"Space Freed"_s));
    EXPECT_TRUE(waitFor([this] { return names()[0] == "Group of 3 songs"; }));
    // It stays in order when the group is smaller.
    deleteRow(1);
    EXPECT_TRUE(waitFor([this] { return names()[1] == "Original 0/0"; }));
    session.undo();
    EXPECT_TRUE(waitFor([this] { return names()[0] == "Group of 3 songs"; }));
}

TEST_F(ResultsTest, ShowsTheDetailsOfNoOtherRowThanTheOneUnderThePointer)
{
    showGroups({2, 2, 2, 2, 2, 2, 2});
    const auto hover = [this](std::size_t row) {
        const QRect rect = rows().at(row).rect;
        QTest::mouseMove(window, {rect.left() + 400, rect.center().y()});
    };
    const auto toolTips = [this] {
        std::vector<std::string> texts;
        for (const QAccessibleInterface *node : accessibleNodes()) {
            if (node->role() == QAccessible::ToolTip)
                texts.push_back(node->text(QAccessible::Name).toStdString());
        }
        return texts;
    };
    const auto isDetails = HasSubstr("/0/Artist5 - Title5.flac");
    // The second time, items of rows that were there before are used for others.
    for (int i = 0; i < 2; ++i) {
        hover(1);
        press(Qt::Key_F, Qt::ControlModifier);
        type("5");
        ASSERT_TRUE(waitFor([&] { return names().size() == 3; }));
        hover(0);
        hover(1);
        ASSERT_TRUE(waitFor([&] { return testing::Value(toolTips(), testing::Contains(isDetails)); }));
        EXPECT_THAT(toolTips(), ElementsAre(isDetails));
        hover(2);
        press(Qt::Key_Escape);
        ASSERT_TRUE(waitFor([&] { return names().size() > 8; }));
    }
    hover(1);
    ASSERT_TRUE(waitFor([&] { return !toolTips().empty(); }));
    press(Qt::Key_F10);
    EXPECT_TRUE(waitFor([&] { return toolTips().empty(); })) << "it would cover the menu";
}

TEST_F(ResultsTest, NamesTheFilesThatACleanUpCouldNotMove)
{
    showGroups({2, 2});
    clickInRow(PLAY, 4);
    const QString original = music.pathOf(u"0/Artist0 - Title0.flac"_s);
    const QString duplicate = music.pathOf(u"1/Artist0 - Title0.flac"_s);
    ASSERT_TRUE(QFile::rename(original, original + u".away"_s));
    EXPECT_EQ(find(QAccessible::Button, CLEAN_UP)->text(QAccessible::Description),
              u"Move 2 duplicates (43 KB) to the Trash");
    click(CLEAN_UP);
    EXPECT_TRUE(waitForText(u"1 file could not be moved"_s));
    EXPECT_TRUE(shows(u"1 file moved to the Trash \u2022 22 KB"_s));
    EXPECT_TRUE(focusedName().startsWith(duplicate)) << focusedName().toStdString();
    desktop.calls.clear();
    press(Qt::Key_Return);
    activate(u"Show in Folder"_s);
    EXPECT_THAT(desktop.takeCalls(),
                ElementsAre("show " + duplicate.toStdString(), "show " + duplicate.toStdString()));
    EXPECT_NE(find(QAccessible::StaticText, u"Playing Artist1 - Title1.flac"_s), nullptr);
    click(u"Stop"_s);
    EXPECT_EQ(playing(), "");

    ASSERT_TRUE(QFile::rename(original + u".away"_s, original));
    click(u"Try Again"_s);
    EXPECT_TRUE(waitForText(u"2 files moved to the Trash \u2022 43 KB"_s));
    EXPECT_FALSE(shows(u"1 file could not be moved"_s));
    EXPECT_EQ(trashed().size(), 2);
}

} // namespace
} // namespace sonavo
