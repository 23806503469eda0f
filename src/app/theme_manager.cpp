#include "app/theme_manager.h"

#include <QSettings>

namespace sonavo {
namespace {

constexpr QLatin1String THEME_KEY("appTheme");
constexpr QLatin1String DARK("dark");
constexpr QLatin1String LIGHT("light");

} // namespace

ThemeManager::ThemeManager(QSettings &settings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_currentTheme(settings.value(THEME_KEY).toString() == DARK ? AppTheme::Dark : AppTheme::Light)
{}

void ThemeManager::setCurrentTheme(AppTheme theme)
{
    const bool isChange = theme != m_currentTheme;
    m_currentTheme = theme;
    m_settings.setValue(THEME_KEY, QString(theme == AppTheme::Dark ? DARK : LIGHT));
    if (isChange)
        Q_EMIT currentThemeChanged();
}

void ThemeManager::toggleTheme()
{
    setCurrentTheme(isDark() ? AppTheme::Light : AppTheme::Dark);
}

} // namespace sonavo
