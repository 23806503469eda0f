#pragma once

#include <QString>

namespace sonavo {

// What serves programs in a sandbox, too, with whatever desktop there is.
inline const QString PORTAL = QStringLiteral("org.freedesktop.portal.Desktop");
inline const QString PORTAL_PATH = QStringLiteral("/org/freedesktop/portal/desktop");

} // namespace sonavo
