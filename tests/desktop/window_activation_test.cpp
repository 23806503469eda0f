#include "desktop/window_activation.h"

#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace sonavo {
namespace {

TEST(WindowActivation, KeepsAMaximizedWindowMaximized)
{
    QWindow window;
    window.showMaximized();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.setWindowStates(Qt::WindowMaximized | Qt::WindowMinimized);
    bringToFront(window, {});
    EXPECT_EQ(window.windowStates(), Qt::WindowMaximized);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

} // namespace
} // namespace sonavo
