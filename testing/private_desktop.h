#pragma once

#include "testing/private_home.h"

#include <QDBusConnection>
#include <QProcess>
#include <QStringList>

namespace sonavo {

/// A desktop for this process and what it starts from then on, known by the environment: a virtual screen
/// with a window manager, a session bus with a screen reader, and a home folder of its own.
class PrivateDesktop
{
public:
    /// Throws std::runtime_error when something does not run.
    PrivateDesktop();
    ~PrivateDesktop();
    Q_DISABLE_COPY_MOVE(PrivateDesktop)

    [[nodiscard]] const PrivateHome &home() const { return m_home; }
    /// Moves the pointer, presses buttons and keys; see xdotool(1).
    /// @return whether that was possible
    [[nodiscard]] static bool xdotool(const QString &commands);
    /// What programs show now, as a screen reader is told over the accessibility bus (AT-SPI).
    [[nodiscard]] QStringList accessibleNames() const;

private:
    PrivateHome m_home;
    QProcess m_screen;
    QProcess m_bus;
    QProcess m_windowManager;
    QDBusConnection m_accessibility{QString()};
};

} // namespace sonavo
