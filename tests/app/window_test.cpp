#include "testing/audio_fixtures.h"
#include "testing/music_folder.h"
#include "testing/open_watch.h"
#include "testing/program_window.h"
#include "testing/system_call_listener.h"

#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <atomic>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST_F(ProgramWindow, EndsOnlyWhenTheFileAtHandIsMoved)
{
    std::atomic<quint64> held = 0;
    SystemCallListener listener;
    if (!listener.start({SYS_renameat2}, [&held](const seccomp_notif &call) { held = call.id; }))
        GTEST_SKIP() << "no right to hold system calls, or not the only test";
    MusicFolder music;
    music.addGroups({2});
    QProcess program;
    start(program, QStringLiteral(SONAVO_PROGRAM), {music.path()});
    ASSERT_TRUE(xdotool(visibleWindow + QStringList{u"windowactivate"_s, u"--sync"_s}));
    ASSERT_TRUE(pressUntil([&] { return held != 0; }, {u"Down"_s, u"Delete"_s}));
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
    fillWithSongs(folder.path(), 9'000);
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

TEST_F(ProgramWindow, WorksOnWayland)
{
    QProcess compositor;
    start(compositor, u"weston"_s,
          {u"--backend=x11-backend.so"_s, u"--socket=wayland"_s, u"--idle-time=0"_s, u"--no-config"_s});
    if (!QTest::qWaitFor([this] { return std::filesystem::exists(home.path("wayland")); }, TIMEOUT_MS))
        GTEST_SKIP() << "weston does not start";
    MusicFolder music;
    music.addGroups({2});
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"DISPLAY"_s);
    environment.insert(u"WAYLAND_DISPLAY"_s, u"wayland"_s);
    QProcess program;
    program.setProcessEnvironment(environment);
    start(program, QStringLiteral(SONAVO_PROGRAM), {music.path()});
    ASSERT_TRUE(pressUntil([&] { return filesIn(music.path()).size() == 1; }, {u"Down"_s, u"Delete"_s}));
    ASSERT_TRUE(xdotool({u"key"_s, u"ctrl+z"_s}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return filesIn(music.path()).size() == 2; }, TIMEOUT_MS));
    // What is copied can be pasted into another program, which takes the keyboard when it starts. The path is
    // copied by the last entry but one of the menu.
    QStringList keys{u"key"_s, u"--delay"_s, u"100"_s, u"Down"_s, u"shift+F10"_s};
    keys += QStringList(20, u"Down"_s) + QStringList{u"Up"_s, u"Return"_s};
    QTest::qWait(1'000); // until the list is there again
    ASSERT_TRUE(xdotool(keys));
    const auto shell = home.add("shell", "#!/bin/sh\nwhile read -r line; do echo \"$line\" > " +
                                             home.path("pasted").string() + "; done\n");
    std::filesystem::permissions(shell, std::filesystem::perms::owner_all);
    QProcess terminal;
    terminal.setProcessEnvironment(environment);
    start(terminal, u"weston-terminal"_s, {u"--shell="_s + QString::fromStdString(shell.string())});
    const auto pasted = [this] {
        QFile file(QString::fromStdString(home.path("pasted").string()));
        return file.open(QFile::ReadOnly) ? QFile::decodeName(file.readAll().trimmed()) : QString();
    };
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            return filesIn(music.path()).contains(pasted()) ||
                   !xdotool({u"key"_s, u"--delay"_s, u"100"_s, u"ctrl+shift+v"_s, u"Return"_s});
        },
        TIMEOUT_MS))
        << pasted().toStdString();
    terminal.terminate();
    terminal.waitForFinished();
    // Opens a menu, which is a window of its own here, and leaves it.
    ASSERT_TRUE(xdotool(
        {u"key"_s, u"--delay"_s, u"300"_s, u"alt+f"_s, u"Down"_s, u"Escape"_s, u"Escape"_s, u"ctrl+q"_s}));
    EXPECT_TRUE(program.waitForFinished(TIMEOUT_MS));
    EXPECT_EQ(program.exitCode(), 0);
    const QByteArray warnings = program.readAllStandardError();
    EXPECT_FALSE(warnings.contains("qrc:")) << warnings.toStdString();
    compositor.terminate();
    compositor.waitForFinished();
}

} // namespace
} // namespace sonavo
