#include "ui/window_driver.h"

#include <QQuickView>
#include <QTest>

#include <gmock/gmock.h>

#include <algorithm>

namespace sonavo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using ToastType = DuplicateViewModel::ToastType;

/// What a scan says at its longest.
const QString LONGEST_STEPS[] = {u"Step 1/4: Processing audio files (499999 of 500000)"_s,
                                 u"Step 4/4: Deep comparison of remaining songs..."_s};
const QString LONG_TOAST =
    u"Could not delete file: "_s + u"a very long reason "_s.repeated(20) + QString(120, u'x');

/// Whatever the window shows, people must be able to read it, or have it read to them.
class LegibilityTest : public testing::Test, protected WindowDriver
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

    /// What is written is also read aloud, and whatever can be used has a name.
    void expectAccessible() const
    {
        QString told;
        for (const QAccessibleInterface *node : accessibleNodes()) {
            const QString name = node->text(QAccessible::Name);
            told += name + u'\n' + node->text(QAccessible::Description) + u'\n';
            EXPECT_TRUE(!name.isEmpty() || !NAMED.contains(node->role()))
                << node->role() << " without a name";
        }
        for (const QString &text : texts())
            EXPECT_THAT(told.toStdString(), testing::HasSubstr(text.toStdString()));
    }

    void expectFitForAll() const
    {
        for (const QQuickItem *text : textItemsIn(*window->contentItem()))
            expectLegible(*text);
        expectAccessible();
    }
};

TEST_F(LegibilityTest, OfTheScreens)
{
    EXPECT_EQ(window->size(), QSize(900, 600));
    expectFitForAll();
    session.startScan(SAMPLES);
    EXPECT_TRUE(goOnUntil([this] { return session.progress() > 0.0; }));
    expectFitForAll();

    QAccessibleInterface *ring = find(QAccessible::ProgressBar, session.scanMessage());
    ASSERT_NE(ring, nullptr);
    ASSERT_NE(ring->valueInterface(), nullptr);
    EXPECT_EQ(ring->valueInterface()->currentValue().toDouble(), session.progress());
    EXPECT_EQ(ring->valueInterface()->maximumValue().toDouble(), 1.0);
}

TEST_F(LegibilityTest, OfTheLongestMessagesOfAScan)
{
    for (const QString &message : LONGEST_STEPS) {
        QQuickView view;
        view.engine()->addImportPath(u":/qt/qml"_s);
        view.setInitialProperties({{u"progress"_s, 1.0}, {u"message"_s, message}});
        view.setResizeMode(QQuickView::SizeRootObjectToView);
        view.setSource(QUrl(u"qrc:/qt/qml/Sonavo/CircularProgressView.qml"_s));
        view.resize(900, 560);
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
        const auto texts = textItemsIn(*view.contentItem());
        EXPECT_TRUE(std::any_of(texts.begin(), texts.end(), [&message](const QQuickItem *item) {
            return item->property("text") == message;
        }));
        for (const QQuickItem *text : texts)
            expectLegible(*text);
    }
}

TEST_F(LegibilityTest, OfTheLimitWarning)
{
    raiseLimitWarning();
    expectFitForAll();
    EXPECT_NE(find(QAccessible::Dialog, LARGE_LIBRARY), nullptr);
}

TEST_F(LegibilityTest, OfAnAlert)
{
    raiseAlert();
    expectFitForAll();
    EXPECT_NE(find(QAccessible::Dialog, ALERT), nullptr);
    EXPECT_NE(find(QAccessible::AlertMessage, ALERT), nullptr);
    EXPECT_TRUE(waitFor([] { return alerts == QStringList{ALERT}; }));
}

TEST_F(LegibilityTest, OfAToast)
{
    for (const QString &message : {u"Moved 1 files to Trash"_s, LONG_TOAST}) {
        session.showToast(message, ToastType::Success);
        ASSERT_TRUE(waitForText(message));
        QAccessibleInterface *toast = find(QAccessible::AlertMessage, message);
        ASSERT_NE(toast, nullptr);
        // Drawn once, so that all is laid out.
        EXPECT_FALSE(window->grabWindow().isNull());
        EXPECT_LE(placeOf(toast->object()).width(), 500);
        expectFitForAll();
        EXPECT_TRUE(waitFor([&] { return alerts == QStringList{message}; })) << alerts.size();
        alerts.clear();
    }
}

TEST_F(LegibilityTest, OfTheMenusAndWhatTheyOpen)
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
