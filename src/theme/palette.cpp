#include "theme/palette.h"

#include <array>

namespace sonavo {
namespace {

struct ThemedColor
{
    QStringView dark;
    QStringView light;
};

// Indexed by PaletteColor.
constexpr std::array<ThemedColor, 12> PALETTE{{
    {u"#1C1C1E", u"#FAF9F6"}, // Background
    {u"#2C2C2E", u"#F0EEEC"}, // SecondaryBackground
    {u"#3A3A3C", u"#E8E6DC"}, // TertiaryBackground
    {u"#3A3A3C", u"#E0DEDA"}, // Border
    {u"#F5F5F5", u"#1A1A1A"}, // TextPrimary
    {u"#A0A0A0", u"#6B6B6B"}, // TextSecondary
    {u"#E07850", u"#C4704B"}, // Accent
    {u"#F09070", u"#D4886A"}, // AccentLight
    {u"#C06040", u"#A85A3B"}, // AccentDark
    {u"#5A9C69", u"#4A7C59"}, // Success
    {u"#E06050", u"#C45A4B"}, // Error
    {u"#707070", u"#9B9B9B"}, // Neutral
}};

} // namespace

Color paletteColor(PaletteColor role, AppTheme theme)
{
    const ThemedColor &color = PALETTE[static_cast<std::size_t>(role)];
    return colorFromHex(theme == AppTheme::Dark ? color.dark : color.light);
}

QList<Color> groupColors(AppTheme theme)
{
    constexpr double OPACITY = 0.15;
    QList<Color> colors;
    for (const PaletteColor role : GROUP_TINTS)
        colors.append(paletteColor(role, theme).withAlpha(OPACITY));
    return colors;
}

QColor toQColor(const Color &color)
{
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

} // namespace sonavo
