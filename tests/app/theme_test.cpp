#include "app/palette.h"
#include "app/theme_manager.h"

#include <QSettings>
#include <QTemporaryDir>

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
    manager.toggleTheme();
    EXPECT_EQ(settings.value(QStringLiteral("appTheme")), QStringLiteral("dark"));
    EXPECT_TRUE(manager.isDark());
    manager.toggleTheme();
    EXPECT_EQ(settings.value(QStringLiteral("appTheme")), QStringLiteral("light"));
    EXPECT_EQ(changes, 2);

    settings.clear();
    manager.setCurrentTheme(AppTheme::Light);
    EXPECT_EQ(settings.value(QStringLiteral("appTheme")), QStringLiteral("light"));
    EXPECT_EQ(changes, 2);
}

TEST(GroupColors, AreSixTintsOfThePaletteInTheirOrder)
{
    const std::pair<AppTheme, std::array<QStringView, 6>> cases[] = {
        {AppTheme::Light, {u"#C4704B", u"#D4886A", u"#4A7C59", u"#C4704B", u"#A85A3B", u"#9B9B9B"}},
        {AppTheme::Dark, {u"#E07850", u"#F09070", u"#5A9C69", u"#E07850", u"#C06040", u"#707070"}},
    };
    for (const auto &[theme, expected] : cases) {
        const QList<Color> colors = groupColors(theme);
        ASSERT_EQ(colors.size(), 6);
        for (std::size_t i = 0; i < 6; ++i)
            EXPECT_EQ(colors[static_cast<qsizetype>(i)], colorFromHex(expected[i]).withAlpha(0.15)) << i;
    }
}

} // namespace
} // namespace sonavo
