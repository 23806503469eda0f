#pragma once

#include "import/disk_task.h"
#include "testing/fake_desktop.h"
#include "testing/test_pauses.h"
#include "testing/window_driver.h"
#include "theme/theme_manager.h"

#include <QLineF>
#include <QTest>

#include <gtest/gtest.h>

namespace sonavo {

inline const QList<QUrl> SAMPLES{QUrl::fromLocalFile(QStringLiteral(SONAVO_SAMPLES))};

/// What the window needs before it loads.
struct WindowParts
{
    WindowParts()
    {
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &message) {
            // The platform plug-in warns about the machine that the test runs on.
            if (type == QtWarningMsg && !QByteArrayView(context.category).startsWith("qt.qpa"))
                ADD_FAILURE() << message.toStdString();
        });
        ThemeManager::shared()->setCurrentTheme(AppTheme::Light);
        ThemeManager::shared()->setWishes({});
    }
    ~WindowParts() { qInstallMessageHandler(nullptr); }
    Q_DISABLE_COPY_MOVE(WindowParts)

    FakeDesktop desktop;
    std::shared_ptr<HeldPauses> pauses = std::make_shared<HeldPauses>();
};

/// The main window at its smallest size in the light theme. A scan stands still at each of its pauses. A
/// warning of the views fails the test.
class UiTest : public testing::Test, protected WindowParts, protected WindowDriver
{
protected:
    UiTest()
        : WindowDriver(desktop, pauses)
    {}
    /// Ends everything that is still waiting; a cancelled scan can pause once more before it ends.
    ~UiTest() override
    {
        session.clearAll();
        std::size_t ended = 0;
        while (ended < pauses->count()) {
            ended = pauses->count();
            endPauses(std::chrono::hours(1));
            diskThreads().waitForDone();
            QTest::qWait(20);
        }
    }

    void endPauses(std::chrono::milliseconds longest)
    {
        for (std::size_t i = 0; i < pauses->count(); ++i) {
            if (pauses->lengthOf(i) <= longest)
                pauses->end(i);
        }
    }
    /// Lets scans go on until the condition holds; toasts stay.
    [[nodiscard]] bool goOnUntil(const std::function<bool()> &condition)
    {
        return waitFor([&] {
            endPauses(std::chrono::seconds(1));
            return condition();
        });
    }
    /// A text that is drawn inside a ring does not touch it.
    static void expectInsideRings(const QQuickItem &text, const QQuickItem &around)
    {
        const QSizeF drawn(text.property("contentWidth").toDouble(),
                           text.property("contentHeight").toDouble());
        QRectF bounds(QPointF(), drawn);
        bounds.moveCenter(text.mapRectToItem(&around, QRectF(QPointF(), text.size())).center());
        for (const QQuickItem *ring : around.childItems()) {
            if (!ring->inherits("sonavo::ProgressRing"))
                continue;
            const double radius = ring->width() / 2 - ring->property("lineWidth").toDouble();
            const QPointF center = QRectF(ring->position(), ring->size()).center();
            for (const QPointF corner :
                 {bounds.topLeft(), bounds.topRight(), bounds.bottomLeft(), bounds.bottomRight()})
                EXPECT_LE(QLineF(center, corner).length(), radius);
        }
    }
    /// A text is drawn within its own bounds, and these within every control and rectangle around it.
    static void expectLegible(const QQuickItem &text)
    {
        SCOPED_TRACE(text.property("text").toString().toStdString());
        EXPECT_FALSE(text.property("truncated").toBool());
        EXPECT_LE(text.property("contentWidth").toDouble(), text.width() + 0.5);
        EXPECT_LE(text.property("contentHeight").toDouble(), text.height() + 0.5);
        const QQuickItem *inner = &text;
        for (const QQuickItem *outer = text.parentItem(); outer; outer = outer->parentItem()) {
            expectInsideRings(text, *outer);
            if (!outer->clip() && !outer->inherits("QQuickControl") && !outer->inherits("QQuickRectangle") &&
                outer->parentItem())
                continue;
            const QRectF bounds = QRectF(QPointF(), outer->size()) + QMarginsF(1, 1, 1, 1);
            EXPECT_TRUE(bounds.contains(inner->mapRectToItem(outer, QRectF(QPointF(), inner->size()))))
                << inner->metaObject()->className() << " in " << outer->metaObject()->className();
            inner = outer;
        }
    }
    /// Does what a screen reader's "Press" does.
    static void activate(QAccessibleInterface *control)
    {
        ASSERT_TRUE(control && control->actionInterface());
        control->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
    void activate(const QString &button) const { activate(find(QAccessible::Button, button)); }
    void scan(const QList<QUrl> &urls)
    {
        session.startScan(urls);
        ASSERT_TRUE(goOnUntil([this] { return !session.isScanning(); }));
    }
};

} // namespace sonavo
