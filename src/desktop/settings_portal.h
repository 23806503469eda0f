#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QMap>
#include <QObject>
#include <QVariantMap>

#include <chrono>

namespace sonavo {

/// What the user has set for all programs, as the desktop's portal tells it
/// (org.freedesktop.portal.Settings). Follows changes. Everything is as usual until the portal has answered,
/// which is never waited for. Main thread only.
class SettingsPortal : public QObject
{
    Q_OBJECT

public:
    /// @param bus must be connected
    explicit SettingsPortal(const QDBusConnection &bus, QObject *parent = nullptr);

    [[nodiscard]] bool isHighContrast() const;
    /// Whether programs should not move things without need.
    [[nodiscard]] bool isMotionReduced() const;

Q_SIGNALS:
    void changed();

private:
    /// Values by name, by namespace.
    using Settings = QMap<QString, QVariantMap>;

    Q_SLOT void read();
    Q_SLOT void change(const QDBusMessage &signal);
    [[nodiscard]] QVariant value(const QString &group, const QString &key) const;

    QDBusConnection m_bus;
    Settings m_settings;
};

/// By how much the user wants text to be larger, read from the portal. Waits for its answer, for at most
/// `timeout`; starts no portal.
/// @param bus must be connected
/// @return from 0.5 to 3.0; 1.0 where nothing is known
[[nodiscard]] double readTextScale(const QDBusConnection &bus, std::chrono::milliseconds timeout);

} // namespace sonavo
