#pragma once

#include "testing/private_home.h"

#include <QProcess>
#include <QString>
#include <QStringList>

namespace sonavo {

/// A desktop for this process and what it starts from then on: a virtual screen with a window manager, a
/// session bus and a home folder of its own, all known by the environment.
class PrivateDesktop
{
public:
    /// Throws std::runtime_error when something does not run.
    PrivateDesktop();
    ~PrivateDesktop();
    Q_DISABLE_COPY_MOVE(PrivateDesktop)

    [[nodiscard]] const PrivateHome &home() const { return m_home; }
    [[nodiscard]] QString busAddress() const { return qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"); }

    /// Moves the pointer, presses buttons and keys; see xdotool(1).
    /// @return whether that was possible
    [[nodiscard]] static bool xdotool(const QStringList &commands);

private:
    PrivateHome m_home;
    QProcess m_screen;
    QProcess m_bus;
    QProcess m_windowManager;
};

} // namespace sonavo
