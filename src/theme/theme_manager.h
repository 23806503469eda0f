#pragma once

#include <QObject>

class QSettings;

namespace sonavo {

enum class AppTheme
{
    Light,
    Dark
};

/// How the desktop wants every program to look. Nothing of it is stored.
struct DesktopWishes
{
    /// Text of 7 to 1 and solid outlines, for people with low vision.
    bool isHighContrast = false;
    /// No movement that only decorates.
    bool isMotionReduced = false;

    friend bool operator==(const DesktopWishes &, const DesktopWishes &) = default;
};

/// Holds the theme that the user chose and stores it between runs, as "light" or "dark" under the key
/// "appTheme", and what the desktop wishes of both themes. Main thread only.
class ThemeManager : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isDark READ isDark NOTIFY currentThemeChanged)

public:
    /// The one manager of the application, created on first use with openStoredSettings().
    /// Requires the application object, which owns it.
    [[nodiscard]] static ThemeManager *shared();

    /// Starts with the stored theme; any value other than "dark" means light. Stores and applies nothing.
    /// @param settings must outlive the manager; without any, nothing is stored
    explicit ThemeManager(QSettings *settings, QObject *parent = nullptr);

    [[nodiscard]] AppTheme currentTheme() const { return m_currentTheme; }
    [[nodiscard]] bool isDark() const { return m_currentTheme == AppTheme::Dark; }

    /// Stores and applies the theme, even if it is the current one already.
    void setCurrentTheme(AppTheme theme);

    Q_INVOKABLE void toggleTheme();

    [[nodiscard]] const DesktopWishes &wishes() const { return m_wishes; }
    void setWishes(const DesktopWishes &wishes);

    /// Sets the background of the application's first window, and the palette of all that Qt itself draws,
    /// such as file dialogs, to the current theme, at the next turn of the event loop. Does nothing while
    /// there is no window.
    void applyTheme();

Q_SIGNALS:
    void currentThemeChanged();
    void wishesChanged();

private:
    QSettings *m_settings;
    AppTheme m_currentTheme;
    DesktopWishes m_wishes;
};

} // namespace sonavo
