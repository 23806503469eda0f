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

TEST_F(ThemeTest, RemembersEveryChoice)
{
    ThemeManager manager(settings);
    int changes = 0;
    QObject::connect(&manager, &ThemeManager::currentThemeChanged, &manager, [&changes] { ++changes; });
    manager.setCurrentTheme(AppTheme::Light);
    EXPECT_EQ(settings.value(QStringLiteral("appTheme")), QStringLiteral("light"));
    EXPECT_EQ(changes, 0);
    manager.toggleTheme();
    EXPECT_EQ(settings.value(QStringLiteral("appTheme")), QStringLiteral("dark"));
    EXPECT_EQ(changes, 1);
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
    const QColor lightAccent(0xC4, 0x70, 0x4B);
    const QColor darkAccent(0xE0, 0x78, 0x50);
    EXPECT_EQ(colors.accent(), lightAccent);
    EXPECT_EQ(colors.background(), QColor(0xFA, 0xF9, 0xF6));
    manager.toggleTheme();
    EXPECT_EQ(colors.accent(), lightAccent);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return colors.accent() == darkAccent && colors.background() == QColor(0x1C, 0x1C, 0x1E); }));
    // Back again before it has got there.
    manager.toggleTheme();
    manager.toggleTheme();
    manager.toggleTheme();
    EXPECT_TRUE(QTest::qWaitFor([&] { return colors.accent() == lightAccent; }));
}

} // namespace
} // namespace sonavo
