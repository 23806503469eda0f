#include "desktop/notification.h"

#include "desktop/portal.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

#include <utility>

namespace sonavo {
namespace {

const QString SERVICE = QStringLiteral("org.freedesktop.Notifications");
const QString OBJECT_PATH = QStringLiteral("/org/freedesktop/Notifications");
const QString CLICK = QStringLiteral("default");
const QString NOTIFICATION_PORTAL = QStringLiteral("org.freedesktop.portal.Notification");
const QString ID_IN_PORTAL = QStringLiteral("outcome");

QDBusMessage methodCall(const QString &method)
{
    return QDBusMessage::createMethodCall(SERVICE, OBJECT_PATH, SERVICE, method);
}

QDBusMessage portalNotification(const QString &method)
{
    return QDBusMessage::createMethodCall(PORTAL, PORTAL_PATH, NOTIFICATION_PORTAL, method) << ID_IN_PORTAL;
}

} // namespace

Notification::Notification(const QDBusConnection &bus, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
{
    m_bus.connect(SERVICE, OBJECT_PATH, SERVICE, QStringLiteral("ActivationToken"), this,
                  SLOT(keepToken(uint, QString)));
    m_bus.connect(SERVICE, OBJECT_PATH, SERVICE, QStringLiteral("ActionInvoked"), this,
                  SLOT(activate(uint, QString)));
    m_bus.connect(PORTAL, PORTAL_PATH, NOTIFICATION_PORTAL, QStringLiteral("ActionInvoked"), this,
                  SLOT(activateByPortal(QString, QString, QVariantList)));
}

Notification::~Notification()
{
    withdraw();
}

void Notification::show(const QString &text)
{
    const QString appId = QStringLiteral("org.sonavo.Sonavo");
    // The text is the summary, which is plain; a body can be markup.
    const QString body;
    constexpr int USUAL_TIME = -1;
    const QDBusPendingCall call =
        m_bus.asyncCall(methodCall(QStringLiteral("Notify"))
                        << QStringLiteral("Sonavo") << m_id << appId << text << body
                        << QStringList{CLICK, tr("Show", "the window, by a click on a notification")}
                        << QVariantMap{{QStringLiteral("desktop-entry"), appId}} << USUAL_TIME);
    const auto *reply = new QDBusPendingCallWatcher(call, this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this, text](QDBusPendingCallWatcher *watcher) {
        const QDBusPendingReply<uint> id = *watcher;
        m_id = id.isError() ? 0 : id.value();
        if (id.isError())
            showByPortal(text);
        watcher->deleteLater();
    });
}

void Notification::showByPortal(const QString &text)
{
    m_isInPortal = true;
    m_bus.send(portalNotification(QStringLiteral("AddNotification"))
               << QVariantMap{{QStringLiteral("title"), text}, {QStringLiteral("default-action"), CLICK}});
}

void Notification::withdraw()
{
    if (const uint id = std::exchange(m_id, 0); id != 0)
        m_bus.send(methodCall(QStringLiteral("CloseNotification")) << id);
    if (std::exchange(m_isInPortal, false))
        m_bus.send(portalNotification(QStringLiteral("RemoveNotification")));
}

void Notification::keepToken(uint id, const QString &token)
{
    if (id == m_id)
        m_token = token;
}

void Notification::activate(uint id, const QString &action)
{
    if (id == m_id && id != 0 && action == CLICK)
        Q_EMIT activated(std::exchange(m_token, {}));
}

void Notification::activateByPortal(const QString &id, const QString &action, const QVariantList &parameter)
{
    if (id != ID_IN_PORTAL || action != CLICK)
        return;
    // What the action is for may come before it.
    const QVariant platformData = parameter.isEmpty() ? QVariant() : parameter.constLast();
    Q_EMIT activated(
        qdbus_cast<QVariantMap>(platformData).value(QStringLiteral("activation-token")).toString());
}

} // namespace sonavo
