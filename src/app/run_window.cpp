#include "app/run_window.h"

#include "app/application_service.h"
#include "app/process_exit.h"
#include "app/sonavo_app.h"
#include "desktop/session_bus.h"
#include "desktop/settings_portal.h"
#include "language/language.h"
#include "session/file_job.h"

#include <QApplication>
#include <QIcon>
#include <QStyleFactory>
#include <QWindow>

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>

namespace sonavo {

using namespace std::chrono_literals;

namespace {

/// Without a display, Qt aborts the program with a message that does not help.
bool hasDisplay()
{
    constexpr std::array VARIABLES{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return std::any_of(VARIABLES.begin(), VARIABLES.end(),
                       [](const char *variable) { return !qEnvironmentVariableIsEmpty(variable); });
}

/// A line on standard error, in the user's language.
/// @param text of the context Start
void printMessage(const char *text)
{
    std::fprintf(stderr, "sonavo: %s\n", systemLanguageText("Start", text).toUtf8().constData());
}

/// For the time in which the application is created: if none of the displays that are named works, Qt warns
/// at length and then crashes.
void handleStartMessage(QtMsgType type, const QMessageLogContext & /*context*/, const QString & /*message*/)
{
    if (type != QtFatalMsg)
        return;
    printMessage(QT_TRANSLATE_NOOP("Start", "no window can be opened on this display; --report needs none"));
    ::_exit(static_cast<int>(ExitStatus::NoWindow));
}

/// Makes this process the one whose window others use, or leaves the request to the one that is.
/// @return the exit status when nothing is left to do
std::optional<ExitStatus> shareWindow(ApplicationService &service, const WindowRequest &request)
{
    if (!doesSessionBusAnswer(500ms)) {
        // Qt would wait for it, or start one.
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        return {};
    }
    const std::optional<QDBusConnection> bus = isInstalled() ? waitForSessionBus(1s) : std::nullopt;
    if (!bus || service.claimName(*bus) || request.window == WindowChoice::New)
        return {};
    switch (handOver(*bus, request.items, 5s)) {
    case HandOver::Accepted:
        return ExitStatus::Success;
    case HandOver::Refused:
        printMessage(
            QT_TRANSLATE_NOOP("Start", "the window is busy and can scan nothing until that is done"));
        return ExitStatus::WindowBusy;
    case HandOver::Failed:
        break;
    }
    return {};
}

/// Which platform Qt will choose.
bool usesWayland()
{
    if (const QByteArray platform = qgetenv("QT_QPA_PLATFORM"); !platform.isEmpty())
        return platform.startsWith("wayland");
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
           (qEnvironmentVariableIsEmpty("DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland");
}

/// By how much text should be larger, apart from what Qt does by itself: it scales everything with the
/// resolution that QT_FONT_DPI gives or, on X11, that the desktop has set for fonts.
double textScale()
{
    if (!usesWayland() || qEnvironmentVariableIsSet("QT_FONT_DPI"))
        return 1.0;
    // Set by one of the desktops.
    constexpr const char *WAYLAND_DPI = "QT_WAYLAND_FORCE_DPI";
    constexpr double NORMAL_DPI = 96.0;
    if (const double dpi = qEnvironmentVariable(WAYLAND_DPI).toDouble(); dpi > 0.0) {
        // Qt would enlarge its own texts once more.
        qunsetenv(WAYLAND_DPI);
        return dpi / NORMAL_DPI;
    }
    const std::optional<QDBusConnection> bus = waitForSessionBus(1s);
    return bus ? readTextScale(*bus, 500ms) : 1.0;
}

/// All sizes are in logical pixels, which a larger text alone does not change.
void scaleWithText()
{
    constexpr const char *SCALE = "QT_SCALE_FACTOR";
    if (qEnvironmentVariableIsSet(SCALE))
        return;
    if (const double scale = textScale(); scale != 1.0)
        qputenv(SCALE, QByteArray::number(scale));
}

} // namespace

ExitStatus runWindow(int &argc, char **argv, const WindowRequest &request)
{
    if (!hasDisplay()) {
        printMessage(
            QT_TRANSLATE_NOOP("Start", "there is no display to open a window on; --report needs none"));
        return ExitStatus::NoWindow;
    }
    ApplicationService service;
    if (const std::optional<ExitStatus> status = shareWindow(service, request))
        return *status;
    scaleWithText();
    // For the file dialogs: unlike the style of some desktops, this one takes the theme's colours.
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    qInstallMessageHandler(handleStartMessage);
    const QApplication application(argc, argv);
    qInstallMessageHandler(nullptr);
    useSystemLanguage();
    QApplication::setApplicationDisplayName(QStringLiteral("Sonavo"));
    QApplication::setDesktopFileName(QStringLiteral("org.sonavo.Sonavo"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/qt/qml/Sonavo/icons/logo.svg")));

    const QuitOnSignal quitOnSignal;
    SonavoApp app;
    if (!app.launch(request.items))
        return ExitStatus::NoWindow;
    service.setHandler([&app](const OpenRequest &opened) { return app.open(opened); });
    const ExitStatus status = QApplication::exec() == 0 ? ExitStatus::Success : ExitStatus::NoWindow;
    service.setHandler({});
    service.releaseName();
    // The window goes at once, but a file that is being moved is moved to the end.
    for (QWindow *window : QApplication::topLevelWindows())
        window->hide();
    QApplication::processEvents();
    fileJobThread().waitForDone();
    forceExitAfter(5s, status);
    return status;
}

} // namespace sonavo
