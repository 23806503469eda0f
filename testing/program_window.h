#pragma once

#include "testing/private_home.h"

#include <QProcess>
#include <QTest>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/prctl.h>

namespace sonavo {

using namespace Qt::Literals::StringLiterals;

inline constexpr int TIMEOUT_MS = 30'000;

/// Starts a program that ends with this process.
inline void start(QProcess &process, const QString &program, const QStringList &arguments)
{
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.start(program, arguments);
}

/// Retries until it works: windows that come and go make xdotool fail.
[[nodiscard]] inline bool xdotool(const QStringList &commands)
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
        // A window that is there before its manager gets no keys. This fails until there is one.
        ASSERT_TRUE(xdotool({u"get_desktop"_s}));
    }
    void TearDown() override
    {
        for (QProcess *process : {&windowManager, &screen}) {
            process->terminate();
            process->waitForFinished();
        }
    }

    /// Presses keys, one after the other and again and again, until something is so.
    template <typename Condition>
    [[nodiscard]] static bool pressUntil(const Condition &isSo, const QStringList &keys)
    {
        return QTest::qWaitFor([&] { return isSo() || !xdotool(QStringList{u"key"_s} + keys); }, TIMEOUT_MS);
    }

    const QStringList visibleWindow{u"search"_s, u"--onlyvisible"_s, u"--name"_s, u"^Sonavo$"_s};
    const PrivateHome home;
    QProcess screen;
    QProcess windowManager;
};

} // namespace sonavo
