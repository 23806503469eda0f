#include "theme/theme_colors.h"

namespace sonavo {
namespace {

double darknessOf(const ThemeManager &manager)
{
    return manager.isDark() ? 1.0 : 0.0;
}

} // namespace

ThemeColors::ThemeColors(const ThemeManager &manager, QObject *parent)
    : QObject(parent)
{
    constexpr int DURATION = 300; // milliseconds
    m_darkness.setDuration(DURATION);
    m_darkness.setEasingCurve(QEasingCurve::InOutQuad);
    m_darkness.setStartValue(darknessOf(manager));
    m_darkness.setEndValue(darknessOf(manager));
    connect(&m_darkness, &QVariantAnimation::valueChanged, this, &ThemeColors::changed);
    connect(&manager, &ThemeManager::currentThemeChanged, this, [this, &manager] {
        const QVariant start = m_darkness.currentValue();
        m_darkness.stop();
        m_darkness.setStartValue(start);
        m_darkness.setEndValue(darknessOf(manager));
        m_darkness.start();
    });
}

QColor ThemeColors::blended(PaletteColor role) const
{
    const Color light = paletteColor(role, AppTheme::Light);
    const Color dark = paletteColor(role, AppTheme::Dark);
    const double share = m_darkness.currentValue().toDouble();
    const auto mix = [share](double from, double to) { return from + (to - from) * share; };
    return toQColor(
        {mix(light.red, dark.red), mix(light.green, dark.green), mix(light.blue, dark.blue), 1.0});
}

QList<QColor> ThemeColors::groupTints() const
{
    QList<QColor> tints;
    for (const PaletteColor role : GROUP_TINTS)
        tints.append(blended(role));
    return tints;
}

} // namespace sonavo
