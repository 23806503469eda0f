#include "testing/audio_fixtures.h"
#include "testing/music_folder.h"
#include "testing/open_watch.h"
#include "testing/private_home.h"
#include "testing/system_call_listener.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

#include <atomic>

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

/// The real program on a screen of its own.
class ProgramWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        qunsetenv("QT_QPA_PLATFORM");
        qunsetenv("WAYLAND_DISPLAY");
        qputenv("XDG_RUNTIME_DIR", home.path().c_str());
        // GLib gives up tables of names on purpose, and a scan that is cut short leaves everything as it is.
        qputenv("ASAN_OPTIONS", "detect_leaks=0");
        start(screen, u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-nolisten"_s, u"tcp"_s, u"-noreset"_s});
        if (!QTest::qWaitFor([&] { return screen.canReadLine(); }, TIMEOUT_MS)) {
            ASSERT_FALSE(qEnvironmentVariableIsSet("SONAVO_REQUIRE_DISPLAY"));
            GTEST_SKIP() << "Xvfb does not start";
        }
        qputenv("DISPLAY", ':' + screen.readLine().trimmed());
        start(windowManager, u"openbox"_s, {u"--sm-disable"_s});
    }
    void TearDown() override
    {
        for (QProcess *process : {&windowManager, &screen}) {
            process->terminate();
            process->waitForFinished();
        }
    }

    const QStringList visibleWindow{u"search"_s, u"--onlyvisible"_s, u"--name"_s, u"^Sonavo$"_s};
    const PrivateHome home;
    QProcess screen;
    QProcess windowManager;
};

TEST_F(ProgramWindow, EndsOnlyWhenTheFileAtHandIsMoved)
{
    std::atomic<quint64> held = 0;
    SystemCallListener listener;
    if (!listener.start({SYS_renameat2}, [&held](const seccomp_notif &call) { held = call.id; }))
        GTEST_SKIP() << "no right to hold system calls";
    MusicFolder music;
    music.addGroups({2});
    QProcess program;
    start(program, QStringLiteral(SONAVO_PROGRAM), {music.path()});
    ASSERT_TRUE(xdotool(visibleWindow + QStringList{u"windowactivate"_s, u"--sync"_s}));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            return held != 0 || !xdotool({u"key"_s, u"Down"_s, u"Delete"_s});
        },
        TIMEOUT_MS));
    program.terminate();
    // Longer than the program waits for anything else.
    EXPECT_FALSE(program.waitForFinished(7'000));
    EXPECT_NE(QProcess::execute(u"xdotool"_s, visibleWindow), 0) << "the window is still there";
    listener.letThrough(held);
    ASSERT_TRUE(program.waitForFinished(TIMEOUT_MS));
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(filesIn(music.path()).size(), 1);
    EXPECT_EQ(filesIn(QFile::decodeName(home.path(".local/share/Trash").c_str())).size(), 2);
}

TEST_F(ProgramWindow, ClosesAtOnceDuringAScan)
{
    const QTemporaryDir folder;
    fillWithSongs(folder.path(), 20'000);
    OpenWatch songs(folder.path());
    OpenWatch settings(QFile::decodeName(home.add(".config/sonavo/sonavo.conf").c_str()));
    // By two signals, by its own key, and by the window manager's for closing a window.
    for (const QString &end : {u"TERM"_s, u"INT"_s, u"ctrl+q"_s, u"alt+F4"_s}) {
        SCOPED_TRACE(end.toStdString());
        QProcess program;
        start(program, QStringLiteral(SONAVO_PROGRAM), {folder.path()});
        ASSERT_TRUE(xdotool(visibleWindow + QStringList{u"windowactivate"_s, u"--sync"_s}));
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
}

} // namespace
} // namespace sonavo
