#include "theme/theme_colors.h"
#include "theme/theme_manager.h"

#include <QGuiApplication>
#include <QPalette>
#include <QQuickWindow>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <utility>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

class ThemeTest : public testing::Test
{
protected:
    QTemporaryDir m_folder;
    QSettings settings{m_folder.filePath(u"settings.ini"_s), QSettings::IniFormat};
};

TEST_F(ThemeTest, StartsDarkOnlyWithExactlyThatSetting)
{
    EXPECT_EQ(ThemeManager(settings).currentTheme(), AppTheme::Light);
    for (const QString &other : {u"Dark"_s, u"light"_s, u"a, b"_s}) {
        settings.setValue(u"appTheme"_s, other);
        EXPECT_EQ(ThemeManager(settings).currentTheme(), AppTheme::Light);
        EXPECT_EQ(settings.value(u"appTheme"_s), other);
    }
    settings.setValue(u"appTheme"_s, u"dark"_s);
    EXPECT_EQ(ThemeManager(settings).currentTheme(), AppTheme::Dark);
}

TEST_F(ThemeTest, ColorsTheWindowAndTheToolkitAtTheNextTurnOfTheEventLoop)
{
    ThemeManager manager(settings);
    const QQuickWindow window;
    for (const auto &[background, text] :
         {std::pair(u"#1c1c1f"_s, u"#f5f5f5"_s), std::pair(u"#faf9f6"_s, u"#1a1a1a"_s)}) {
        manager.toggleTheme();
        EXPECT_NE(window.color().name(), background);
        QTest::qWait(1);
        EXPECT_EQ(window.color().name(), background);
        EXPECT_EQ(QGuiApplication::palette().color(QPalette::WindowText).name(), text);
    }
}

TEST_F(ThemeTest, FadesAllColorsAndGroupTintsToTheNewThemeTogether)
{
    ThemeManager manager(settings);
    const ThemeColors colors(manager);
    const auto become = [&colors](QRgb background, QRgb lastTint) {
        return QTest::qWaitFor([=, &colors] {
            return colors.background() == background && colors.groupTints().constLast() == lastTint;
        });
    };
    manager.toggleTheme();
    EXPECT_EQ(colors.background(), QColor(0xFAF9F6)) << "not at once";
    EXPECT_TRUE(become(0x1C1C1E, 0x707070));
    // Back again before the fade is over.
    for (int i = 0; i < 3; ++i)
        manager.toggleTheme();
    EXPECT_TRUE(become(0xFAF9F6, 0x9B9B9B));
}

} // namespace
} // namespace sonavo
