#pragma once

#include <QDBusConnection>

#include <optional>

namespace sonavo {

/// A progress bar on the program's icon in docks and task bars (com.canonical.Unity.LauncherEntry, a signal
/// that several desktops read). Main thread only.
class LauncherProgress
{
public:
    /// @param bus must be connected
    explicit LauncherProgress(const QDBusConnection &bus);

    /// @param fraction from 0.0 to 1.0; without one, no bar is shown
    void show(std::optional<double> fraction);

private:
    QDBusConnection m_bus;
    std::optional<double> m_shown;
};

} // namespace sonavo
