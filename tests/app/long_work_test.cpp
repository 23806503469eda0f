#include "testing/audio_fixtures.h"
#include "testing/hanging_disk.h"
#include "testing/message_bus.h"
#include "testing/music_folder.h"
#include "testing/program_window.h"
#include "testing/sound_server.h"

#include <QDBusConnection>
#include <QTest>

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <functional>
#include <set>

namespace sonavo {
namespace {

/// What shows notifications and launchers on a desktop.
class DesktopShell : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    QStringList texts;
    uint closed = 0;
    QList<double> progress;
    bool isProgressShown = false;

public Q_SLOTS:
    uint Notify(const QString & /*program*/, uint replaced, const QString & /*icon*/, const QString &summary,
                const QString &body, const QStringList & /*actions*/, const QVariantMap & /*hints*/,
                int /*timeout*/)
    {
        texts.append(summary + body);
        return replaced != 0 ? replaced : 7;
    }
    void CloseNotification(uint id) { closed = id; }
    void update(const QString &application, const QVariantMap &properties)
    {
        isProgressShown = properties.value(u"progress-visible"_s).toBool() &&
                          application == u"application://org.sonavo.Sonavo.desktop";
        progress.append(properties.value(u"progress"_s).toDouble());
    }

Q_SIGNALS:
    void ActionInvoked(uint id, const QString &action);
};

TEST_F(ProgramWindow, TellsTheDesktopOfLongWorkAndOpensNoNetworkSocketInAWholeCourseOfUse)
{
    const SoundServer sound;
    MessageBus messageBus;
    ASSERT_TRUE(messageBus.start(home));
    DesktopShell shell;
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"shell"_s);
    ASSERT_TRUE(
        bus.registerObject(u"/org/freedesktop/Notifications"_s, &shell, QDBusConnection::ExportAllContents));
    ASSERT_TRUE(bus.registerService(u"org.freedesktop.Notifications"_s));
    ASSERT_TRUE(bus.connect({}, {}, u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s, &shell,
                            SLOT(update(QString, QVariantMap))));
    HangingDisk disk("hangs.mp3");
    if (!disk.start())
        GTEST_SKIP() << "no right to hold system calls, or not the only test";
    // The file that hangs is given up after ten seconds.
    const MusicFolder music;
    music.addGroups({2});
    writeFile(music.pathOf(u"hangs.mp3"_s), audioContent(u"mp3"_s, 0.2));
    QProcess program;
    start(program, QStringLiteral(SONAVO_PROGRAM), {music.path()});
    ASSERT_TRUE(xdotool(visibleWindow + QStringList{u"windowminimize"_s, u"--sync"_s}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return shell.isProgressShown; }, TIMEOUT_MS));
    EXPECT_TRUE(shell.texts.isEmpty());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !shell.texts.isEmpty(); }, TIMEOUT_MS));
    EXPECT_EQ(shell.texts, QStringList{u"Found 1 duplicate file"_s});
    EXPECT_FALSE(shell.isProgressShown);
    EXPECT_NE(QProcess::execute(u"xdotool"_s, visibleWindow), 0);
    QTest::qWait(100); // the answer to the notification is under way
    Q_EMIT shell.ActionInvoked(7, u"default"_s);
    EXPECT_TRUE(xdotool(visibleWindow)) << "a click brings the window back";
    EXPECT_TRUE(QTest::qWaitFor([&] { return shell.closed == 7; }, TIMEOUT_MS)) << "and nothing is left";

    const auto pressUntil = [](const QString &key, const std::function<bool()> &condition) {
        return QTest::qWaitFor([&] { return condition() || !xdotool({u"key"_s, key}); }, TIMEOUT_MS);
    };
    ASSERT_TRUE(xdotool({u"key"_s, u"--delay"_s, u"100"_s, u"Home"_s, u"Down"_s, u"space"_s}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return sound.peak() > 0.05; }, TIMEOUT_MS)) << "nothing is heard";
    EXPECT_TRUE(pressUntil(u"Delete"_s, [&] { return filesIn(music.path()).size() <= 2; }));
    EXPECT_TRUE(pressUntil(u"ctrl+z"_s, [&] { return filesIn(music.path()).size() == 3; }));
    std::set<int> families = disk.socketFamilies();
    EXPECT_EQ(families.erase(AF_UNIX), 1U);
    families.erase(AF_NETLINK); // asks the kernel for devices
    EXPECT_TRUE(families.empty()) << *families.begin();
    program.terminate();
    EXPECT_TRUE(program.waitForFinished(TIMEOUT_MS));
}

} // namespace
} // namespace sonavo

#include "long_work_test.moc"
