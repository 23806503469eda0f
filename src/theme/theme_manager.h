#pragma once

#include <QObject>

class QSettings;

namespace sonavo {

enum class AppTheme
{
    Light,
    Dark
};

/// Holds the theme that the person chose and remembers it between runs, as "light" or "dark" under the key
/// "appTheme". Main thread only.
class ThemeManager : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isDark READ isDark NOTIFY currentThemeChanged)

public:
    /// The theme of the application, made on first use; it lives as long as the application object.
    [[nodiscard]] static ThemeManager *shared();

    /// Starts with the remembered theme; anything but exactly "dark" is light. Stores nothing.
    /// @param settings must outlive the manager
    explicit ThemeManager(QSettings &settings, QObject *parent = nullptr);

    [[nodiscard]] AppTheme currentTheme() const { return m_currentTheme; }
    [[nodiscard]] bool isDark() const { return m_currentTheme == AppTheme::Dark; }

    /// Every assignment is stored and applied, also one that changes nothing.
    void setCurrentTheme(AppTheme theme);

    Q_INVOKABLE void toggleTheme();

    /// Gives the application's first window and all that the toolkit draws by itself, such as file dialogs
    /// and menus, the colours of the current theme, at the next turn of the event loop. Without a window
    /// nothing happens.
    void applyTheme();

Q_SIGNALS:
    void currentThemeChanged();

private:
    QSettings &m_settings;
    AppTheme m_currentTheme;
};

} // namespace sonavo
