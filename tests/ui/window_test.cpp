#include "ui/window_driver.h"

#include <QDir>
#include <QTest>

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ToastType = DuplicateViewModel::ToastType;

class WindowTest : public testing::Test, protected WindowDriver
{};

TEST_F(WindowTest, ShowsAScanFromItsStartAndTheResultsAfterwards)
{
    EXPECT_TRUE(isWelcome());
    EXPECT_THAT(buttons(), ElementsAre(BROWSE, TO_DARK));
    session.startScan(SAMPLES);
    EXPECT_TRUE(isProgress());
    EXPECT_TRUE(waitForText(u"Step 1/4: Discovering audio files..."_s));
    EXPECT_TRUE(shows(u"0%"_s));
    EXPECT_TRUE(goOnUntil([this] { return session.progress() > 0.0; }));
    EXPECT_TRUE(shows(QString::number(static_cast<int>(session.progress() * 100)) + u'%'));
    EXPECT_TRUE(shows(session.scanMessage()));
    EXPECT_THAT(buttons(), ElementsAre(CANCEL_SCAN, TO_DARK)) << "there is nothing to work with yet";
    EXPECT_TRUE(goOnUntil([this] { return !session.isScanning(); }));
    EXPECT_TRUE(isResults());

    session.startScan(SAMPLES);
    EXPECT_TRUE(isProgress());
}

TEST_F(WindowTest, GoesBackToWelcomeWhenTheSessionIsEmptied)
{
    scanSamples();
    press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(session.songCount(), 0);
    EXPECT_TRUE(isWelcome());

    scanSamples();
    // The toolkit gives the entries of a menu bar its own role.
    click(u"File"_s, QAccessible::MenuBar);
    ASSERT_TRUE(waitForText(u"Clear List"_s));
    click(u"Clear List"_s, QAccessible::MenuItem);
    EXPECT_EQ(session.songCount(), 0);
    EXPECT_TRUE(isWelcome());
}

TEST_F(WindowTest, GoesBackToWelcomeAfterAScanWithoutResults)
{
    session.startScan(SAMPLES);
    EXPECT_TRUE(goOnUntil([this] { return session.progress() > 0.3; }));
    click(CANCEL_SCAN);
    EXPECT_TRUE(isWelcome());
    // Everything that the scan might still do.
    for (int turn = 0; turn < 10; ++turn)
        EXPECT_TRUE(goOnUntil([] { return true; }));
    EXPECT_TRUE(isWelcome());
    EXPECT_EQ(session.songCount(), 0);
    EXPECT_FALSE(session.isScanning());
    EXPECT_FALSE(session.showAlert());

    const QTemporaryDir empty;
    session.startScan({QUrl::fromLocalFile(empty.path())});
    EXPECT_TRUE(isProgress());
    EXPECT_TRUE(goOnUntil([this] { return shows(ALERT); }));
    EXPECT_TRUE(shows(u"No audio files found in the selected folder."_s));
    EXPECT_TRUE(isWelcome());
}

TEST_F(WindowTest, ImportsWhatIsChosen)
{
    click(BROWSE);
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(isWelcome());
    EXPECT_EQ(scans(), 0);

    desktop.choice = SAMPLES;
    click(BROWSE);
    // Also during a scan and over the results of one.
    for (std::size_t count = 1; count <= 3; ++count) {
        EXPECT_TRUE(isProgress());
        QTest::qWait(1);
        EXPECT_EQ(scans(), count);
        EXPECT_TRUE(count != 2 || goOnUntil([this] { return isResults(); }));
        press(Qt::Key_O, Qt::ControlModifier);
    }
}

TEST_F(WindowTest, AsksBeforeALargeImportEveryTime)
{
    for (const bool isClicked : {true, false}) {
        raiseLimitWarning();
        isClicked ? click(u"Cancel"_s) : press(Qt::Key_Escape);
        EXPECT_TRUE(waitForNoText(LARGE_LIBRARY));
        EXPECT_TRUE(isWelcome());
        EXPECT_FALSE(session.showLimitWarning());
        EXPECT_THAT(session.pendingImportURLs(), IsEmpty());
    }
    // The next one may come while the sheet fades.
    raiseLimitWarning();
    press(Qt::Key_Escape);
    session.importDroppedItems(MANY);
    QTest::qWait(300);
    EXPECT_TRUE(shows(LARGE_LIBRARY));
    EXPECT_EQ(session.pendingImportURLs().size(), MANY.size());
    session.clearAll();
    EXPECT_TRUE(waitForNoText(LARGE_LIBRARY));
    EXPECT_EQ(scans(), 0);

    for (const bool isClicked : {true, false}) {
        raiseLimitWarning();
        isClicked ? click(ADD_ANYWAY) : press(Qt::Key_Return);
        EXPECT_TRUE(waitForNoText(LARGE_LIBRARY));
        EXPECT_TRUE(isProgress());
        EXPECT_TRUE(goOnUntil([this] { return session.totalFiles() == MANY.size(); }));
        session.clearAll();
    }
}

TEST_F(WindowTest, KeepsTheWorkingAreaWhenALargeImportIsNotWantedAfterAll)
{
    scanSamples();
    raiseLimitWarning();
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitForNoText(LARGE_LIBRARY));
    EXPECT_TRUE(isResults());
    EXPECT_GT(session.songCount(), 0);
}

TEST_F(WindowTest, ShowsAnAlertUntilItIsDismissed)
{
    for (const Qt::Key key : {Qt::Key_unknown, Qt::Key_Return, Qt::Key_Escape}) {
        raiseAlert();
        key == Qt::Key_unknown ? click(u"OK"_s) : press(key);
        EXPECT_TRUE(waitForNoText(ALERT));
        EXPECT_FALSE(session.showAlert());
        EXPECT_TRUE(isWelcome());
    }
    EXPECT_EQ(focusedName(), BROWSE) << "the keyboard is back where it was";
}

TEST_F(WindowTest, ShowsAToastUntilItIsClosedOrItsTimeIsOver)
{
    const std::function<void()> endings[] = {
        [this] { click(u"Close"_s); },
        [this] { press(Qt::Key_Escape); },
        [this] { endPauses(true); },
    };
    for (const auto &end : endings) {
        session.showToast(u"One moment"_s, ToastType::Info);
        EXPECT_TRUE(waitForText(u"One moment"_s));
        session.showToast(u"That is it"_s, ToastType::Success);
        EXPECT_TRUE(shows(u"That is it"_s));
        EXPECT_FALSE(shows(u"One moment"_s));
        end();
        EXPECT_TRUE(waitForNoText(u"That is it"_s));
        EXPECT_FALSE(session.showToast());
    }
}

TEST_F(WindowTest, ClosesWhatIsOnTopWithEscape)
{
    session.showToast(u"Look here"_s, ToastType::Error);
    raiseAlert();
    raiseLimitWarning();

    press(Qt::Key_Escape);
    EXPECT_TRUE(waitForNoText(LARGE_LIBRARY));
    EXPECT_TRUE(session.showAlert());
    EXPECT_TRUE(session.showToast());
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitForNoText(ALERT));
    EXPECT_FALSE(session.showAlert());
    EXPECT_TRUE(session.showToast());
    press(Qt::Key_Escape);
    EXPECT_FALSE(session.showToast());
}

TEST_F(WindowTest, ImportsAFolderThatIsDroppedAnywhere)
{
    drop(dropZone(), SAMPLES);
    EXPECT_TRUE(isProgress());
    QTest::qWait(1);
    EXPECT_EQ(scans(), 1) << "only one of those that could take it";
    for (const bool isOverResults : {false, true}) {
        drop(corner(), SAMPLES);
        QTest::qWait(1);
        EXPECT_TRUE(isProgress());
        EXPECT_EQ(scans(), isOverResults ? 3U : 2U);
        EXPECT_TRUE(goOnUntil([this] { return isResults(); }));
    }
}

TEST_F(WindowTest, ImportsTheLastOfSeveralFoldersAndSaysSo)
{
    const QUrl album = QUrl::fromLocalFile(QStringLiteral(SONAVO_SAMPLES "/Albums"));
    const QUrl phone = QUrl::fromLocalFile(QStringLiteral(SONAVO_SAMPLES "/Phone"));
    drop(corner(), {album, phone});
    EXPECT_TRUE(
        waitForText(u"Only “Phone” is being scanned. Use “Add Song” to choose several items together."_s));
    EXPECT_TRUE(goOnUntil([this] { return !session.isScanning(); }));
    EXPECT_EQ(session.songCount(), QDir(phone.toLocalFile()).entryList(QDir::Files).size());
}

TEST_F(WindowTest, LightsUpUnderFilesAndTakesNothingElse)
{
    const auto zone = [this] {
        return window->grabWindow().copy(QRect(dropZone() - QPoint(200, 40), QSize(400, 40)));
    };
    const QImage unlit = zone();
    QMimeData text;
    text.setText(u"music"_s);
    QMimeData link;
    link.setUrls({QUrl(u"https://example.org/music"_s)});
    for (const QMimeData *data : {&text, &link}) {
        EXPECT_FALSE(drag(dropZone(), *data));
        QTest::qWait(350);
        EXPECT_EQ(zone(), unlit);
        leave();
        drop(corner(), *data);
        drop(dropZone(), *data);
    }
    EXPECT_EQ(scans(), 0);
    EXPECT_TRUE(isWelcome());

    QMimeData mixed;
    mixed.setUrls({link.urls().first(), SONG});
    // By way of the window's edge, as dragging goes.
    EXPECT_TRUE(drag(corner(), mixed));
    EXPECT_EQ(zone(), unlit);
    EXPECT_TRUE(drag(dropZone(), mixed));
    EXPECT_TRUE(waitFor([&] { return zone() != unlit; }));
    leave();
    EXPECT_TRUE(waitFor([&] { return zone() == unlit; }));
    drop(dropZone(), mixed);
    EXPECT_TRUE(isProgress());
    EXPECT_TRUE(goOnUntil([this] { return !session.isScanning(); }));
    EXPECT_EQ(session.songCount(), 1);
}

TEST_F(WindowTest, LetsTheKeyboardReachEveryButtonAndShowsWhereItIs)
{
    const auto pictureOf = [this](const QString &name) {
        constexpr int RING = 6;
        const QAccessibleInterface *button = find(QAccessible::Button, name);
        return button
                   ? window->grabWindow().copy(placeOf(button->object()).adjusted(-RING, -RING, RING, RING))
                   : QImage();
    };
    const auto tabStops = [&] {
        QStringList stops;
        for (press(Qt::Key_Tab); !stops.contains(focusedName()); press(Qt::Key_Tab)) {
            const QString name = focusedName();
            const QImage focused = pictureOf(name);
            stops.append(name);
            press(Qt::Key_Tab);
            EXPECT_NE(pictureOf(name), focused) << name.toStdString();
            press(Qt::Key_Backtab, Qt::ShiftModifier);
        }
        stops.sort();
        return stops;
    };
    EXPECT_EQ(tabStops(), buttons());
    session.startScan(SAMPLES);
    session.showToast(u"A toast"_s, ToastType::Info);
    ASSERT_TRUE(waitForText(u"A toast"_s));
    EXPECT_THAT(buttons(), ElementsAre(CANCEL_SCAN, u"Close"_s, TO_DARK));
    EXPECT_EQ(tabStops(), buttons());

    raiseLimitWarning();
    EXPECT_THAT(tabStops(), ElementsAre(ADD_ANYWAY, u"Cancel"_s)) << "what lies below is out of reach";
}

} // namespace
} // namespace sonavo
