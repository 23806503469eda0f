#include "testing/screen_reader.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <stdexcept>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int PATIENCE_MS = 5'000;
const QString SESSION = u"sonavo-test-session"_s;
const QString ACCESSIBILITY = u"sonavo-test-accessibility"_s;
const QString ACCESSIBLE = u"org.a11y.atspi.Accessible"_s;
const QString PROPERTIES = u"org.freedesktop.DBus.Properties"_s;

QVariant answer(const QDBusConnection &bus, const QString &service, const QString &path,
                const QString &interface, const QString &method, const QVariantList &arguments = {})
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, method);
    call.setArguments(arguments);
    const QDBusMessage reply = bus.call(call, QDBus::Block, PATIENCE_MS);
    return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments().value(0) : QVariant();
}

QDBusConnection accessibilityBus(const QString &sessionAddress)
{
    const QDBusConnection session = QDBusConnection::connectToBus(sessionAddress, SESSION);
    const QString service = u"org.a11y.Bus"_s;
    const QString path = u"/org/a11y/bus"_s;
    const QString address = answer(session, service, path, service, u"GetAddress"_s).toString();
    answer(session, service, path, PROPERTIES, u"Set"_s,
           {u"org.a11y.Status"_s, u"IsEnabled"_s, QVariant::fromValue(QDBusVariant(true))});
    return QDBusConnection::connectToBus(address, ACCESSIBILITY);
}

} // namespace

ScreenReader::ScreenReader(const QString &busAddress)
    : m_bus(accessibilityBus(busAddress))
{
    if (!m_bus.isConnected())
        throw std::runtime_error("there is no accessibility bus");
}

ScreenReader::~ScreenReader()
{
    QDBusConnection::disconnectFromBus(ACCESSIBILITY);
    QDBusConnection::disconnectFromBus(SESSION);
}

std::vector<ScreenReader::Node> ScreenReader::read(const QString &program) const
{
    const Node registry{u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/accessible/root"_s, {}, {}};
    std::vector<Node> nodes;
    for (const Node &application : childrenOf(registry)) {
        if (application.name == program)
            read(application, nodes);
    }
    return nodes;
}

void ScreenReader::read(const Node &node, std::vector<Node> &nodes) const
{
    nodes.push_back(node);
    for (const Node &child : childrenOf(node)) {
        if (isShowing(child))
            read(child, nodes);
    }
}

std::vector<ScreenReader::Node> ScreenReader::childrenOf(const Node &node) const
{
    std::vector<Node> children;
    const auto list =
        answer(m_bus, node.service, node.path, ACCESSIBLE, u"GetChildren"_s).value<QDBusArgument>();
    if (list.currentType() != QDBusArgument::ArrayType)
        return children;
    list.beginArray();
    while (!list.atEnd()) {
        Node child;
        QDBusObjectPath path;
        list.beginStructure();
        list >> child.service >> path;
        list.endStructure();
        child.path = path.path();
        child.role = answer(m_bus, child.service, child.path, ACCESSIBLE, u"GetRoleName"_s).toString();
        child.name = answer(m_bus, child.service, child.path, PROPERTIES, u"Get"_s, {ACCESSIBLE, u"Name"_s})
                         .value<QDBusVariant>()
                         .variant()
                         .toString();
        children.push_back(child);
    }
    list.endArray();
    return children;
}

bool ScreenReader::isShowing(const Node &node) const
{
    // The states are bits; the number of this one is fixed by the protocol (ATSPI_STATE_SHOWING).
    constexpr uint SHOWING = 25;
    const auto words =
        qdbus_cast<QList<uint>>(answer(m_bus, node.service, node.path, ACCESSIBLE, u"GetState"_s));
    return !words.isEmpty() && (words[0] >> SHOWING & 1U) != 0;
}

QRect ScreenReader::placeOf(const Node &node) const
{
    constexpr uint ON_SCREEN = 0;
    return qdbus_cast<QRect>(
        answer(m_bus, node.service, node.path, u"org.a11y.atspi.Component"_s, u"GetExtents"_s, {ON_SCREEN}));
}

} // namespace sonavo
