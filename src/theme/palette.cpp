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
using Palette = std::array<ThemedColor, 12>;

constexpr Palette PALETTE{{
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

constexpr Palette HIGH_CONTRAST_PALETTE{{
    {u"#000000", u"#FFFFFF"}, // Background
    {u"#101010", u"#F7F7F7"}, // SecondaryBackground
    {u"#1C1C1C", u"#F0F0F0"}, // TertiaryBackground
    {u"#FFFFFF", u"#000000"}, // Border
    {u"#FFFFFF", u"#000000"}, // TextPrimary
    {u"#E0E0E0", u"#2E2E2E"}, // TextSecondary
    {u"#FFA880", u"#7A3010"}, // Accent
    {u"#FFB898", u"#8A4424"}, // AccentLight
    {u"#F09468", u"#6A2A0C"}, // AccentDark
    {u"#8FE0A0", u"#1A5228"}, // Success
    {u"#FFA095", u"#8C1D0F"}, // Error
    {u"#C8C8C8", u"#4A4A4A"}, // Neutral
}};

} // namespace

Color paletteColor(PaletteColor role, AppTheme theme, Contrast contrast)
{
    const Palette &palette = contrast == Contrast::High ? HIGH_CONTRAST_PALETTE : PALETTE;
    const ThemedColor &color = palette[static_cast<std::size_t>(role)];
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
