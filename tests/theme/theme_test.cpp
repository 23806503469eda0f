#include "theme/theme_colors.h"
#include "theme/theme_manager.h"

#include <QGuiApplication>
#include <QPalette>
#include <QQuickWindow>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace sonavo {
namespace {

class ThemeTest : public testing::Test
{
protected:
    QTemporaryDir m_folder;
    QSettings settings{m_folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat};
};

TEST_F(ThemeTest, IsDarkOnlyWhenExactlyThatIsRemembered)
{
    EXPECT_EQ(ThemeManager(settings).currentTheme(), AppTheme::Light);
    EXPECT_FALSE(settings.contains(QStringLiteral("appTheme")));
    for (const QString &other : {QStringLiteral("Dark"), QStringLiteral("light"), QStringLiteral("a, b")}) {
        settings.setValue(QStringLiteral("appTheme"), other);
        EXPECT_EQ(ThemeManager(settings).currentTheme(), AppTheme::Light);
        EXPECT_EQ(settings.value(QStringLiteral("appTheme")), other);
    }
    settings.setValue(QStringLiteral("appTheme"), QStringLiteral("dark"));
    EXPECT_EQ(ThemeManager(settings).currentTheme(), AppTheme::Dark);
}

TEST_F(ThemeTest, ColoursTheWindowAndTheToolkitAtTheNextTurn)
{
    ThemeManager manager(settings);
    const QPalette before = QGuiApplication::palette();
    manager.toggleTheme();
    QTest::qWait(1);
    EXPECT_EQ(QGuiApplication::palette(), before) << "without a window nothing happens";

    QQuickWindow window;
    window.setColor(Qt::white);
    manager.applyTheme();
    EXPECT_EQ(window.color(), QColor(Qt::white));
    QTest::qWait(1);
    EXPECT_EQ(window.color().name(), QStringLiteral("#1c1c1f"));
    EXPECT_EQ(QGuiApplication::palette().color(QPalette::WindowText), QColor(0xF5, 0xF5, 0xF5));
    manager.toggleTheme();
    QTest::qWait(1);
    EXPECT_EQ(window.color().name(), QStringLiteral("#faf9f6"));
    EXPECT_EQ(QGuiApplication::palette().color(QPalette::WindowText), QColor(0x1A, 0x1A, 0x1A));
}

TEST_F(ThemeTest, LetsAllColoursGoOverToTheNewThemeTogether)
{
    ThemeManager manager(settings);
    const ThemeColors colors(manager);
    const auto become = [&colors](QRgb accent, QRgb background) {
        return QTest::qWaitFor(
            [=, &colors] { return colors.accent() == accent && colors.background() == background; });
    };
    manager.toggleTheme();
    EXPECT_EQ(colors.accent(), QColor(0xC4, 0x70, 0x4B)) << "not at once";
    EXPECT_TRUE(become(0xE07850, 0x1C1C1E));
    // Back again before it has got there.
    for (int i = 0; i < 3; ++i)
        manager.toggleTheme();
    EXPECT_TRUE(become(0xC4704B, 0xFAF9F6));
}

} // namespace
} // namespace sonavo
