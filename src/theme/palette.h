#pragma once

#include "model/color.h"
#include "model/duplicate_group.h"
#include "theme/theme_manager.h"

#include <QColor>
#include <QList>

#include <array>

namespace sonavo {

/// The colours of the interface, named by role.
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

enum class Contrast
{
    Normal,
    /// Text has at least 7 to 1 on every surface (WCAG 2.2, 1.4.6).
    High
};

/// The colour that a role has in a theme; always opaque.
[[nodiscard]] Color paletteColor(PaletteColor role, AppTheme theme, Contrast contrast = Contrast::Normal);

/// The tints of duplicate groups, indexed by DuplicateGroup::color. The first and the fourth are the same on
/// purpose.
inline constexpr std::array<PaletteColor, GROUP_TINT_COUNT> GROUP_TINTS{
    PaletteColor::Accent, PaletteColor::AccentLight, PaletteColor::Success,
    PaletteColor::Accent, PaletteColor::AccentDark,  PaletteColor::Neutral};

/// The tints of duplicate groups in a theme, at opacity 0.15.
[[nodiscard]] QList<Color> groupColors(AppTheme theme);

[[nodiscard]] QColor toQColor(const Color &color);

} // namespace sonavo
