#include "app/run_window.h"

#include "app/process_exit.h"
#include "app/sonavo_app.h"
#include "session/file_job.h"

#include <QApplication>
#include <QIcon>
#include <QStyleFactory>
#include <QWindow>

#include <algorithm>
#include <array>
#include <cstdio>

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

/// All sizes are in logical pixels, which the resolution of fonts alone does not change.
void scaleWithFonts()
{
    constexpr double NORMAL_DPI = 96.0;
    constexpr const char *FONT_DPI = "QT_FONT_DPI";
    constexpr const char *SCALE = "QT_SCALE_FACTOR";
    const double dpi = qEnvironmentVariable(FONT_DPI).toDouble();
    if (dpi <= NORMAL_DPI || qEnvironmentVariableIsSet(SCALE))
        return;
    qputenv(SCALE, QByteArray::number(dpi / NORMAL_DPI));
    qunsetenv(FONT_DPI);
}

} // namespace

ExitStatus runWindow(int &argc, char **argv, const WindowRequest &request)
{
    if (!hasDisplay()) {
        std::fputs("sonavo: there is no display to open a window on; --report needs none\n", stderr);
        return ExitStatus::NoWindow;
    }
    scaleWithFonts();
    // For the file dialogs: unlike the style of some desktops, this one takes the theme's colours.
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Sonavo"));
    QApplication::setDesktopFileName(QStringLiteral("org.sonavo.Sonavo"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/qt/qml/Sonavo/icons/logo.svg")));

    const QuitOnSignal quitOnSignal;
    SonavoApp app;
    if (!app.launch(request.items))
        return ExitStatus::NoWindow;
    const ExitStatus status = QApplication::exec() == 0 ? ExitStatus::Success : ExitStatus::NoWindow;
    // The window goes at once, but a file that is being moved is moved to the end.
    for (QWindow *window : QApplication::topLevelWindows())
        window->hide();
    QApplication::processEvents();
    fileJobThread().waitForDone();
    forceExitAfter(5s, status);
    return status;
}

} // namespace sonavo
