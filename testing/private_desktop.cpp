#include "testing/private_desktop.h"

#include <QFile>
#include <QTest>
#include <QtEndian>

#include <csignal>
#include <sys/prctl.h>

#include <stdexcept>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int PATIENCE_MS = 30'000;
constexpr auto SCREEN = "1600x1000x24";

} // namespace

PrivateDesktop::PrivateDesktop()
{
    m_environment.insert(u"HOME"_s, m_home.path());
    m_environment.insert(u"XDG_RUNTIME_DIR"_s, m_home.path());
#ifdef __SANITIZE_ADDRESS__
    // What an OpenGL driver leaks is not the program's, and cannot be told from it once the driver is
    // unloaded.
    m_environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
#endif
    for (const QString &variable :
         {u"XDG_CONFIG_HOME"_s, u"XDG_DATA_HOME"_s, u"XDG_CACHE_HOME"_s, u"WAYLAND_DISPLAY"_s,
          u"QT_QPA_PLATFORM"_s, u"DBUS_SESSION_BUS_ADDRESS"_s, u"AT_SPI_BUS_ADDRESS"_s, u"SESSION_MANAGER"_s})
        m_environment.remove(variable);
}

PrivateDesktop::~PrivateDesktop()
{
    for (const auto &process : {m_windowManager.get(), m_bus.get(), m_screen.get()}) {
        if (!process)
            continue;
        process->terminate();
        process->waitForFinished(PATIENCE_MS);
    }
}

void PrivateDesktop::start()
{
    m_screen =
        newProcess(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, QString::fromLatin1(SCREEN),
                               u"-nolisten"_s, u"tcp"_s, u"-noreset"_s, u"-fbdir"_s, m_home.path()});
    m_environment.insert(u"DISPLAY"_s, u':' + startAndReadLine(*m_screen));

    m_bus = newProcess(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
    m_busAddress = startAndReadLine(*m_bus);
    m_environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, m_busAddress);

    m_windowManager = newProcess(u"openbox"_s, {u"--sm-disable"_s});
    m_windowManager->start();
    // Only a window manager knows of desktops.
    if (!QTest::qWaitFor([this] { return xdotool({u"get_desktop"_s}); }, PATIENCE_MS))
        throw std::runtime_error("openbox does not start");
}

QString PrivateDesktop::startAndReadLine(QProcess &process)
{
    process.start();
    const auto hasLineOrEnded = [&] {
        return process.canReadLine() || process.state() == QProcess::NotRunning;
    };
    if (!QTest::qWaitFor(hasLineOrEnded, PATIENCE_MS) || !process.canReadLine())
        throw std::runtime_error(process.program().toStdString() +
                                 " does not start: " + process.readAllStandardError().toStdString());
    return QString::fromUtf8(process.readLine()).trimmed();
}

QColor PrivateDesktop::pixelAt(const QPoint &point) const
{
    // The screen's memory, as xwd(1) would save it: numbers of four bytes, with the highest first.
    QFile file(m_home.filePath(u"Xvfb_screen0"_s));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray header = file.read(100);
    const auto field = [&header](qsizetype index) {
        return static_cast<qint64>(qFromBigEndian<quint32>(header.constData() + 4 * index));
    };
    if (header.size() < 100 || point.x() < 0 || point.x() >= field(4) || point.y() < 0 ||
        point.y() >= field(5))
        return {};
    constexpr qint64 COLOR_ENTRY = 12;
    file.seek(field(0) + field(19) * COLOR_ENTRY + point.y() * field(12) + point.x() * field(11) / 8);
    const QByteArray pixel = file.read(4);
    return pixel.size() == 4 ? QColor::fromRgb(qFromLittleEndian<quint32>(pixel.constData())) : QColor();
}

bool PrivateDesktop::xdotool(const QStringList &commands) const
{
    const auto tool = newProcess(u"xdotool"_s, commands);
    tool->start();
    return tool->waitForFinished(PATIENCE_MS) && tool->exitCode() == 0;
}

bool PrivateDesktop::click(const QPoint &point) const
{
    return xdotool(
        {u"mousemove"_s, QString::number(point.x()), QString::number(point.y()), u"click"_s, u"1"_s});
}

std::unique_ptr<QProcess> PrivateDesktop::newProcess(const QString &program,
                                                     const QStringList &arguments) const
{
    auto process = std::make_unique<QProcess>();
    process->setProgram(program);
    process->setArguments(arguments);
    process->setProcessEnvironment(m_environment);
    process->setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    return process;
}

} // namespace sonavo
