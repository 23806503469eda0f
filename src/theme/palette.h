#pragma once

#include "model/color.h"
#include "theme/theme_manager.h"

#include <QColor>
#include <QList>

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

/// The six background tints that duplicate groups get in turn, at opacity 0.15. The first and the fourth are
/// the same on purpose: six places, five colours.
[[nodiscard]] QList<Color> groupColors(AppTheme theme);

[[nodiscard]] QColor toQColor(const Color &color);

} // namespace sonavo
