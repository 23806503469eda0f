#include "testing/music_folder.h"
#include "testing/window_driver.h"

#include <QStyleHints>
#include <QTest>

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const QString PLAY = u"Click to listen and verify this song"_s;
const QString DELETE = u"Delete this song"_s;
const QString MOVE = u"Move Duplicates"_s;
const QString CLEAN_UP = u"Cleanup All"_s;

/// The results screen over real files, with a Trash of its own.
class ResultsTest : public testing::Test, protected WindowDriver
{
protected:
    ResultsTest() { qputenv("XDG_DATA_HOME", QFile::encodeName(m_dataHome.path())); }

    void showGroups(const QList<int> &sizes)
    {
        music.addGroups(sizes);
        session.startScan(music.urls());
        ASSERT_TRUE(goOnUntil([this] { return !session.isScanning(); }));
        ASSERT_TRUE(waitForText(u"Group of %1 songs"_s.arg(sizes[0])));
    }

    /// The rows on screen from top to bottom as they are read aloud, in short: "Group of 2 songs",
    /// "Original 0/0" (the song's and the folder's number).
    [[nodiscard]] std::vector<std::string> rows() const
    {
        // Rows come and go when the window is drawn next.
        [[maybe_unused]] const QImage drawn = window->grabWindow();
        std::vector<std::string> rows;
        for (QAccessibleInterface *node : rowNodes()) {
            const QStringList words = node->text(QAccessible::Name).split(u", "_s);
            rows.push_back(words.size() == 1
                               ? words[0].toStdString()
                               : u"%1 %2/%3"_s.arg(words[0], words[1].mid(6, 1), words.last()).toStdString());
        }
        return rows;
    }
    [[nodiscard]] QRect placeOfRow(std::size_t index) const
    {
        return placeOf(rowNodes().at(index)->object());
    }
    /// The colour of a row beside what is written in it.
    [[nodiscard]] QRgb colorOf(std::size_t index) const
    {
        return window->grabWindow().pixel(placeOfRow(index).center() + QPoint(120, 0));
    }

    void clickRow(std::size_t index, Qt::MouseButton button = Qt::LeftButton) const
    {
        QTest::mouseClick(window, button, {}, placeOfRow(index).center());
    }
    void clickButtonOfRow(const QString &name, std::size_t index) const
    {
        QTest::mouseClick(window, Qt::LeftButton, {}, buttonOfRow(name, index));
    }
    [[nodiscard]] QPoint buttonOfRow(const QString &name, std::size_t index) const
    {
        for (QAccessibleInterface *node : accessibleNodes()) {
            if (node->text(QAccessible::Name) != name)
                continue;
            const QPoint center = placeOf(node->object()).center();
            if (placeOfRow(index).contains(center))
                return center;
        }
        ADD_FAILURE() << "the row has no button " << name.toStdString();
        return {};
    }
    /// Waits until the pointer may delete again.
    static void waitOutDoubleClick()
    {
        QTest::qWait(QGuiApplication::styleHints()->mouseDoubleClickInterval() + 50);
    }

    [[nodiscard]] QString currentRow() const
    {
        for (QAccessibleInterface *node : rowNodes()) {
            if (node->state().selected)
                return node->text(QAccessible::Name);
        }
        return {};
    }
    [[nodiscard]] QStringList trashed() const { return filesIn(m_dataHome.filePath(u"Trash/files"_s)); }
    [[nodiscard]] std::string playing() const
    {
        const auto &song = session.currentlyPlayingSong();
        return song ? song->path.mid(music.path().size() + 1).toStdString() : std::string();
    }

    const MusicFolder music;

private:
    [[nodiscard]] std::vector<QAccessibleInterface *> rowNodes() const
    {
        std::vector<QAccessibleInterface *> nodes = accessibleNodes();
        std::erase_if(nodes, [](QAccessibleInterface *node) {
            return node->role() != QAccessible::ListItem &&
                   !node->text(QAccessible::Name).startsWith(u"Group of"_s);
        });
        QAccessibleInterface *list = find(QAccessible::List, u"Duplicate songs"_s);
        std::erase_if(nodes, [&](QAccessibleInterface *node) {
            return !placeOf(list->object()).contains(placeOf(node->object()).center());
        });
        std::ranges::sort(nodes, {}, [](QAccessibleInterface *node) { return placeOf(node->object()).y(); });
        return nodes;
    }

    QTemporaryDir m_dataHome;
};

TEST_F(ResultsTest, ShowsGroupsAndCounts)
{
    showGroups({2, 3});
    EXPECT_THAT(rows(), ElementsAre("Group of 2 songs", "Original 0/0", "Duplicate 0/1", "Group of 3 songs",
                                    "Original 1/0", "Duplicate 1/1", "Duplicate 1/2"));
    for (const QString &text :
         {u"3 duplicates"_s, u"5 total"_s, u"ORIGINAL   "_s, u"DUPLICATE"_s, u"Artist0 - Title0.flac"_s,
          u"FLAC"_s, u"0:01"_s, u"22 KB"_s, u"File Name"_s,
          u"Found 3 duplicate files \u2022 Use speaker icon to verify before deleting"_s})
        EXPECT_TRUE(shows(text)) << text.toStdString();
    EXPECT_NE(find(QAccessible::ListItem, u"Original, Artist0 - Title0.flac, FLAC, 0:01, 22 KB, 0"_s),
              nullptr);
    for (const QString &name : buttons())
        EXPECT_FALSE(name.isEmpty());
}

TEST_F(ResultsTest, CollapsesGroupsByClickAndByKey)
{
    showGroups({2, 3});
    clickRow(0);
    EXPECT_THAT(rows(), ElementsAre("Group of 2 songs", "Group of 3 songs", "Original 1/0", "Duplicate 1/1",
                                    "Duplicate 1/2"));
    press(Qt::Key_Right);
    EXPECT_EQ(rows().size(), 7U);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Left})
        press(key);
    EXPECT_EQ(rows().size(), 5U);
    press(Qt::Key_Return);
    EXPECT_EQ(rows().size(), 7U);
}

TEST_F(ResultsTest, PlaysOneSongAtATimeAndSeeksOnlyInItsRow)
{
    showGroups({2});
    const QRgb resting = colorOf(1);
    clickRow(1);
    EXPECT_EQ(playing(), "");
    clickButtonOfRow(PLAY, 1);
    EXPECT_EQ(playing(), "0/Artist0 - Title0.flac");
    EXPECT_TRUE(waitFor([this] { return session.player() != nullptr; }));
    EXPECT_TRUE(waitFor([&] { return colorOf(1) != resting; }));
    EXPECT_EQ(colorOf(2), resting);
    desktop.calls.clear();
    clickRow(2);
    EXPECT_THAT(desktop.takeCalls(), IsEmpty());
    QTest::mouseClick(window, Qt::LeftButton, {}, QPoint(880, placeOfRow(1).center().y() - 12));
    EXPECT_THAT(desktop.takeCalls(), ElementsAre(HasSubstr(": seek ")));

    clickButtonOfRow(PLAY, 2);
    EXPECT_EQ(playing(), "1/Artist0 - Title0.flac");
    EXPECT_TRUE(waitFor([&] { return colorOf(1) == resting && colorOf(2) != resting; }));
    clickButtonOfRow(PLAY, 2);
    EXPECT_EQ(playing(), "");
    EXPECT_TRUE(waitFor([&] { return colorOf(2) == resting; }));
}

TEST_F(ResultsTest, DeletesSongsAndLeavesEverythingElseInPlace)
{
    showGroups({3, 2});
    clickButtonOfRow(PLAY, 5);
    clickButtonOfRow(DELETE, 1);
    EXPECT_THAT(rows(), ElementsAre("Group of 2 songs", "Original 0/1", "Duplicate 0/2", "Group of 2 songs",
                                    "Original 1/0", "Duplicate 1/1"));
    EXPECT_TRUE(waitForText(u"Moved to Trash: Artist0 - Title0.flac"_s));
    EXPECT_TRUE(shows(u"2 duplicates"_s));
    waitOutDoubleClick();
    clickButtonOfRow(DELETE, 2);
    EXPECT_THAT(rows(), ElementsAre("Group of 2 songs", "Original 1/0", "Duplicate 1/1"));
    EXPECT_EQ(trashed().size(), 2);
    EXPECT_EQ(playing(), "0/Artist1 - Title1.flac");

    waitOutDoubleClick();
    clickButtonOfRow(DELETE, 1);
    EXPECT_EQ(playing(), "");
    EXPECT_TRUE(waitForText(u"Perfect! No Duplicates Found"_s));
    EXPECT_TRUE(shows(u"2 songs scanned"_s));
    EXPECT_TRUE(shows(u"Drop a folder to scan for duplicate songs"_s));
}

TEST_F(ResultsTest, DeletesOneSongForOnePressHoweverItIsMade)
{
    showGroups({6});
    const QPoint button = buttonOfRow(DELETE, 2);
    QTest::mouseClick(window, Qt::LeftButton, {}, button);
    QTest::mouseDClick(window, Qt::LeftButton, {}, button);
    EXPECT_EQ(trashed().size(), 1);

    clickRow(2);
    QTest::keyPress(window, Qt::Key_Delete);
    for (int repeat = 0; repeat < 5; ++repeat) {
        QKeyEvent again(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(window, &again);
    }
    QTest::keyRelease(window, Qt::Key_Delete);
    EXPECT_EQ(trashed().size(), 2);
    press(Qt::Key_Delete);
    EXPECT_EQ(trashed().size(), 3);
}

TEST_F(ResultsTest, IsUsedByKeyboardAlone)
{
    showGroups({3, 2});
    // Nothing is deleted by what has the focus first.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Return, Qt::Key_Delete, Qt::Key_Down, Qt::Key_Down})
        press(key);
    EXPECT_THAT(trashed(), IsEmpty());
    EXPECT_EQ(rows().size(), 7U);
    EXPECT_THAT(currentRow().toStdString(), HasSubstr("Duplicate, Artist0"));
    press(Qt::Key_Space);
    EXPECT_EQ(playing(), "1/Artist0 - Title0.flac");
    press(Qt::Key_Space);
    EXPECT_EQ(playing(), "");

    // The keyboard goes on to the next row, whether one row went or a whole group.
    press(Qt::Key_Delete);
    EXPECT_TRUE(waitFor([this] { return currentRow().endsWith(u", 2"_s); })) << currentRow().toStdString();
    press(Qt::Key_Delete);
    EXPECT_TRUE(waitFor([this] { return rows().size() == 3; }));
    press(Qt::Key_Down);
    EXPECT_THAT(currentRow().toStdString(), HasSubstr("Artist1"));
}

TEST_F(ResultsTest, KeepsItsPlaceWhenASongIsDeletedFarDown)
{
    showGroups(QList<int>(30, 2));
    clickButtonOfRow(PLAY, 1);
    for (int i = 0; i < 61; ++i)
        press(Qt::Key_Down);
    ASSERT_TRUE(waitFor([this] { return !currentRow().isEmpty(); }));
    EXPECT_EQ(playing(), "0/Artist0 - Title0.flac");
    const std::vector<std::string> before = rows();
    const int top = placeOfRow(0).y();
    ASSERT_GT(before.size(), 6U);
    std::size_t duplicate = 3;
    while (!before[duplicate].starts_with("Dupl"))
        ++duplicate;
    clickButtonOfRow(DELETE, duplicate);
    EXPECT_EQ(trashed().size(), 1);
    EXPECT_EQ(placeOfRow(0).y(), top);
    EXPECT_EQ(rows()[0], before[0]);
    EXPECT_EQ(rows()[1], before[1]);
}

TEST_F(ResultsTest, LeavesTheRowOfASongWhoseFileHadVanished)
{
    showGroups({3});
    ASSERT_TRUE(QFile::remove(music.pathOf(u"1/Artist0 - Title0.flac"_s)));
    clickButtonOfRow(DELETE, 2);
    EXPECT_EQ(rows().size(), 4U);
    EXPECT_TRUE(shows(u"2 total"_s));
    EXPECT_FALSE(session.showToast());
}

TEST_F(ResultsTest, TrashesAllDuplicates)
{
    showGroups({2, 3});
    click(CLEAN_UP);
    EXPECT_TRUE(waitForText(u"Moved 3 files to Trash \u2022 Saved 65 KB"_s));
    EXPECT_TRUE(waitForText(u"Perfect! No Duplicates Found"_s));
    EXPECT_EQ(trashed().size(), 3);
    EXPECT_EQ(filesIn(music.path()).size(), 2);
    // There is nothing left to do it to.
    session.setShowToast(false);
    click(CLEAN_UP);
    click(MOVE);
    EXPECT_FALSE(session.showToast());
    click(u"Clear List"_s);
    EXPECT_TRUE(waitForText(u"Welcome to Sonavo"_s));
}

TEST_F(ResultsTest, MovesAllDuplicates)
{
    const QTemporaryDir target;
    showGroups({2, 3});
    desktop.onChooseFolder = [&target] { return target.path(); };
    click(MOVE);
    EXPECT_TRUE(waitForText(u"Moved 3 files to folder \u2022 Saved 65 KB"_s));
    EXPECT_EQ(filesIn(desktop.clipboard).size(), 3);
    EXPECT_TRUE(goOnUntil([this] { return shows(u"Folder path copied to clipboard"_s); }));
}

TEST_F(ResultsTest, OffersWhatCanBeDoneWithASongInItsMenu)
{
    showGroups({2});
    const auto choose = [this](const QString &entry) {
        EXPECT_TRUE(waitFor([&] { return find(QAccessible::MenuItem, entry) != nullptr; }));
        click(entry, QAccessible::MenuItem);
        EXPECT_TRUE(waitFor([&] { return find(QAccessible::MenuItem, entry) == nullptr; }));
    };
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
    choose(u"Delete"_s);
    EXPECT_EQ(trashed().size(), 1);
}

} // namespace
} // namespace sonavo
