#pragma once

#include <QString>

class QWindow;

namespace sonavo {

/// Shows a window, also one that is minimized, and brings it to the front. Main thread only; needs a
/// QGuiApplication.
/// @param token stands for what the user has just done in another program; most desktops keep the window back
/// without it. A token of xdg_activation_v1 on Wayland, an identifier of the Startup Notification Protocol on
/// X11; may be empty
void bringToFront(QWindow &window, const QString &token);

} // namespace sonavo
