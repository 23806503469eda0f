#include "theme/theme_manager.h"

#include "theme/palette.h"
#include "theme/stored_settings.h"

#include <QGuiApplication>
#include <QPalette>
#include <QPointer>
#include <QSettings>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace sonavo {
namespace {

constexpr QLatin1String THEME_KEY("appTheme");
constexpr QLatin1String DARK("dark");
constexpr QLatin1String LIGHT("light");

Contrast contrastOf(const DesktopWishes &wishes)
{
    return wishes.isHighContrast ? Contrast::High : Contrast::Normal;
}

QColor windowBackground(AppTheme theme, Contrast contrast)
{
    if (contrast == Contrast::High)
        return toQColor(paletteColor(PaletteColor::Background, theme, contrast));
    return theme == AppTheme::Dark ? QColor::fromRgbF(0.11F, 0.11F, 0.12F)
                                   : QColor::fromRgbF(0.98F, 0.976F, 0.965F);
}

/// The colours of what Qt itself draws, such as file dialogs and tooltips.
QPalette qtPalette(AppTheme theme, Contrast contrast)
{
    const auto color = [=](PaletteColor role) { return toQColor(paletteColor(role, theme, contrast)); };
    const QColor text = color(PaletteColor::TextPrimary);
    const QColor muted = color(PaletteColor::Neutral);
    QPalette palette(text, color(PaletteColor::SecondaryBackground), color(PaletteColor::TertiaryBackground),
                     color(PaletteColor::Border), muted, text, text, color(PaletteColor::Background),
                     windowBackground(theme, contrast));
    palette.setColor(QPalette::AlternateBase, color(PaletteColor::SecondaryBackground));
    palette.setColor(QPalette::Highlight, color(PaletteColor::Accent));
    palette.setColor(QPalette::HighlightedText, color(PaletteColor::Background));
    palette.setColor(QPalette::Link, color(PaletteColor::Accent));
    palette.setColor(QPalette::PlaceholderText, color(PaletteColor::TextSecondary));
    palette.setColor(QPalette::ToolTipBase, color(PaletteColor::SecondaryBackground));
    palette.setColor(QPalette::ToolTipText, text);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, muted);
    return palette;
}

/// The first window with a background colour of its own, which dialogs and tooltips lack.
QWindow *firstWindow()
{
    constexpr const char *BACKGROUND = "color";
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto window = std::find_if(windows.begin(), windows.end(), [](const QWindow *candidate) {
        return candidate->property(BACKGROUND).isValid();
    });
    return window == windows.end() ? nullptr : *window;
}

} // namespace

ThemeManager *ThemeManager::shared()
{
    static const QPointer<ThemeManager> manager = new ThemeManager(openStoredSettings(qApp), qApp);
    return manager;
}

ThemeManager::ThemeManager(QSettings *settings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_currentTheme(settings && settings->value(THEME_KEY).toString() == DARK ? AppTheme::Dark
                                                                               : AppTheme::Light)
{}

void ThemeManager::setCurrentTheme(AppTheme theme)
{
    const bool isChange = theme != m_currentTheme;
    m_currentTheme = theme;
    if (m_settings)
        m_settings->setValue(THEME_KEY, QString(theme == AppTheme::Dark ? DARK : LIGHT));
    if (isChange)
        Q_EMIT currentThemeChanged();
    applyTheme();
}

void ThemeManager::toggleTheme()
{
    setCurrentTheme(isDark() ? AppTheme::Light : AppTheme::Dark);
}

void ThemeManager::setWishes(const DesktopWishes &wishes)
{
    if (wishes == std::exchange(m_wishes, wishes))
        return;
    Q_EMIT wishesChanged();
    applyTheme();
}

void ThemeManager::applyTheme()
{
    const auto apply = [this] {
        QWindow *window = qGuiApp ? firstWindow() : nullptr;
        if (!window)
            return;
        const Contrast contrast = contrastOf(m_wishes);
        window->setProperty("color", windowBackground(m_currentTheme, contrast));
        QGuiApplication::setPalette(qtPalette(m_currentTheme, contrast));
    };
    QMetaObject::invokeMethod(this, apply, Qt::QueuedConnection);
}

} // namespace sonavo
