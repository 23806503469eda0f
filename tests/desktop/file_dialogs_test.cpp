#include "desktop/file_dialogs.h"
#include "testing/private_home.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
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
using testing::UnorderedElementsAre;

/// Uses an open dialog as the user would.
struct DialogDriver
{
    QStringList names() const
    {
        QStringList names;
        for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
            names.append(view->model()->index(row, 0, view->rootIndex()).data().toString());
        return names;
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
    void type(const QString &text) const
    {
        nameEdit->setFocus();
        nameEdit->selectAll();
        QTest::keyClicks(nameEdit, text + u'\r');
    }
    void accept() const { QTest::mouseClick(acceptButton, Qt::LeftButton); }

    QFileDialog &dialog;
    QAbstractItemView *view = dialog.findChild<QAbstractItemView *>(u"listView"_s);
    QLineEdit *nameEdit = dialog.findChild<QLineEdit *>(u"fileNameEdit"_s);
    QPushButton *acceptButton = dialog.findChild<QDialogButtonBox *>()->button(
        dialog.acceptMode() == QFileDialog::AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open);
};

class FileDialogTest : public testing::Test
{
protected:
    FileDialogTest()
    {
        for (const char *name : {"b.mp3", "c d.FLAC", "notes.txt", ".hidden.mp3", "Album/Bonus/y.wav"})
            home.add(std::string("Music/") + name);
    }

    /// Runs `act` in the dialog that is opened next, and cancels the dialog if `act` leaves it open.
    static void whenOpen(const std::function<void(const DialogDriver &)> &act)
    {
        QTimer::singleShot(0, [act] {
            const QPointer dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog && QTest::qWaitForWindowActive(dialog, 10'000));
            dialog->setViewMode(QFileDialog::List);
            act(DialogDriver{*dialog});
            if (dialog && dialog->isVisible())
                dialog->reject();
        });
    }
    std::string chosenFolder() { return runFolderDialog(u"Move to"_s, u"Move"_s, folder).toStdString(); }

    PrivateHome home;
    const std::string music = home.path("Music").string();
    QString folder;
};

TEST_F(FileDialogTest, ReturnsFilesAndFoldersThatAreSelectedTogether)
{
    whenOpen([this](const DialogDriver &driver) {
        EXPECT_EQ(driver.dialog.directory().path().toStdString(), music);
        driver.select({u"Album"_s});
        EXPECT_EQ(driver.nameEdit->text(), u"Album"_s);
        EXPECT_THAT(driver.names(), UnorderedElementsAre(u"Album"_s, u"b.mp3"_s, u"c d.FLAC"_s));
        driver.select({u"Album"_s, u"c d.FLAC"_s});
        driver.accept();
    });
    EXPECT_THAT(QUrl::toStringList(runMusicDialog(folder)),
                UnorderedElementsAre(u"file://%1/Album"_s.arg(QString::fromStdString(music)),
                                     u"file://%1/c d.FLAC"_s.arg(QString::fromStdString(music))));
}

TEST_F(FileDialogTest, EntersFoldersOpensWhereItWasClosedAndTakesTypedNames)
{
    whenOpen([](const DialogDriver &driver) {
        driver.open(u"Album"_s);
        EXPECT_EQ(driver.nameEdit->text(), QString());
        EXPECT_FALSE(driver.acceptButton->isEnabled());
        driver.open(u"Bonus"_s);
        driver.type(u".."_s);
        EXPECT_EQ(driver.dialog.directory().dirName(), u"Album"_s);
    });
    EXPECT_TRUE(runMusicDialog(folder).isEmpty());
    whenOpen([](const DialogDriver &driver) {
        driver.type(u"b\b"_s); // nothing is chosen without a name
        driver.type(u"Bonus/y.wav"_s);
    });
    EXPECT_EQ(runMusicDialog(folder),
              QList{QUrl::fromLocalFile(QString::fromStdString(music + "/Album/Bonus/y.wav"))});
}

TEST_F(FileDialogTest, ReturnsOneFolderWhichCanBeNew)
{
    QWindow window;
    window.show();
    whenOpen([&window](const DialogDriver &driver) {
        EXPECT_EQ(driver.dialog.windowHandle()->transientParent(), &window);
        EXPECT_EQ(driver.dialog.windowTitle(), u"Move to"_s);
        EXPECT_EQ(driver.acceptButton->text(), u"Move"_s);
        driver.select({u"Album"_s});
        EXPECT_EQ(driver.names(), QStringList{u"Album"_s});
        driver.accept();
    });
    EXPECT_EQ(chosenFolder(), music + "/Album");
    whenOpen([](const DialogDriver &driver) {
        driver.select({u"Album"_s});
        driver.dialog.findChild<QToolButton *>(u"newFolderButton"_s)->click();
        QTest::keyClicks(QApplication::focusWidget(), u"Doubles\r"_s);
        driver.accept();
    });
    EXPECT_EQ(chosenFolder(), music + "/Doubles");
    EXPECT_TRUE(std::filesystem::is_directory(music + "/Doubles"));
}

TEST_F(FileDialogTest, GivesAReportTheExtensionOfItsKindAndAsksBeforeOneIsReplaced)
{
    home.add("Documents/b.mp3.csv");
    folder = QString::fromStdString(home.path("Documents").string());
    const auto save = [this](const std::function<void(const DialogDriver &)> &act) {
        whenOpen(act);
        const QString path = runReportDialog(u"Duplicates 1.2"_s, folder);
        return path.sliced(path.lastIndexOf(u'/') + 1).toStdString();
    };
    EXPECT_EQ(save([](const DialogDriver &driver) { driver.accept(); }), "Duplicates 1.2.csv");
    const auto chooseJson = [](const DialogDriver &driver) {
        auto *const kinds = driver.dialog.findChild<QComboBox *>(u"fileTypeCombo"_s);
        kinds->setCurrentIndex(1);
        Q_EMIT kinds->activated(1);
    };
    EXPECT_EQ(save([&](const DialogDriver &driver) {
                  chooseJson(driver);
                  EXPECT_EQ(driver.nameEdit->text(), u"Duplicates 1.2.json"_s);
                  driver.type(u"b.mp3"_s);
              }),
              "b.mp3.json");
    EXPECT_EQ(save([&](const DialogDriver &driver) {
                  chooseJson(driver);
                  driver.type(u"b.CSV"_s);
              }),
              "b.CSV");
    int questions = 0;
    const auto answerNo = [&questions] {
        if (auto *const question = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            ++questions;
            question->reject();
        }
    };
    EXPECT_EQ(save([&](const DialogDriver &driver) {
                  QTimer::singleShot(200, &driver.dialog, answerNo);
                  driver.type(u"b.mp3"_s);
              }),
              "");
    EXPECT_EQ(questions, 1);
}

TEST_F(FileDialogTest, CannotDeleteRenameOrMoveFiles)
{
    whenOpen([](const DialogDriver &driver) {
        driver.select({u"Album"_s});
        QTimer::singleShot(200, &driver.dialog, [] {
            if (auto *const question = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                ADD_FAILURE() << "asks whether to delete for good";
                question->reject();
            }
        });
        QTest::keyClick(driver.view, Qt::Key_Delete);
        QTest::keyClick(driver.view, Qt::Key_F2);
        EXPECT_EQ(driver.view->viewport()->findChild<QLineEdit *>(), nullptr);
        EXPECT_EQ(driver.view->dragDropMode(), QAbstractItemView::NoDragDrop);
    });
    EXPECT_EQ(chosenFolder(), "");
}

} // namespace
} // namespace sonavo
