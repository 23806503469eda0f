#include "testing/private_desktop.h"

#include <QTest>

#include <csignal>
#include <sys/prctl.h>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int TIMEOUT_MS = 30'000;

void start(QProcess &process, const QString &program, const QStringList &arguments)
{
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.start(program, arguments);
}

/// The line in which a server says its address.
QByteArray firstLine(QProcess &process)
{
    if (!QTest::qWaitFor([&] { return process.canReadLine(); }, TIMEOUT_MS))
        throw std::runtime_error(process.program().toStdString() + " does not start");
    return process.readLine().trimmed();
}

} // namespace

PrivateDesktop::PrivateDesktop()
{
    for (const char *variable :
         {"WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "AT_SPI_BUS_ADDRESS", "SESSION_MANAGER"})
        qunsetenv(variable);
    qputenv("XDG_RUNTIME_DIR", m_home.path().c_str());
    start(m_screen, u"Xvfb"_s, u"-displayfd 1 -screen 0 1600x1000x24 -nolisten tcp -noreset"_s.split(u' '));
    start(m_bus, u"dbus-daemon"_s, u"--session --nofork --print-address"_s.split(u' '));
    qputenv("DISPLAY", ':' + firstLine(m_screen));
    qputenv("DBUS_SESSION_BUS_ADDRESS", firstLine(m_bus));
    start(m_windowManager, u"openbox"_s, {u"--sm-disable"_s});
    // Only a window manager knows of desktops.
    if (!QTest::qWaitFor([] { return xdotool({u"get_desktop"_s}); }, TIMEOUT_MS))
        throw std::runtime_error("openbox does not start");
}

PrivateDesktop::~PrivateDesktop()
{
    for (QProcess *process : {&m_windowManager, &m_bus, &m_screen}) {
        process->terminate();
        process->waitForFinished(TIMEOUT_MS);
    }
}

bool PrivateDesktop::xdotool(const QStringList &commands)
{
    QProcess tool;
    tool.setStandardErrorFile(QProcess::nullDevice());
    tool.start(u"xdotool"_s, commands);
    return tool.waitForFinished(TIMEOUT_MS) && tool.exitCode() == 0;
}

} // namespace sonavo
