#include "theme/theme_colors.h"

namespace sonavo {
namespace {

double darknessOf(const ThemeManager &manager)
{
    return manager.isDark() ? 1.0 : 0.0;
}

QColor mixed(const QColor &from, const QColor &to, float share)
{
    const auto mix = [share](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                            mix(from.blueF(), to.blueF()));
}

} // namespace

ThemeColors::ThemeColors(const ThemeManager &manager, QObject *parent)
    : QObject(parent)
    , m_manager(manager)
{
    constexpr int DURATION = 300; // milliseconds
    m_darkness.setEasingCurve(QEasingCurve::InOutQuad);
    m_darkness.setStartValue(darknessOf(manager));
    m_darkness.setEndValue(darknessOf(manager));
    connect(&m_darkness, &QVariantAnimation::valueChanged, this, &ThemeColors::changed);
    connect(&manager, &ThemeManager::wishesChanged, this, &ThemeColors::changed);
    connect(&manager, &ThemeManager::currentThemeChanged, this, [this, &manager] {
        const QVariant start = m_darkness.currentValue();
        m_darkness.stop();
        m_darkness.setStartValue(start);
        m_darkness.setEndValue(darknessOf(manager));
        m_darkness.setDuration(manager.wishes().isMotionReduced ? 0 : DURATION);
        m_darkness.start();
    });
}

QColor ThemeColors::blended(PaletteColor inLight, PaletteColor inDark) const
{
    const Contrast contrast = isHighContrast() ? Contrast::High : Contrast::Normal;
    return mixed(toQColor(paletteColor(inLight, AppTheme::Light, contrast)),
                 toQColor(paletteColor(inDark, AppTheme::Dark, contrast)),
                 m_darkness.currentValue().toFloat());
}

QColor ThemeColors::accentText() const
{
    return mixed(blended(PaletteColor::AccentDark, PaletteColor::AccentLight), textPrimary(), 0.15F);
}

QColor ThemeColors::errorText() const
{
    return mixed(error(), textPrimary(), 0.3F);
}

QColor ThemeColors::errorMark() const
{
    return mixed(error(), textPrimary(), 0.15F);
}

QColor ThemeColors::textOnAccent() const
{
    // Only with high contrast is the accent of the light theme dark.
    return blended(isHighContrast() ? PaletteColor::Background : PaletteColor::TextPrimary,
                   PaletteColor::Background);
}

QColor ThemeColors::mutedText() const
{
    return mixed(textSecondary(), textPrimary(), 0.3F);
}

QList<QColor> ThemeColors::groupTints() const
{
    QList<QColor> tints;
    for (const PaletteColor role : GROUP_TINTS)
        tints.append(blended(role));
    return tints;
}

} // namespace sonavo
