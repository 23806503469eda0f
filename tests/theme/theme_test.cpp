#include "theme/theme_colors.h"
#include "theme/theme_manager.h"

#include <QGuiApplication>
#include <QPalette>
#include <QQuickWindow>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string_view>
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
    EXPECT_EQ(ThemeManager(&settings).currentTheme(), AppTheme::Light);
    for (const QString &other : {u"Dark"_s, u"light"_s, u"a, b"_s}) {
        settings.setValue(u"appTheme"_s, other);
        EXPECT_EQ(ThemeManager(&settings).currentTheme(), AppTheme::Light);
        EXPECT_EQ(settings.value(u"appTheme"_s), other);
    }
    settings.setValue(u"appTheme"_s, u"dark"_s);
    EXPECT_EQ(ThemeManager(&settings).currentTheme(), AppTheme::Dark);
}

TEST_F(ThemeTest, ColorsTheWindowAndTheToolkitAtTheNextTurnOfTheEventLoop)
{
    ThemeManager manager(&settings);
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
    ThemeManager manager(&settings);
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

/// WCAG 2.2, "relative luminance" and "contrast ratio".
double contrast(const QColor &a, const QColor &b)
{
    const auto luminance = [](const QColor &color) {
        const auto linear = [](float part) {
            return part <= 0.04045F ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF());
    };
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor over(const QColor &surface, const QColor &tint, float alpha)
{
    const auto mix = [alpha](float below, float above) { return below + (above - below) * alpha; };
    return QColor::fromRgbF(mix(surface.redF(), tint.redF()), mix(surface.greenF(), tint.greenF()),
                            mix(surface.blueF(), tint.blueF()));
}

TEST_F(ThemeTest, KeepsTextAndMarksLegibleInBothThemes)
{
    ThemeManager manager(&settings);
    for (const char *theme : {"light", "dark", "high contrast, light", "high contrast, dark"}) {
        const bool isHighContrast = std::string_view(theme).starts_with("high");
        manager.setWishes({.isHighContrast = isHighContrast});
        const double text = isHighContrast ? 7.0 : 4.5;
        const double mark = isHighContrast ? 4.5 : 3.0;
        const ThemeColors colors(manager);
        const QColor row = colors.tertiaryBackground();
        const QColor playing = over(row, colors.accent(), 0.15F);
        const QColor hovered = over(row, colors.textPrimary(), 0.06F);
        const QColor raised = colors.secondaryBackground();
        const auto expect = [theme](const char *what, double least, const QColor &color,
                                    const QList<QColor> &surfaces) {
            for (const QColor &surface : surfaces)
                EXPECT_GE(contrast(color, surface), least)
                    << what << " on " << surface.name().toStdString() << ", " << theme;
        };
        expect("text", text, colors.textPrimary(), {colors.background(), raised, row, playing, hovered});
        expect("secondary text", text, colors.textSecondary(), {colors.background(), raised});
        expect("muted text", text, colors.mutedText(), {row, playing, hovered});
        expect("accent text", text, colors.accentText(), {colors.background(), raised});
        expect("default action", text, colors.textOnAccent(),
               {colors.accent(), colors.accent().lighter(106)});
        expect("delete mark", mark, colors.errorMark(), {row, playing, hovered});
        expect("original", text, colors.success(), {colors.background()});
        expect("error text", text, colors.errorText(), {raised});
        expect("outlines", mark, colors.accent(), {colors.background(), raised});
        if (isHighContrast)
            expect("outlines of surfaces", 7.0, colors.border(), {colors.background(), raised, row});
        expect("outline of Clear List", mark, colors.textSecondary(), {raised});
        expect("playing speaker", mark, colors.accentText(), {playing});
        for (const QColor &tint : colors.groupTints()) {
            const QList<QColor> headers{over(raised, tint, 0.3F), over(raised, tint, 0.38F)};
            expect("title of a group", text, colors.textPrimary(), headers);
            expect("focus ring", mark, colors.accentText(), headers);
        }
        manager.toggleTheme();
    }
}

} // namespace
} // namespace sonavo
