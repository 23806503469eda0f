#include "desktop/notification.h"

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

QDBusMessage methodCall(const QString &method)
{
    return QDBusMessage::createMethodCall(SERVICE, OBJECT_PATH, SERVICE, method);
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
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *watcher) {
        const QDBusPendingReply<uint> id = *watcher;
        m_id = id.isError() ? 0 : id.value();
        watcher->deleteLater();
    });
}

void Notification::withdraw()
{
    if (const uint id = std::exchange(m_id, 0); id != 0)
        m_bus.send(methodCall(QStringLiteral("CloseNotification")) << id);
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

} // namespace sonavo
