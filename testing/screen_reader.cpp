#include "testing/screen_reader.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <stdexcept>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString SESSION = u"sonavo-test-session"_s;
const QString ACCESSIBILITY = u"sonavo-test-accessibility"_s;
const QString ACCESSIBLE = u"org.a11y.atspi.Accessible"_s;
const QString PROPERTIES = u"org.freedesktop.DBus.Properties"_s;

QVariant call(const QDBusConnection &bus, const QString &service, const QString &path,
              const QString &interface, const QString &method, const QVariantList &arguments = {})
{
    constexpr int TIMEOUT_MS = 5'000;
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    const QDBusMessage reply = bus.call(message, QDBus::Block, TIMEOUT_MS);
    return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments().value(0) : QVariant();
}

QDBusConnection accessibilityBus(const QString &sessionBusAddress)
{
    const QDBusConnection session = QDBusConnection::connectToBus(sessionBusAddress, SESSION);
    const QString service = u"org.a11y.Bus"_s;
    const QString path = u"/org/a11y/bus"_s;
    const QString address = call(session, service, path, service, u"GetAddress"_s).toString();
    call(session, service, path, PROPERTIES, u"Set"_s,
         {u"org.a11y.Status"_s, u"IsEnabled"_s, QVariant::fromValue(QDBusVariant(true))});
    return QDBusConnection::connectToBus(address, ACCESSIBILITY);
}

} // namespace

ScreenReader::ScreenReader(const QString &sessionBusAddress)
    : m_bus(accessibilityBus(sessionBusAddress))
{
    if (!m_bus.isConnected())
        throw std::runtime_error("there is no accessibility bus");
}

ScreenReader::~ScreenReader()
{
    QDBusConnection::disconnectFromBus(ACCESSIBILITY);
    QDBusConnection::disconnectFromBus(SESSION);
}

QStringList ScreenReader::names(const QString &program) const
{
    QStringList names;
    read(u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/accessible/root"_s, program, names);
    return names;
}

void ScreenReader::read(const QString &service, const QString &path, const QString &program,
                        QStringList &names) const
{
    // The states are bits; the protocol numbers this one (ATSPI_STATE_SHOWING).
    constexpr uint SHOWING = 25;
    QList<std::pair<QString, QDBusObjectPath>> children;
    call(m_bus, service, path, ACCESSIBLE, u"GetChildren"_s).value<QDBusArgument>() >> children;
    for (const auto &[owner, object] : children) {
        const QString child = object.path();
        const auto name = call(m_bus, owner, child, PROPERTIES, u"Get"_s, {ACCESSIBLE, u"Name"_s})
                              .value<QDBusVariant>()
                              .variant()
                              .toString();
        const auto states = qdbus_cast<QList<uint>>(call(m_bus, owner, child, ACCESSIBLE, u"GetState"_s));
        const bool isShown = !states.isEmpty() && (states[0] >> SHOWING & 1U) != 0;
        if (program.isEmpty() ? !isShown : name != program)
            continue;
        names.append(name);
        read(owner, child, {}, names);
    }
}

} // namespace sonavo
