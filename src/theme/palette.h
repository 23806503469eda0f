#pragma once

#include "model/color.h"
#include "model/duplicate_group.h"
#include "theme/theme_manager.h"

#include <QColor>
#include <QList>

#include <array>

namespace sonavo {

/// The roles that colours have in the interface.
enum class PaletteColor
{
    Background,
    SecondaryBackground,
    TertiaryBackground,
    Border,
    TextPrimary,
    TextSecondary,
    Accent,
    AccentLight,
    AccentDark,
    Success,
    Error,
    Neutral,
};

/// The opaque colour of a role in a theme.
[[nodiscard]] Color paletteColor(PaletteColor role, AppTheme theme);

/// The tints of duplicate groups by slot. The first and the fourth are the same on purpose: six slots, five
/// colours.
inline constexpr std::array<PaletteColor, GROUP_TINT_COUNT> GROUP_TINTS{
    PaletteColor::Accent, PaletteColor::AccentLight, PaletteColor::Success,
    PaletteColor::Accent, PaletteColor::AccentDark,  PaletteColor::Neutral};

/// The tints at opacity 0.15, as backgrounds.
[[nodiscard]] QList<Color> groupColors(AppTheme theme);

[[nodiscard]] QColor toQColor(const Color &color);

} // namespace sonavo
