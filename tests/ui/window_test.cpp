#include "testing/audio_fixtures.h"
#include "tests/ui/ui_test.h"
#include "ui/shortcuts.h"

#include <QMimeData>
#include <qpa/qplatformdrag.h>
#include <qpa/qwindowsysteminterface.h>

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using ToastType = DuplicateViewModel::ToastType;

const QString ADD_ANYWAY = u"Add Anyway"_s;
const QString ALERT = u"Notification"_s;
const QString BROWSE = u"Browse Files"_s;
const QString LARGE_LIBRARY = u"Large Library Detection"_s;
const QString TO_DARK = u"Switch to the dark theme"_s;
const QString LONG_TOAST =
    u"Could not delete file: "_s + u"a very long reason "_s.repeated(20) + QString(120, u'x');

const QUrl SONG = QUrl::fromLocalFile(QStringLiteral(SONAVO_SAMPLES "/Albums/Cora Lind - Go.mp3"));
const QUrl LINK(u"https://example.org/music"_s);
/// More than are imported without asking.
const QList<QUrl> MANY(10'001, SONG);

/// What file managers offer.
constexpr Qt::DropActions ACTIONS = Qt::MoveAction | Qt::CopyAction;

class WindowTest : public UiTest
{
protected:
    WindowTest()
    {
        alerts.clear();
        QAccessible::installUpdateHandler([](QAccessibleEvent *event) {
            if (event->type() == QAccessible::Alert)
                alerts.append(event->accessibleInterface()->text(QAccessible::Name));
        });
    }
    ~WindowTest() override { QAccessible::installUpdateHandler(nullptr); }

    /// Names of all buttons, sorted.
    [[nodiscard]] QStringList buttons() const
    {
        QStringList names;
        for (const QAccessibleInterface *node : accessibleNodes()) {
            if (node->role() == QAccessible::Button)
                names.append(node->text(QAccessible::Name));
        }
        names.sort();
        return names;
    }
    /// Scans that have begun: each pauses first for a time that no other pause takes.
    [[nodiscard]] int scans() const
    {
        int scans = 0;
        for (std::size_t i = 0; i < pauses->count(); ++i)
            scans += pauses->lengthOf(i) == std::chrono::milliseconds(200) ? 1 : 0;
        return scans;
    }

    void raiseLimitWarning()
    {
        session.importDroppedItems(MANY);
        ASSERT_TRUE(waitForText(LARGE_LIBRARY));
        ASSERT_TRUE(waitFor([this] { return focusedName() == ADD_ANYWAY; }));
    }
    /// Imports more than is allowed at all, by the estimate for crowded folders.
    void raiseAlert()
    {
        const QTemporaryDir folder;
        fillWithSongs(folder.path(), 101);
        session.importDroppedItems(QList<QUrl>(4, QUrl::fromLocalFile(folder.path())));
        ASSERT_TRUE(waitFor([this] { return session.showAlert(); }));
        ASSERT_TRUE(waitForText(session.alertMessage()));
        ASSERT_TRUE(waitFor([this] { return focusedName() == u"OK"; }));
    }

    [[nodiscard]] QPoint corner() const { return {20, window->height() - 20}; }
    /// A point in the drop zone above its text.
    [[nodiscard]] QPoint dropZone() const
    {
        return rectOf(find(QAccessible::StaticText, u"Drag & Drop Music Folder Here"_s)->object()).center() -
               QPoint(0, 20);
    }
    /// Drags into the window and over a point, as a platform plug-in reports it, with the key for a move.
    /// @return what the window would do
    Qt::DropAction drag(const QPoint &point, const QMimeData &data)
    {
        const auto dragTo = [&](const QPoint &to) {
            return QWindowSystemInterface::handleDrag(window, &data, to, ACTIONS, Qt::LeftButton,
                                                      Qt::ShiftModifier);
        };
        QWindowSystemInterface::handleDrag(window, nullptr, {}, Qt::IgnoreAction, {}, {});
        dragTo(corner());
        return dragTo(point).acceptedAction();
    }
    void drop(const QPoint &point, const QList<QUrl> &urls)
    {
        QMimeData data;
        data.setUrls(urls);
        if (drag(point, data) != Qt::IgnoreAction) {
            const auto done = QWindowSystemInterface::handleDrop(window, &data, point, ACTIONS,
                                                                 Qt::LeftButton, Qt::ShiftModifier);
            EXPECT_EQ(done.acceptedAction(), Qt::CopyAction) << "a source deletes what was moved";
        }
        QTest::qWait(1);
    }

    /// Every text is legible and read aloud, and whatever can be used has a name.
    void expectAccessible() const
    {
        QString aloud;
        for (const QAccessibleInterface *node : accessibleNodes()) {
            const QString name = node->text(QAccessible::Name);
            aloud += name + u'\n' + node->text(QAccessible::Description) + u'\n';
            EXPECT_FALSE(name.isEmpty() && node->state().focusable) << node->role() << " has no name";
        }
        for (const QQuickItem *text : textItems()) {
            expectLegible(*text);
            EXPECT_THAT(aloud.toStdString(), HasSubstr(text->property("text").toString().toStdString()));
        }
    }

    static inline QStringList alerts;
};

TEST_F(WindowTest, ShowsAScanFromItsStartAndTheResultsAfterwards)
{
    EXPECT_EQ(window->size(), QSize(900, 636)) << "with the header";
    EXPECT_TRUE(shows(WELCOME));
    EXPECT_THAT(buttons(), ElementsAre(BROWSE, TO_DARK));
    expectAccessible();
    session.startScan(SAMPLES);
    EXPECT_TRUE(waitForText(u"Step 1/4: Discovering audio files..."_s));
    EXPECT_TRUE(goOnUntil([this] { return session.progress() > 0.0; }));
    EXPECT_TRUE(waitFor([this] {
        return shows(session.scanMessage()) &&
               shows(QString::number(static_cast<int>(session.progress() * 100)) + u'%');
    }));
    [[maybe_unused]] const QImage drawn = window->grabWindow(); // lays everything out
    EXPECT_FALSE(shows(WELCOME));
    EXPECT_THAT(buttons(), ElementsAre(CANCEL_SCAN, TO_DARK)) << "there is nothing to work with yet";
    expectAccessible();
    QAccessibleInterface *ring = find(QAccessible::ProgressBar, session.scanMessage());
    ASSERT_TRUE(ring && ring->valueInterface());
    EXPECT_EQ(ring->valueInterface()->currentValue().toDouble(), session.progress());
    EXPECT_EQ(ring->valueInterface()->maximumValue().toDouble(), 1.0);
    for (QQuickItem *text : textItems()) {
        if (text->property("text") != session.scanMessage())
            continue;
        EXPECT_TRUE(text->setProperty("text", u"Step 1/4: Processing audio files (499999 of 500000)"_s));
        expectLegible(*text);
    }
    EXPECT_TRUE(goOnUntil([this] { return !session.isScanning(); }));
    EXPECT_FALSE(shows(WELCOME) || shows(CANCEL_SCAN));
}

TEST_F(WindowTest, GoesBackToWelcomeWhenThereIsNothingToShow)
{
    scan(SAMPLES);
    press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_TRUE(shows(WELCOME));

    session.startScan(SAMPLES);
    EXPECT_TRUE(goOnUntil([this] { return session.progress() > 0.3; }));
    click(CANCEL_SCAN);
    // Everything that the scan might still do.
    for (int turn = 0; turn < 10; ++turn)
        EXPECT_TRUE(goOnUntil([] { return true; }));
    EXPECT_TRUE(shows(WELCOME));

    const QTemporaryDir empty;
    scan({QUrl::fromLocalFile(empty.path())});
    EXPECT_TRUE(waitForText(u"No audio files found in the selected folder."_s));
    EXPECT_TRUE(shows(WELCOME));
}

TEST_F(WindowTest, AsksBeforeALargeImportEveryTime)
{
    raiseLimitWarning();
    expectAccessible();
    EXPECT_NE(find(QAccessible::Dialog, LARGE_LIBRARY), nullptr);
    click(u"Cancel"_s);
    EXPECT_TRUE(waitForNoText(LARGE_LIBRARY));
    EXPECT_TRUE(shows(WELCOME));
    EXPECT_FALSE(session.showLimitWarning());
    EXPECT_THAT(session.pendingImportURLs(), IsEmpty());
    // The next one may come while the sheet fades.
    raiseLimitWarning();
    press(Qt::Key_Escape);
    session.importDroppedItems(MANY);
    EXPECT_TRUE(waitFor([this] { return session.pendingImportURLs().size() == MANY.size(); }));
    QTest::qWait(300);
    EXPECT_TRUE(shows(LARGE_LIBRARY));
    session.clearAll();
    EXPECT_TRUE(waitForNoText(LARGE_LIBRARY));
    EXPECT_EQ(scans(), 0);

    raiseLimitWarning();
    press(Qt::Key_Return);
    EXPECT_TRUE(waitForNoText(LARGE_LIBRARY));
    EXPECT_TRUE(goOnUntil([this] { return session.totalFiles() == MANY.size(); }));
}

TEST_F(WindowTest, AsksBeforeAnotherProgramReplacesTheDuplicates)
{
    scan(SAMPLES);
    const QString title = u"Replace the List?"_s;
    for (const bool isReplaced : {false, true}) {
        EXPECT_TRUE(session.openItems(SAMPLES));
        ASSERT_TRUE(waitForText(title));
        ASSERT_TRUE(waitFor([this] { return focusedName() == u"Cancel"; }));
        EXPECT_TRUE(shows(session.openQuestion()));
        EXPECT_TRUE(session.openItems({SAMPLES[0], SAMPLES[0]}));
        EXPECT_TRUE(waitForText(session.openQuestion())) << "of what was opened last";
        const int duplicates = session.duplicateCount();
        session.excludeFromDuplicates(session.duplicateGroups().first().duplicates.first());
        EXPECT_TRUE(waitFor([&] { return session.duplicateCount() == duplicates - 1; }));
        EXPECT_TRUE(waitForText(session.openQuestion()));
        EXPECT_NE(find(QAccessible::AlertMessage, title), nullptr);
        isReplaced ? click(u"Scan"_s) : press(Qt::Key_Return);
        EXPECT_TRUE(waitForNoText(title));
        EXPECT_EQ(session.isScanning(), isReplaced);
        EXPECT_EQ(session.openQuestion(), QString());
    }
}

TEST_F(WindowTest, ShowsAnAlertUntilItIsDismissed)
{
    for (const bool isPressedByKey : {true, false}) {
        raiseAlert();
        expectAccessible();
        EXPECT_TRUE(waitFor([] { return alerts.removeAll(ALERT) == 1; })) << "announced once";
        isPressedByKey ? press(Qt::Key_Return) : activate(u"OK"_s);
        EXPECT_TRUE(waitForNoText(ALERT));
        EXPECT_FALSE(session.showAlert());
    }
    EXPECT_EQ(focusedName(), BROWSE) << "the focus is back where it was";
}

TEST_F(WindowTest, ShowsTheLatestToastUntilItIsClosed)
{
    for (const bool isClicked : {true, false}) {
        session.showToast(u"One moment"_s, ToastType::Info);
        session.showToast(LONG_TOAST, ToastType::Success);
        EXPECT_TRUE(waitForText(LONG_TOAST));
        // Lays everything out.
        EXPECT_FALSE(window->grabWindow().isNull());
        QAccessibleInterface *toast = find(QAccessible::Notification, LONG_TOAST);
        ASSERT_NE(toast, nullptr);
        EXPECT_LE(rectOf(toast->object()).width(), 500);
        EXPECT_TRUE(waitFor([&] { return rectOf(toast->object()).bottom() < window->height() - 40; }));
        expectAccessible();
        EXPECT_THAT(alerts, ElementsAre(LONG_TOAST)) << "announced once";
        alerts.clear();
        isClicked ? click(u"Close"_s) : activate(u"Close"_s);
        EXPECT_TRUE(waitForNoText(LONG_TOAST));
        EXPECT_FALSE(session.showToast());
    }
    session.showToast(u"One moment"_s, ToastType::Info);
    EXPECT_TRUE(waitFor([] { return alerts.size() == 1; }));
    session.showToast(LONG_TOAST, ToastType::Success);
    EXPECT_TRUE(waitFor([] { return alerts == QStringList{u"One moment"_s, LONG_TOAST}; }));
    session.showToast(LONG_TOAST, ToastType::Success);
    EXPECT_TRUE(waitFor([] { return alerts.size() == 3; })) << "the same again is announced again";
}

TEST_F(WindowTest, SlidesAToastInAndFadesItOutWhereItIs)
{
    session.showToast(u"One moment"_s, ToastType::Info);
    ASSERT_TRUE(waitFor([this] { return find(QAccessible::Notification, u"One moment"_s) != nullptr; }));
    const auto *toast =
        qobject_cast<QQuickItem *>(find(QAccessible::Notification, u"One moment"_s)->object());
    EXPECT_TRUE(waitFor([&] { return toast->property("offset") == 0.0 && toast->opacity() == 1.0; }));
    QTest::qWait(700);
    const double rest = toast->y();
    session.setShowToast(false);
    EXPECT_TRUE(waitFor([&] { return toast->opacity() < 0.5; }));
    EXPECT_EQ(toast->y(), rest);
    EXPECT_TRUE(waitFor([&] { return !toast->isVisible() && toast->y() > rest + 40; }))
        << "from where the next one comes";
}

TEST_F(WindowTest, ImportsOnceWhatIsChosen)
{
    click(BROWSE);
    EXPECT_TRUE(shows(WELCOME)) << "nothing was chosen";
    desktop.choice = SAMPLES;
    activate(BROWSE);
    EXPECT_TRUE(waitForText(CANCEL_SCAN));
    EXPECT_TRUE(waitFor([this] { return scans() == 1; }));
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(waitFor([this] { return scans() == 2; })) << "also during a scan";
}

TEST_F(WindowTest, LightsUpUnderFilesAndImportsThemOnceWhereverTheyAreDropped)
{
    const auto zone = [this] {
        return window->grabWindow().copy(QRect(dropZone() - QPoint(200, 40), QSize(400, 40)));
    };
    const QImage unlit = zone();
    QMimeData text;
    text.setText(u"music"_s);
    EXPECT_EQ(drag(dropZone(), text), Qt::IgnoreAction);
    drop(corner(), {LINK});
    EXPECT_EQ(scans(), 0);
    QMimeData files;
    files.setUrls({LINK, SONG});
    EXPECT_EQ(drag(dropZone(), files), Qt::CopyAction);
    EXPECT_TRUE(waitFor([&] { return zone() != unlit; }));

    drop(dropZone(), {LINK, SONG});
    EXPECT_TRUE(waitForText(CANCEL_SCAN));
    EXPECT_TRUE(waitFor([this] { return scans() == 1; }));
    drop(corner(), SAMPLES);
    EXPECT_TRUE(waitFor([this] { return scans() > 1; })) << "during a scan";
    EXPECT_EQ(scans(), 2) << "the zone is inside of the window, which takes drops itself";
    EXPECT_TRUE(goOnUntil([this] { return !session.isScanning(); }));
    const QUrl cover = QUrl::fromLocalFile(QStringLiteral(SONAVO_SAMPLES "/make.sh"));
    drop(corner(), {SAMPLES[0], cover});
    EXPECT_TRUE(waitFor([this] { return scans() == 3; }));
    EXPECT_TRUE(goOnUntil([this] { return !session.isScanning(); }));
    EXPECT_FALSE(session.showAlert() || session.songCount() < 20) << "what is no audio is passed over";
    // Over results. Each item is imported by itself, and the last one stands.
    const QUrl phone = QUrl::fromLocalFile(QStringLiteral(SONAVO_SAMPLES "/Phone"));
    const QImage results = window->grabWindow();
    EXPECT_EQ(drag(corner(), files), Qt::CopyAction);
    EXPECT_TRUE(waitFor([&] { return window->grabWindow() != results; })) << "the drop can be seen to work";
    drop(corner(), {QUrl::fromLocalFile(QStringLiteral(SONAVO_SAMPLES "/Albums")), phone});
    const QString note = u"Of 2 items that were dropped, only “Phone” is scanned"_s;
    EXPECT_TRUE(waitForText(note));
    EXPECT_TRUE(goOnUntil([this] { return !session.isScanning(); }));
    const int alone = session.songCount();
    EXPECT_EQ(alone, QDir(phone.toLocalFile()).entryList(QDir::Files).size());
    // The toast stays, and the info bar offers the same.
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitFor([this] { return !session.showToast(); }));
    EXPECT_TRUE(shows(note));
    click(u"Scan All 2"_s);
    EXPECT_TRUE(waitForText(CANCEL_SCAN));
    EXPECT_TRUE(goOnUntil([this] { return !session.isScanning(); }));
    EXPECT_GT(session.songCount(), alone);
    EXPECT_TRUE(waitForNoText(u"Scan All 2"_s));
}

TEST_F(WindowTest, RestsDuringAScanWhereTheDesktopWishesLessMotion)
{
    for (const bool isReduced : {false, true}) {
        ThemeManager::shared()->setWishes({.isMotionReduced = isReduced});
        session.startScan(SAMPLES);
        ASSERT_TRUE(waitForText(CANCEL_SCAN));
        QTest::qWait(300); // until what had the focus before has faded, which can take longer
        EXPECT_TRUE(waitFor([&] {
            const QImage before = window->grabWindow();
            QTest::qWait(300);
            return (window->grabWindow() == before) == isReduced;
        }));
        session.clearAll();
        ASSERT_TRUE(waitForText(WELCOME));
    }
}

TEST_F(WindowTest, LetsTheKeyboardReachEveryButtonAndShowsWhereItIs)
{
    const auto pictureOfButton = [this](const QString &name) {
        const QAccessibleInterface *button = find(QAccessible::Button, name);
        return button ? pictureOf(rectOf(button->object()) + QMargins(6, 6, 6, 6)) : QImage();
    };
    const auto tabStops = [&] {
        QStringList stops;
        for (press(Qt::Key_Tab); !stops.contains(focusedName()); press(Qt::Key_Tab)) {
            stops.append(focusedName());
            const QImage focused = pictureOfButton(stops.last());
            press(Qt::Key_Tab);
            EXPECT_NE(pictureOfButton(stops.last()), focused) << stops.last().toStdString();
            press(Qt::Key_Backtab, Qt::ShiftModifier);
        }
        stops.sort();
        return stops;
    };
    EXPECT_EQ(tabStops(), buttons());
    session.startScan(SAMPLES);
    session.showToast(u"A toast"_s, ToastType::Info);
    ASSERT_TRUE(waitForText(u"A toast"_s));
    EXPECT_EQ(tabStops(), buttons());
    raiseLimitWarning();
    EXPECT_THAT(tabStops(), ElementsAre(ADD_ANYWAY, u"Cancel"_s)) << "what lies below is out of reach";
}

TEST_F(WindowTest, HasMenusAThemeButtonAndAnAboutSheet)
{
    QTest::mouseMove(window, rectOf(find(QAccessible::Button, TO_DARK)->object()).center());
    EXPECT_TRUE(waitForText(TO_DARK));
    click(TO_DARK);
    QTest::qWait(700);
    EXPECT_EQ(find(QAccessible::ToolTip, u"Switch to the light theme"_s), nullptr)
        << "until the pointer returns";
    EXPECT_EQ(ThemeManager::shared()->currentTheme(), AppTheme::Dark);
    for (const auto &[menu, entry] : {std::pair(u"File"_s, u"Quit"_s), std::pair(u"Window"_s, u"Minimize"_s),
                                      std::pair(u"Help"_s, u"About Sonavo"_s)}) {
        press(Qt::Key_Escape);
        activate(find(QAccessible::MenuItem, menu));
        ASSERT_TRUE(waitForText(entry));
        expectAccessible();
    }
    activate(find(QAccessible::MenuItem, u"About Sonavo"_s));
    ASSERT_TRUE(waitFor([this] { return focusedName() == u"Close"; }));
    expectAccessible();
    EXPECT_NE(find(QAccessible::Dialog, u"About Sonavo"_s), nullptr);
}

/// The keys of a group as the README lists them.
std::string readmeTable(const std::string &title, Shortcuts::Group group)
{
    std::string table = "| key | " + title + " |\n|---|---|\n";
    for (const QVariant &listed : Shortcuts::actionsOf(group)) {
        const int action = listed.toInt();
        table += "| " + Shortcuts::keysOf(action).join(u", "_s).toStdString() + " | " +
                 Shortcuts::textOf(action).toStdString() + " |\n";
    }
    return table + "\n";
}

TEST_F(WindowTest, ListsItsKeysInTheReadmeAndInAnOverview)
{
    QFile readme(QStringLiteral(SONAVO_SAMPLES "/../README.md"));
    ASSERT_TRUE(readme.open(QIODevice::ReadOnly));
    const std::string text = readme.readAll().toStdString();
    EXPECT_THAT(text, HasSubstr(readmeTable("in the list of results", Shortcuts::ListGroup)));
    EXPECT_THAT(text, HasSubstr(readmeTable("everywhere", Shortcuts::EverywhereGroup)));

    const QString title = u"Keyboard Shortcuts"_s;
    const std::pair<Qt::Key, Qt::KeyboardModifiers> keys[] = {
        {Qt::Key_F1, {}}, {Qt::Key_Question, Qt::ControlModifier}, {Qt::Key_Escape, {}}};
    for (int i = 0; i < 2; ++i) {
        press(keys[i].first, keys[i].second);
        ASSERT_TRUE(waitFor([&] { return find(QAccessible::Dialog, title) && focusedName() == u"Close"; }));
        expectAccessible();
        EXPECT_NE(find(QAccessible::StaticText, u"Ctrl+Shift+F, Find More Duplicates"_s), nullptr);
        EXPECT_TRUE(
            QRect({}, window->size()).contains(rectOf(find(QAccessible::Button, u"Close"_s)->object())));
        press(keys[i + 1].first, keys[i + 1].second);
        EXPECT_TRUE(waitFor([&] { return find(QAccessible::Dialog, title) == nullptr; }));
    }
}

TEST_F(WindowTest, ClosesASheetWithEscapeAndKeepsAllKeysFromWhatLiesBehind)
{
    scan(SAMPLES);
    session.excludeFromDuplicates(session.duplicateGroups().first().duplicates.first());
    ASSERT_TRUE(waitFor([this] { return !session.undoText().isEmpty() && !session.isCleaningUp(); }));
    const int duplicates = session.duplicateCount();
    desktop.choice = desktop.copied = SAMPLES;
    session.showToast(u"Look here"_s, ToastType::Error);
    const std::pair<QString, std::function<void()>> sheets[] = {
        {u"Keyboard Shortcuts"_s, [this] { press(Qt::Key_F1); }},
        {ALERT, [this] { raiseAlert(); }},
        {u"Replace the List?"_s, [this] { EXPECT_TRUE(session.openItems(SAMPLES)); }},
        {LARGE_LIBRARY, [this] { raiseLimitWarning(); }},
    };
    for (const auto &sheet : sheets) {
        SCOPED_TRACE(sheet.first.toStdString());
        sheet.second();
        ASSERT_TRUE(waitFor([&] { return find(QAccessible::Dialog, sheet.first) != nullptr; }));
        for (const Qt::Key key : {Qt::Key_Z, Qt::Key_L, Qt::Key_O, Qt::Key_V, Qt::Key_S, Qt::Key_F})
            press(key, Qt::ControlModifier);
        press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
        press(Qt::Key_Escape);
        ASSERT_TRUE(waitFor([&] { return find(QAccessible::Dialog, sheet.first) == nullptr; }));
        EXPECT_EQ(session.duplicateCount(), duplicates);
        EXPECT_FALSE(session.isScanning() || session.isCleaningUp() || !shows(u"Look here"_s));
    }
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitForNoText(u"Look here"_s));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(waitFor([&] { return session.duplicateCount() == duplicates + 1; }));
}

TEST_F(WindowTest, OpensTheMenuByKey)
{
    press(Qt::Key_F10);
    ASSERT_TRUE(waitForText(u"Add Song"_s));
    press(Qt::Key_Right);
    ASSERT_TRUE(waitForText(u"Scan Copied Files"_s));
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitForNoText(u"Scan Copied Files"_s));
    press(Qt::Key_F10);
    desktop.choice = SAMPLES;
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(waitFor([this] { return scans() == 1; }));
}

TEST_F(WindowTest, ScansFilesThatWereCopiedAndAsksBeforeTheyReplaceDuplicates)
{
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(waitForText(u"No files have been copied"_s));
    desktop.copied = SAMPLES;
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(goOnUntil([this] { return session.duplicateCount() > 0 && !session.isScanning(); }));
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(waitForText(u"Replace the List?"_s));
    EXPECT_EQ(scans(), 1);
}

TEST_F(WindowTest, KeepsToastsFromTheRowThatHasTheKeyboard)
{
    scan(SAMPLES);
    desktop.showsFiles = false;
    session.revealSong(session.songs().first());
    ASSERT_TRUE(waitForText(u"The folder could not be opened"_s));
    QTest::qWait(700);
    const auto *toast = find(QAccessible::Notification, u"The folder could not be opened"_s)->object();
    const QRect below = rectOf(toast);
    int covered = 0;
    press(Qt::Key_Home);
    for (int i = 0; i < 30; ++i) {
        press(Qt::Key_Down);
        QTest::qWait(5);
        const QObject *row = window->activeFocusItem();
        EXPECT_TRUE(waitFor([&] { return !rectOf(row).intersects(rectOf(toast)); }));
        covered += rectOf(row).intersects(below) ? 1 : 0;
    }
    EXPECT_GT(covered, 0) << "no row comes near it";
}

} // namespace
} // namespace sonavo
