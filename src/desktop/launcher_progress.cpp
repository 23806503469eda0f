#include "desktop/launcher_progress.h"

#include <QDBusMessage>
#include <QVariantMap>

namespace sonavo {

LauncherProgress::LauncherProgress(const QDBusConnection &bus)
    : m_bus(bus)
{}

void LauncherProgress::show(std::optional<double> fraction)
{
    if (fraction == m_shown)
        return;
    m_shown = fraction;
    QDBusMessage update = QDBusMessage::createSignal(QStringLiteral("/org/sonavo/Sonavo"),
                                                     QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                                     QStringLiteral("Update"));
    update << QStringLiteral("application://org.sonavo.Sonavo.desktop")
           << QVariantMap{{QStringLiteral("progress"), fraction.value_or(0)},
                          {QStringLiteral("progress-visible"), fraction.has_value()}};
    m_bus.send(update);
}

} // namespace sonavo
