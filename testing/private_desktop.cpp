#include "testing/private_desktop.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QTest>

#include <csignal>
#include <sys/prctl.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int TIMEOUT_MS = 30'000;
const QString ACCESSIBLE = u"org.a11y.atspi.Accessible"_s;
const QString REGISTRY_PATH = u"/org/a11y/atspi/accessible/root"_s;

void start(QProcess &process, const QString &command)
{
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.startCommand(command);
}

/// The line in which a server says its address.
QByteArray firstLine(QProcess &process)
{
    if (!QTest::qWaitFor([&] { return process.canReadLine(); }, TIMEOUT_MS))
        throw std::runtime_error(process.program().toStdString() + " does not start");
    return process.readLine().trimmed();
}

QVariant call(const QDBusConnection &bus, const QString &service, const QString &path,
              const QString &interface, const QString &method, const QVariantList &arguments = {})
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    const QDBusMessage reply = bus.call(message, QDBus::Block, TIMEOUT_MS);
    return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments().value(0) : QVariant();
}

void read(const QDBusConnection &bus, const QString &service, const QString &path, QStringList &names)
{
    // The states are bits; the protocol numbers this one (ATSPI_STATE_SHOWING).
    constexpr uint SHOWING = 1U << 25U;
    QList<std::pair<QString, QDBusObjectPath>> children;
    call(bus, service, path, ACCESSIBLE, u"GetChildren"_s).value<QDBusArgument>() >> children;
    for (const auto &[owner, object] : children) {
        const QString child = object.path();
        const auto states = qdbus_cast<QList<uint>>(call(bus, owner, child, ACCESSIBLE, u"GetState"_s));
        // Only what is in a program can be hidden.
        if (path != REGISTRY_PATH && (states.value(0) & SHOWING) == 0)
            continue;
        const QVariant name =
            call(bus, owner, child, u"org.freedesktop.DBus.Properties"_s, u"Get"_s, {ACCESSIBLE, u"Name"_s});
        names.append(name.value<QDBusVariant>().variant().toString());
        read(bus, owner, child, names);
    }
}

} // namespace

PrivateDesktop::PrivateDesktop()
{
    for (const char *variable :
         {"WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "AT_SPI_BUS_ADDRESS", "SESSION_MANAGER"})
        qunsetenv(variable);
    qputenv("XDG_RUNTIME_DIR", m_home.path().c_str());
    // Programs take part as if a screen reader had asked them to.
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    start(m_screen, u"Xvfb -displayfd 1 -screen 0 1600x1000x24 -nolisten tcp -noreset"_s);
    start(m_bus, u"dbus-daemon --session --nofork --print-address"_s);
    qputenv("DISPLAY", ':' + firstLine(m_screen));
    qputenv("DBUS_SESSION_BUS_ADDRESS", firstLine(m_bus));
    start(m_windowManager, u"openbox --sm-disable"_s);
    // Only a window manager knows of desktops.
    if (!QTest::qWaitFor([] { return xdotool(u"get_desktop"_s); }, TIMEOUT_MS))
        throw std::runtime_error("openbox does not start");
    const QVariant address = call(QDBusConnection::sessionBus(), u"org.a11y.Bus"_s, u"/org/a11y/bus"_s,
                                  u"org.a11y.Bus"_s, u"GetAddress"_s);
    m_accessibility = QDBusConnection::connectToBus(address.toString(), u"accessibility"_s);
    if (!m_accessibility.isConnected())
        throw std::runtime_error("there is no accessibility bus");
}

PrivateDesktop::~PrivateDesktop()
{
    QDBusConnection::disconnectFromBus(m_accessibility.name());
    for (QProcess *process : {&m_windowManager, &m_bus, &m_screen}) {
        process->terminate();
        process->waitForFinished(TIMEOUT_MS);
    }
}

bool PrivateDesktop::xdotool(const QString &commands)
{
    QProcess tool;
    tool.setStandardErrorFile(QProcess::nullDevice());
    tool.startCommand(u"xdotool "_s + commands);
    return tool.waitForFinished(TIMEOUT_MS) && tool.exitCode() == 0;
}

QStringList PrivateDesktop::accessibleNames() const
{
    QStringList names;
    read(m_accessibility, u"org.a11y.atspi.Registry"_s, REGISTRY_PATH, names);
    return names;
}

} // namespace sonavo
