#include "testing/audio_fixtures.h"
#include "testing/open_watch.h"
#include "testing/private_home.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

#include <csignal>
#include <gtest/gtest.h>
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

/// Retries until it works: windows that come and go make xdotool fail.
[[nodiscard]] bool xdotool(const QStringList &commands)
{
    return QTest::qWaitFor([&] { return QProcess::execute(u"xdotool"_s, commands) == 0; }, TIMEOUT_MS);
}

TEST(ProgramWindow, ClosesAtOnceDuringAScan)
{
    const PrivateHome home;
    qunsetenv("QT_QPA_PLATFORM");
    qunsetenv("WAYLAND_DISPLAY");
    qputenv("XDG_RUNTIME_DIR", home.path().c_str());
    // GLib gives up tables of names on purpose, and a scan that is cut short leaves everything as it is.
    qputenv("ASAN_OPTIONS", "detect_leaks=0");
    QProcess screen;
    start(screen, u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-nolisten"_s, u"tcp"_s, u"-noreset"_s});
    if (!QTest::qWaitFor([&] { return screen.canReadLine(); }, TIMEOUT_MS)) {
        ASSERT_FALSE(qEnvironmentVariableIsSet("SONAVO_REQUIRE_DISPLAY"));
        GTEST_SKIP() << "Xvfb does not start";
    }
    qputenv("DISPLAY", ':' + screen.readLine().trimmed());
    QProcess windowManager;
    start(windowManager, u"openbox"_s, {u"--sm-disable"_s});

    const QTemporaryDir folder;
    fillWithSongs(folder.path(), 20'000);
    OpenWatch songs(folder.path());
    OpenWatch settings(QFile::decodeName(home.add(".config/sonavo/sonavo.conf").c_str()));
    // By two signals, by its own key, and by the window manager's for closing a window.
    for (const QString &end : {u"TERM"_s, u"INT"_s, u"ctrl+q"_s, u"alt+F4"_s}) {
        SCOPED_TRACE(end.toStdString());
        QProcess program;
        start(program, QStringLiteral(SONAVO_PROGRAM), {folder.path()});
        ASSERT_TRUE(xdotool(
            {u"search"_s, u"--onlyvisible"_s, u"--name"_s, u"^Sonavo$"_s, u"windowactivate"_s, u"--sync"_s}));
        // One opening is that of the folder.
        int openings = 0;
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return (openings += songs.sawOpening() ? 1 : 0) > 1; }, TIMEOUT_MS));
        EXPECT_TRUE(settings.sawOpening());
        QElapsedTimer timer;
        timer.start();
        const QString id = QString::number(program.processId());
        EXPECT_EQ(end.contains(u'+') ? QProcess::execute(u"xdotool"_s, {u"key"_s, end})
                                     : QProcess::execute(u"kill"_s, {u"-s"_s, end, id}),
                  0);
        ASSERT_TRUE(program.waitForFinished(TIMEOUT_MS));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0);
        EXPECT_LT(timer.elapsed(), 5'000);
        const QByteArray warnings = program.readAllStandardError();
        EXPECT_FALSE(HasFailure() || warnings.contains("qrc:")) << warnings.toStdString();
    }
    for (QProcess *process : {&windowManager, &screen}) {
        process->terminate();
        process->waitForFinished();
    }
}

} // namespace
} // namespace sonavo
