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

#include <algorithm>
#include <functional>

namespace sonavo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// The hands of a person at the panel that is open.
class Hands
{
public:
    explicit Hands(QFileDialog &openPanel)
        : panel(openPanel)
    {}

    void click(const char *name, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, modifiers, placeOf(name));
    }
    void doubleClick(const char *name) const
    {
        click(name);
        QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, placeOf(name));
    }
    void type(const QString &text) const
    {
        nameEdit()->setFocus();
        nameEdit()->selectAll();
        QTest::keyClicks(nameEdit(), text);
        QTest::keyClick(nameEdit(), Qt::Key_Return);
    }
    void confirm() const { QTest::mouseClick(confirmation(), Qt::LeftButton); }

    std::string folder() const { return panel.directory().absolutePath().toStdString(); }
    QPushButton *confirmation() const
    {
        return panel.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Open);
    }
    QLineEdit *nameEdit() const { return panel.findChild<QLineEdit *>(QStringLiteral("fileNameEdit")); }
    QAbstractItemView *view() const
    {
        auto *const list = panel.findChild<QAbstractItemView *>(QStringLiteral("listView"));
        return list->isVisible() ? list : panel.findChild<QAbstractItemView *>(QStringLiteral("treeView"));
    }
    QStringList names() const
    {
        QStringList names;
        const QModelIndex root = view()->rootIndex();
        for (int row = 0; row < view()->model()->rowCount(root); ++row)
            names.append(view()->model()->index(row, 0, root).data().toString());
        return names;
    }

    QFileDialog &panel;

private:
    /// The list is filled, and then sorted, by and by. All names here are in the order of their bytes.
    QPoint placeOf(const char *name) const
    {
        const auto isListed = [&] {
            return names().count(QLatin1String(name)) == 1 && std::ranges::is_sorted(names());
        };
        EXPECT_TRUE(QTest::qWaitFor(isListed, 10'000)) << name;
        const auto row = static_cast<int>(names().indexOf(QLatin1String(name)));
        return view()->visualRect(view()->model()->index(row, 0, view()->rootIndex())).center();
    }
};

class PanelTest : public testing::Test
{
protected:
    PanelTest()
    {
        for (const char *name :
             {"b.mp3", "c d.FLAC", "notes.txt", ".hidden.mp3", "Album/x.mp3", "Album/Bonus/y.wav"})
            home.add(std::string("Music/") + name);
    }

    /// Does something as soon as a panel is open, and closes the panel afterwards if it still is.
    void whenOpen(std::function<void(const Hands &)> act)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, act = std::move(act)] {
            auto *const panel = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            if (panel == nullptr)
                return;
            m_timer.disconnect();
            QTimer::singleShot(30'000, panel, [panel] { panel->reject(); });
            const QPointer<QFileDialog> open = panel;
            EXPECT_TRUE(QTest::qWaitForWindowActive(panel, 10'000));
            act(Hands(*panel));
            if (open && open->isVisible())
                open->reject();
        });
        m_timer.start(10);
    }

    std::vector<std::string> chosenMusic()
    {
        std::vector<std::string> paths;
        for (const QUrl &url : runMusicDialog(m_folder)) {
            EXPECT_TRUE(url.isLocalFile());
            paths.push_back(url.toLocalFile().toStdString());
        }
        return paths;
    }
    std::string chosenFolder()
    {
        return runFolderDialog(QStringLiteral("Move to"), QStringLiteral("Move"), m_folder).toStdString();
    }

    PrivateHome home;
    const std::string music = home.path("Music").string();

private:
    QTimer m_timer;
    QString m_folder;
};

TEST_F(PanelTest, ReturnsFilesAndFoldersThatAreSelectedTogether)
{
    whenOpen([this](const Hands &hands) {
        EXPECT_EQ(hands.panel.windowTitle(), QStringLiteral("Add Songs"));
        EXPECT_EQ(hands.folder(), music);
        hands.click("Album");
        EXPECT_EQ(hands.nameEdit()->text(), QStringLiteral("Album"));
        EXPECT_EQ(hands.names(), QStringLiteral("Album,b.mp3,c d.FLAC").split(u','));
        hands.click("c d.FLAC", Qt::ControlModifier);
        hands.confirm();
    });
    EXPECT_THAT(chosenMusic(), UnorderedElementsAre(music + "/Album", music + "/c d.FLAC"));
}

TEST_F(PanelTest, EntersFoldersThatAreOpenedAndStartsWhereItEnded)
{
    whenOpen([this](const Hands &hands) {
        hands.doubleClick("Album");
        EXPECT_EQ(hands.folder(), music + "/Album");
        EXPECT_EQ(hands.nameEdit()->text(), QString());
        EXPECT_FALSE(hands.confirmation()->isEnabled());
        hands.click("Bonus");
        QTest::keyClick(hands.view(), Qt::Key_Return);
        EXPECT_EQ(hands.folder(), music + "/Album/Bonus");
        QTest::keyClick(hands.view(), Qt::Key_Escape);
    });
    EXPECT_THAT(chosenMusic(), IsEmpty());
    whenOpen([](const Hands &hands) { hands.doubleClick("y.wav"); });
    EXPECT_THAT(chosenMusic(), ElementsAre(music + "/Album/Bonus/y.wav"));
}

TEST_F(PanelTest, TakesTypedNames)
{
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {music + "/Album/x.mp3", {music + "/Album/x.mp3"}},
        {music + "/Album", {music + "/Album"}},
        {R"("b.mp3" "c d.FLAC")", {music + "/b.mp3", music + "/c d.FLAC"}},
        {R"("Album" "b.mp3")", {music + "/Album", music + "/b.mp3"}},
        {"..", {}},
        {"b\b", {}},
    };
    for (const auto &[text, chosen] : cases) {
        whenOpen([text = QString::fromStdString(text)](const Hands &hands) { hands.type(text); });
        EXPECT_THAT(chosenMusic(), testing::UnorderedElementsAreArray(chosen)) << text;
    }
}

TEST_F(PanelTest, ReturnsOneFolderWhichCanBeNew)
{
    whenOpen([this](const Hands &hands) {
        EXPECT_EQ(hands.panel.windowTitle(), QStringLiteral("Move to"));
        EXPECT_EQ(hands.confirmation()->text(), QStringLiteral("Move"));
        EXPECT_EQ(hands.folder(), music);
        hands.click("Album");
        EXPECT_EQ(hands.names(), QStringList{QStringLiteral("Album")});
        hands.confirm();
    });
    EXPECT_EQ(chosenFolder(), music + "/Album");

    whenOpen([](const Hands &hands) {
        hands.panel.findChild<QToolButton *>(QStringLiteral("newFolderButton"))->click();
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Doubles"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        hands.confirm();
    });
    EXPECT_EQ(chosenFolder(), music + "/Doubles");
    EXPECT_TRUE(std::filesystem::is_directory(music + "/Doubles"));

    whenOpen([](const Hands &hands) {
        hands.click("Album");
        // Deleting would ask first, which has to be answered from outside.
        bool isAsked = false;
        QTimer::singleShot(300, &hands.panel, [&isAsked] {
            if (auto *const question = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                isAsked = true;
                question->reject();
            }
        });
        hands.view()->setFocus();
        QTest::keyClick(hands.view(), Qt::Key_Delete);
        QTest::qWait(400);
        EXPECT_FALSE(isAsked);
    });
    EXPECT_EQ(chosenFolder(), "");
}

TEST_F(PanelTest, BelongsToTheWindowAndEndsWithTheApplication)
{
    QWindow window;
    const auto quit = [&window](const Hands &hands) {
        hands.click("Album");
        EXPECT_EQ(hands.panel.windowHandle()->transientParent(), &window);
        EXPECT_EQ(hands.panel.windowModality(), Qt::ApplicationModal);
        QCoreApplication::quit();
    };
    window.show();
    whenOpen(quit);
    EXPECT_THAT(chosenMusic(), IsEmpty());
    window.show();
    whenOpen(quit);
    EXPECT_EQ(chosenFolder(), "");

    // Also while the panel says that there is no such file.
    whenOpen([](const Hands &hands) {
        QTimer::singleShot(100, &hands.panel, [] { QCoreApplication::exit(); });
        hands.type(QStringLiteral("missing.mp3"));
    });
    EXPECT_THAT(chosenMusic(), IsEmpty());
}

} // namespace
} // namespace sonavo
