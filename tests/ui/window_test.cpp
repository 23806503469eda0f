#include "testing/window_driver.h"

#include <QDir>
#include <QTest>

#include <gmock/gmock.h>

namespace sonavo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using ToastType = DuplicateViewModel::ToastType;

const QString LONG_TOAST =
    u"Could not delete file: "_s + u"a very long reason "_s.repeated(20) + QString(120, u'x');

/// Whatever the window shows, people must be able to read it, or have it read to them.
class WindowTest : public testing::Test, protected WindowDriver
{
protected:
    static void noteAlerts(QAccessibleEvent *event)
    {
        if (event->type() == QAccessible::Alert)
            alerts.append(event->accessibleInterface()->text(QAccessible::Name));
    }
    static inline QStringList alerts;
    static inline const QSet<QAccessible::Role> NAMED{QAccessible::Window,      QAccessible::Dialog,
                                                      QAccessible::MenuItem,    QAccessible::Button,
                                                      QAccessible::ProgressBar, QAccessible::AlertMessage};

    void SetUp() override
    {
        alerts.clear();
        QAccessible::installUpdateHandler(noteAlerts);
    }
    void TearDown() override { QAccessible::installUpdateHandler(nullptr); }

    /// Every text is drawn within its own bounds, on something that is whole itself, up to the
    /// window.
    static void expectLegible(const QQuickItem &text)
    {
        SCOPED_TRACE(text.property("text").toString().toStdString());
        EXPECT_FALSE(text.property("truncated").toBool());
        EXPECT_LE(text.property("contentWidth").toDouble(), text.width() + 0.5);
        EXPECT_LE(text.property("contentHeight").toDouble(), text.height() + 0.5);
        const QQuickItem *held = &text;
        for (const QQuickItem *holder = text.parentItem(); holder; holder = holder->parentItem()) {
            const bool hasEdge = holder->clip() || holder->inherits("QQuickControl") ||
                                 holder->inherits("QQuickRectangle") || !holder->parentItem();
            if (!hasEdge)
                continue;
            const QMarginsF rounding(1.0, 1.0, 1.0, 1.0);
            const QRectF room = QRectF(QPointF(), holder->size()) + rounding;
            EXPECT_TRUE(room.contains(held->mapRectToItem(holder, QRectF(QPointF(), held->size()))))
                << held->metaObject()->className() << " in " << holder->metaObject()->className();
            held = holder;
        }
    }

    /// What is written is legible and also read aloud, and whatever can be used has a name.
    void expectFitForAll() const
    {
        QString told;
        for (const QAccessibleInterface *node : accessibleNodes()) {
            const QString name = node->text(QAccessible::Name);
            told += name + u'\n' + node->text(QAccessible::Description) + u'\n';
            EXPECT_TRUE(!name.isEmpty() || !NAMED.contains(node->role()))
                << node->role() << " without a name";
        }
        for (const QQuickItem *text : textItemsIn(*window->contentItem())) {
            expectLegible(*text);
            EXPECT_THAT(told.toStdString(), HasSubstr(text->property("text").toString().toStdString()));
        }
    }
};

TEST_F(WindowTest, ShowsAScanFromItsStartAndTheResultsAfterwards)
{
    EXPECT_EQ(window->size(), QSize(900, 600));
    EXPECT_TRUE(isWelcome());
    EXPECT_THAT(buttons(), ElementsAre(BROWSE, TO_DARK));
    expectFitForAll();
    session.startScan(SAMPLES);
    EXPECT_TRUE(isProgress());
    EXPECT_TRUE(waitForText(u"Step 1/4: Discovering audio files..."_s));
    EXPECT_TRUE(shows(u"0%"_s));
    EXPECT_TRUE(goOnUntil([this] { return session.progress() > 0.0; }));
    EXPECT_TRUE(shows(QString::number(static_cast<int>(session.progress() * 100)) + u'%'));
    EXPECT_TRUE(shows(session.scanMessage()));
    EXPECT_THAT(buttons(), ElementsAre(CANCEL_SCAN, TO_DARK)) << "there is nothing to work with yet";
    expectFitForAll();
    QAccessibleInterface *ring = find(QAccessible::ProgressBar, session.scanMessage());
    ASSERT_TRUE(ring && ring->valueInterface());
    EXPECT_EQ(ring->valueInterface()->currentValue().toDouble(), session.progress());
    EXPECT_EQ(ring->valueInterface()->maximumValue().toDouble(), 1.0);
    EXPECT_TRUE(goOnUntil([this] { return !session.isScanning(); }));
    EXPECT_TRUE(isResults());

    session.startScan(SAMPLES);
    EXPECT_TRUE(isProgress());
    for (QQuickItem *text : textItemsIn(*window->contentItem())) {
        if (text->property("text") != session.scanMessage())
            continue;
        for (const QString &longest : {u"Step 1/4: Processing audio files (499999 of 500000)"_s,
                                       u"Step 4/4: Deep comparison of remaining songs..."_s}) {
            EXPECT_TRUE(text->setProperty("text", longest));
            expectLegible(*text);
        }
    }
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
    // Everything that the scan might still do.
    for (int turn = 0; turn < 10; ++turn)
        EXPECT_TRUE(goOnUntil([] { return true; }));
    EXPECT_TRUE(isWelcome());
    EXPECT_EQ(session.songCount(), 0);

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
        expectFitForAll();
        EXPECT_NE(find(QAccessible::Dialog, LARGE_LIBRARY), nullptr);
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

TEST_F(WindowTest, ShowsAnAlertUntilItIsDismissed)
{
    for (const bool isClicked : {true, false}) {
        raiseAlert();
        expectFitForAll();
        EXPECT_NE(find(QAccessible::Dialog, ALERT), nullptr);
        EXPECT_NE(find(QAccessible::AlertMessage, ALERT), nullptr);
        EXPECT_TRUE(waitFor([] { return alerts.removeAll(ALERT) == 1; }));
        isClicked ? click(u"OK"_s) : press(Qt::Key_Return);
        EXPECT_TRUE(waitForNoText(ALERT));
        EXPECT_FALSE(session.showAlert());
        EXPECT_TRUE(isWelcome());
    }
    EXPECT_EQ(focusedName(), BROWSE) << "the keyboard is back where it was";
}

TEST_F(WindowTest, ShowsAToastUntilItIsClosedOrItsTimeIsOver)
{
    for (const bool isClosed : {true, false}) {
        session.showToast(u"One moment"_s, ToastType::Info);
        EXPECT_TRUE(waitForText(u"One moment"_s));
        session.showToast(LONG_TOAST, ToastType::Success);
        EXPECT_TRUE(shows(LONG_TOAST));
        EXPECT_FALSE(shows(u"One moment"_s));
        // Drawn once, so that all is laid out.
        EXPECT_FALSE(window->grabWindow().isNull());
        QAccessibleInterface *toast = find(QAccessible::AlertMessage, LONG_TOAST);
        ASSERT_NE(toast, nullptr);
        EXPECT_LE(placeOf(toast->object()).width(), 500);
        expectFitForAll();
        EXPECT_TRUE(waitFor([] { return alerts.removeAll(LONG_TOAST) == 1; }));
        isClosed ? click(u"Close"_s) : endPauses(true);
        EXPECT_TRUE(waitForNoText(LONG_TOAST));
        EXPECT_FALSE(session.showToast());
    }
}

TEST_F(WindowTest, ClosesWhatIsOnTopWithEscapeAndKeepsTheWorkingArea)
{
    scanSamples();
    session.showToast(u"Look here"_s, ToastType::Error);
    raiseAlert();
    raiseLimitWarning();

    press(Qt::Key_Escape);
    EXPECT_TRUE(waitForNoText(LARGE_LIBRARY));
    EXPECT_TRUE(session.showAlert());
    press(Qt::Key_Escape);
    EXPECT_TRUE(waitForNoText(ALERT));
    EXPECT_TRUE(session.showToast());
    press(Qt::Key_Escape);
    EXPECT_FALSE(session.showToast());
    EXPECT_TRUE(isResults());
    EXPECT_GT(session.songCount(), 0);
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

    QMimeData mixed;
    mixed.setUrls({link.urls().first(), SONG});
    // By way of the window's edge, as dragging goes.
    EXPECT_TRUE(drag(corner(), mixed));
    EXPECT_TRUE(drag(dropZone(), mixed));
    EXPECT_TRUE(waitFor([&] { return zone() != unlit; }));
    leave();
    EXPECT_TRUE(waitFor([&] { return zone() == unlit; }));
    drop(dropZone(), mixed);
    EXPECT_TRUE(goOnUntil([this] { return session.songCount() == 1; }));
}

TEST_F(WindowTest, LetsTheKeyboardReachEveryButtonAndShowsWhereItIs)
{
    const auto pictureOf = [this](const QString &name) {
        const QMargins ring(6, 6, 6, 6);
        const QAccessibleInterface *button = find(QAccessible::Button, name);
        return button ? window->grabWindow().copy(placeOf(button->object()) + ring) : QImage();
    };
    const auto tabStops = [&] {
        QStringList stops;
        for (press(Qt::Key_Tab); !stops.contains(focusedName()); press(Qt::Key_Tab)) {
            stops.append(focusedName());
            const QImage focused = pictureOf(stops.last());
            press(Qt::Key_Tab);
            EXPECT_NE(pictureOf(stops.last()), focused) << stops.last().toStdString();
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

TEST_F(WindowTest, HasMenusAndTellsAboutItself)
{
    for (const auto &[menu, entry] : {std::pair(u"File"_s, u"Quit"_s), std::pair(u"Window"_s, u"Minimize"_s),
                                      std::pair(u"Help"_s, u"About Sonavo"_s)}) {
        press(Qt::Key_Escape);
        click(menu, QAccessible::MenuBar);
        ASSERT_TRUE(waitForText(entry));
        expectFitForAll();
    }
    click(u"About Sonavo"_s, QAccessible::MenuItem);
    ASSERT_TRUE(waitFor([this] { return focusedName() == u"Close"; }));
    expectFitForAll();
    EXPECT_NE(find(QAccessible::Dialog, u"About Sonavo"_s), nullptr);
}

} // namespace
} // namespace sonavo
