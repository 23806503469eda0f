#include "desktop/file_dialogs.h"
#include "testing/private_home.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

#include <gmock/gmock.h>

#include <functional>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// Uses an open dialog as the user would.
struct DialogDriver
{
    explicit DialogDriver(QFileDialog &openDialog)
        : dialog(openDialog)
    {
        dialog.setViewMode(QFileDialog::List);
    }

    /// Waits until the list is filled.
    void select(const QStringList &selected) const
    {
        view->setFocus();
        view->clearSelection();
        for (const QString &name : selected) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return names().contains(name); })) << name.toStdString();
            const auto row = static_cast<int>(names().indexOf(name));
            view->selectionModel()->setCurrentIndex(view->model()->index(row, 0, view->rootIndex()),
                                                    QItemSelectionModel::Select | QItemSelectionModel::Rows);
        }
    }
    void open(const QString &name) const
    {
        select({name});
        QTest::keyClick(view, Qt::Key_Return);
    }

    [[nodiscard]] QStringList names() const
    {
        QStringList names;
        for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
            names.append(view->model()->index(row, 0, view->rootIndex()).data().toString());
        return names;
    }

    QFileDialog &dialog;
    QAbstractItemView *const view = dialog.findChild<QAbstractItemView *>(u"listView"_s);
    QLineEdit *const nameEdit = dialog.findChild<QLineEdit *>(u"fileNameEdit"_s);
    QPushButton *const acceptButton = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Open);
};

class FileDialogTest : public testing::Test
{
protected:
    FileDialogTest()
    {
        for (const char *name :
             {"b.mp3", "c d.FLAC", "notes.txt", ".hidden.mp3", "Album/x.mp3", "Album/Bonus/y.wav"})
            home.add(std::string("Music/") + name);
    }

    /// Runs `act` in the dialog that is opened next, and cancels the dialog if `act` leaves it open.
    static void whenOpen(const std::function<void(const DialogDriver &)> &act)
    {
        QTimer::singleShot(0, [act] {
            const QPointer dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog && QTest::qWaitForWindowActive(dialog, 10'000));
            act(DialogDriver(*dialog));
            if (dialog && dialog->isVisible())
                dialog->reject();
        });
    }

    std::vector<std::string> chosenMusic()
    {
        std::vector<std::string> paths;
        for (const QUrl &url : runMusicDialog(m_folder))
            paths.push_back(url.toLocalFile().toStdString());
        return paths;
    }
    std::string chosenFolder() { return runFolderDialog(u"Move to"_s, u"Move"_s, m_folder).toStdString(); }

    PrivateHome home;
    const std::string music = home.path("Music").string();

private:
    QString m_folder;
};

TEST_F(FileDialogTest, ReturnsFilesAndFoldersThatAreSelectedTogether)
{
    whenOpen([this](const DialogDriver &driver) {
        EXPECT_EQ(driver.dialog.windowTitle(), u"Add Songs"_s);
        EXPECT_EQ(driver.dialog.directory().path().toStdString(), music);
        driver.select({u"Album"_s});
        EXPECT_EQ(driver.nameEdit->text(), u"Album"_s);
        EXPECT_THAT(driver.names(), UnorderedElementsAre(u"Album"_s, u"b.mp3"_s, u"c d.FLAC"_s));
        driver.select({u"Album"_s, u"c d.FLAC"_s});
        driver.acceptButton->click();
    });
    EXPECT_THAT(chosenMusic(), UnorderedElementsAre(music + "/Album", music + "/c d.FLAC"));
}

TEST_F(FileDialogTest, EntersFoldersAndOpensWhereItWasClosed)
{
    whenOpen([](const DialogDriver &driver) {
        driver.open(u"Album"_s);
        EXPECT_EQ(driver.nameEdit->text(), QString());
        EXPECT_FALSE(driver.acceptButton->isEnabled());
        driver.open(u"Bonus"_s);
    });
    EXPECT_THAT(chosenMusic(), IsEmpty());
    whenOpen([](const DialogDriver &driver) { driver.open(u"y.wav"_s); });
    EXPECT_THAT(chosenMusic(), UnorderedElementsAre(music + "/Album/Bonus/y.wav"));
}

TEST_F(FileDialogTest, TakesTypedNamesOfFilesAndFolders)
{
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {music + "/Album/x.mp3", {music + "/Album/x.mp3"}},
        {R"("Album" "c d.FLAC")", {music + "/Album", music + "/c d.FLAC"}},
        {"..", {}},
        {"b\b", {}},
    };
    for (const auto &[names, chosen] : cases) {
        whenOpen([&names = names](const DialogDriver &driver) {
            driver.nameEdit->setFocus();
            QTest::keyClicks(driver.nameEdit, QString::fromStdString(names) + u'\r');
        });
        EXPECT_THAT(chosenMusic(), testing::UnorderedElementsAreArray(chosen)) << names;
    }
}

TEST_F(FileDialogTest, ReturnsOneFolderWhichCanBeNew)
{
    whenOpen([](const DialogDriver &driver) {
        EXPECT_EQ(driver.dialog.windowTitle(), u"Move to"_s);
        EXPECT_EQ(driver.acceptButton->text(), u"Move"_s);
        driver.select({u"Album"_s});
        EXPECT_EQ(driver.names(), QStringList{u"Album"_s});
        driver.acceptButton->click();
    });
    EXPECT_EQ(chosenFolder(), music + "/Album");
    whenOpen([](const DialogDriver &driver) {
        driver.select({u"Album"_s});
        driver.dialog.findChild<QToolButton *>(u"newFolderButton"_s)->click();
        QTest::keyClicks(QApplication::focusWidget(), u"Doubles\r"_s);
        driver.acceptButton->click();
    });
    EXPECT_EQ(chosenFolder(), music + "/Doubles");
    EXPECT_TRUE(std::filesystem::is_directory(music + "/Doubles"));
}

TEST_F(FileDialogTest, CannotDeleteRenameOrMoveFiles)
{
    const auto tamper = [](const DialogDriver &driver) {
        driver.select({u"Album"_s});
        QTimer::singleShot(200, &driver.dialog, [] {
            if (auto *const question = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                ADD_FAILURE() << "asks whether to delete for good";
                question->reject();
            }
        });
        QTest::keyClick(driver.view, Qt::Key_Delete);
        QTest::qWait(300);
        QTest::keyClick(driver.view, Qt::Key_F2);
        EXPECT_EQ(driver.view->viewport()->findChild<QLineEdit *>(), nullptr);
        EXPECT_EQ(driver.view->dragDropMode(), QAbstractItemView::NoDragDrop);
    };
    whenOpen(tamper);
    EXPECT_THAT(chosenMusic(), IsEmpty());
    whenOpen(tamper);
    EXPECT_EQ(chosenFolder(), "");
}

TEST_F(FileDialogTest, BelongsToTheWindowAndClosesWhenTheApplicationQuits)
{
    QWindow window;
    window.show();
    whenOpen([&window](const DialogDriver &driver) {
        EXPECT_EQ(driver.dialog.windowHandle()->transientParent(), &window);
        EXPECT_EQ(driver.dialog.windowModality(), Qt::ApplicationModal);
        driver.select({u"Album"_s});
        QCoreApplication::quit();
    });
    EXPECT_EQ(chosenFolder(), "");
}

} // namespace
} // namespace sonavo
