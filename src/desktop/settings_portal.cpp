#include "desktop/settings_portal.h"

#include "desktop/portal.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <algorithm>

namespace sonavo {
namespace {

const QString PORTAL_SETTINGS = QStringLiteral("org.freedesktop.portal.Settings");

// Every desktop is to offer the first; the others are those of two that are older.
const QString APPEARANCE = QStringLiteral("org.freedesktop.appearance");
const QString GNOME = QStringLiteral("org.gnome.desktop.interface");
const QString GNOME_ACCESSIBILITY = QStringLiteral("org.gnome.desktop.a11y.interface");
const QString KDE = QStringLiteral("org.kde.kdeglobals.KDE");

QDBusMessage portalCall(const QString &method)
{
    return QDBusMessage::createMethodCall(PORTAL, PORTAL_PATH, PORTAL_SETTINGS, method);
}

/// Some portals wrap values twice.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = qvariant_cast<QDBusVariant>(value).variant();
    return value;
}

} // namespace

SettingsPortal::SettingsPortal(const QDBusConnection &bus, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
{
    qDBusRegisterMetaType<Settings>();
    m_bus.connect(PORTAL, PORTAL_PATH, PORTAL_SETTINGS, QStringLiteral("SettingChanged"), this,
                  SLOT(change(QDBusMessage)));
    // One that starts later, or again, may have other settings.
    const auto *watcher =
        new QDBusServiceWatcher(PORTAL, m_bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &SettingsPortal::read);
    read();
}

bool SettingsPortal::isHighContrast() const
{
    constexpr uint HIGHER = 1;
    return value(APPEARANCE, QStringLiteral("contrast")).toUInt() == HIGHER ||
           value(GNOME_ACCESSIBILITY, QStringLiteral("high-contrast")).toBool();
}

bool SettingsPortal::isMotionReduced() const
{
    constexpr uint REDUCED = 1;
    const QVariant isAnimated = value(GNOME, QStringLiteral("enable-animations"));
    const QVariant durations = value(KDE, QStringLiteral("AnimationDurationFactor"));
    return value(APPEARANCE, QStringLiteral("reduced-motion")).toUInt() == REDUCED ||
           (isAnimated.isValid() && !isAnimated.toBool()) ||
           (durations.isValid() && durations.toDouble() <= 0.0);
}

void SettingsPortal::read()
{
    const QDBusPendingCall call = m_bus.asyncCall(
        portalCall(QStringLiteral("ReadAll")) << QStringList{APPEARANCE, GNOME, GNOME_ACCESSIBILITY, KDE});
    const auto *reply = new QDBusPendingCallWatcher(call, this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *watcher) {
        watcher->deleteLater();
        const QDBusPendingReply<Settings> settings = *watcher;
        if (settings.isError())
            return;
        m_settings = settings.value();
        Q_EMIT changed();
    });
}

void SettingsPortal::change(const QDBusMessage &signal)
{
    const QVariantList arguments = signal.arguments();
    m_settings[arguments.value(0).toString()][arguments.value(1).toString()] = arguments.value(2);
    Q_EMIT changed();
}

QVariant SettingsPortal::value(const QString &group, const QString &key) const
{
    return unwrapped(m_settings.value(group).value(key));
}

double readTextScale(const QDBusConnection &bus, std::chrono::milliseconds timeout)
{
    constexpr double SMALLEST = 0.5;
    constexpr double LARGEST = 3.0;
    QDBusMessage message = portalCall(QStringLiteral("Read"));
    message.setAutoStartService(false);
    message << GNOME << QStringLiteral("text-scaling-factor");
    const QDBusMessage reply = bus.call(message, QDBus::Block, static_cast<int>(timeout.count()));
    const double scale = unwrapped(reply.arguments().value(0)).toDouble();
    return reply.type() == QDBusMessage::ReplyMessage && scale > 0.0 ? std::clamp(scale, SMALLEST, LARGEST)
                                                                     : 1.0;
}

} // namespace sonavo
