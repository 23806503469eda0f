#include "testing/message_bus.h"
#include "testing/music_folder.h"
#include "testing/open_watch.h"
#include "testing/program_window.h"
#include "testing/system_call_listener.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QLocalServer>
#include <QTest>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <atomic>
#include <cstdlib>
#include <set>
#include <xcb/xcb.h>

namespace sonavo {
namespace {

const QString NAME = u"org.sonavo.Sonavo"_s;

/// The program as it is installed, which its message bus can start.
class OneWindow : public ProgramWindow
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(ProgramWindow::SetUp());
        if (IsSkipped())
            return;
        ASSERT_TRUE(bus.start(home));
        home.add("share/applications/org.sonavo.Sonavo.desktop");
        std::filesystem::create_directories(home.path("bin"));
        std::filesystem::copy(SONAVO_PROGRAM, home.path("bin/sonavo"));
        home.add("services/org.sonavo.Sonavo.service",
                 "[D-BUS Service]\nName=org.sonavo.Sonavo\nExec=" + home.path("bin/sonavo").string() + "\n");
    }

    /// Starts the program once more and waits for its end. @return its exit status
    int run(const QStringList &arguments, const QString &folder = {})
    {
        QProcess process;
        process.setWorkingDirectory(folder);
        start(process, program(), arguments);
        EXPECT_TRUE(process.waitForFinished(TIMEOUT_MS));
        errors = process.readAllStandardError().toStdString();
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
    QString program() const { return QString::fromStdString(home.path("bin/sonavo").string()); }
    bool hasWindows(int count) const
    {
        return QTest::qWaitFor(
            [&] {
                QProcess search;
                search.start(u"xdotool"_s, visibleWindow);
                return search.waitForFinished() && search.readAllStandardOutput().count('\n') == count;
            },
            TIMEOUT_MS);
    }
    static bool isOpened(const OpenWatch &watch)
    {
        return QTest::qWaitFor([&] { return watch.sawOpening(); }, TIMEOUT_MS);
    }

    MessageBus bus;
    std::string errors;
};

TEST_F(OneWindow, TakesWhatTheBusAndLaterStartsOpen)
{
    const MusicFolder music;
    music.addSong(u"first/A - B.flac"_s);
    music.addSong(u"next one/C - D.flac"_s);
    const OpenWatch first(music.pathOf(u"first"_s));
    const OpenWatch next(music.pathOf(u"next one"_s));
    const QDBusConnection test = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"test"_s);
    QDBusMessage open = QDBusMessage::createMethodCall(NAME, u"/org/sonavo/Sonavo"_s,
                                                       u"org.freedesktop.Application"_s, u"Open"_s);
    const QString uri = QString::fromLatin1(music.urlOf(u"first"_s).toEncoded());
    open << QStringList{u"https://example.org/song.mp3"_s, uri} << QVariantMap();
    EXPECT_EQ(test.call(open).type(), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(isOpened(first));
    ASSERT_TRUE(hasWindows(1));
    const auto id = static_cast<pid_t>(test.interface()->servicePid(NAME).value());
    ASSERT_GT(id, 0);

    ASSERT_TRUE(xdotool(visibleWindow + QStringList{u"windowminimize"_s, u"--sync"_s}));
    EXPECT_EQ(run({u"next one/../next one"_s}, music.path()), 0);
    EXPECT_TRUE(isOpened(next));
    EXPECT_TRUE(hasWindows(1)) << "the window is back, and no other is there";
    EXPECT_EQ(run({u"--report"_s, music.path()}), 0);

    for (const QString &other : {program(), QStringLiteral(SONAVO_PROGRAM)}) {
        QProcess process;
        start(process, other, other == program() ? QStringList{u"--new-window"_s} : QStringList());
        EXPECT_TRUE(hasWindows(2)) << other.toStdString();
        process.terminate();
        process.waitForFinished(TIMEOUT_MS);
    }
    // A window that does not answer is not waited for.
    ::kill(id, SIGSTOP);
    QProcess process;
    start(process, program(), {});
    EXPECT_TRUE(hasWindows(2));
    ::kill(id, SIGKILL);
    process.terminate();
    process.waitForFinished(TIMEOUT_MS);
}

TEST_F(OneWindow, RefusesOthersWhileItMovesFiles)
{
    std::atomic<quint64> held = 0;
    SystemCallListener listener;
    if (!listener.start({SYS_renameat2}, [&held](const seccomp_notif &call) { held = call.id; }))
        GTEST_SKIP() << "no right to hold system calls, or not the only test";
    MusicFolder music;
    music.addGroups({2});
    QProcess window;
    start(window, program(), {music.path()});
    ASSERT_TRUE(xdotool(visibleWindow + QStringList{u"windowactivate"_s, u"--sync"_s}));
    ASSERT_TRUE(pressUntil([&] { return held != 0; }, {u"Down"_s, u"Delete"_s}));
    EXPECT_EQ(run({music.path()}), 1);
    EXPECT_EQ(errors, "sonavo: the window is busy and can scan nothing until that is done\n");
    EXPECT_EQ(run({}), 0) << "it can come to the front";
    listener.letThrough(held);
    window.terminate();
    EXPECT_TRUE(window.waitForFinished(TIMEOUT_MS));
}

TEST_F(OneWindow, ComesToTheFrontAsOfTheUsersActionInTheOtherProgram)
{
    QProcess window;
    start(window, program(), {});
    ASSERT_TRUE(hasWindows(1));
    // What window managers and task bars are told.
    xcb_connection_t *x11 = xcb_connect(nullptr, nullptr);
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(x11)).data->root;
    free(xcb_request_check(x11, xcb_change_window_attributes_checked(x11, root, XCB_CW_EVENT_MASK, &mask)));
    qputenv("DESKTOP_STARTUP_ID", "the files_TIME4711");
    EXPECT_EQ(run({}), 0);
    qunsetenv("DESKTOP_STARTUP_ID");
    std::set<uint32_t> times;
    std::string notice;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            while (xcb_generic_event_t *event = xcb_poll_for_event(x11)) {
                const auto *message = reinterpret_cast<const xcb_client_message_event_t *>(event);
                if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE && message->format == 8)
                    notice.append(reinterpret_cast<const char *>(message->data.data8), 20);
                else if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE)
                    times.insert(message->data.data32[1]);
                free(event);
            }
            return notice.find('\0') != std::string::npos;
        },
        TIMEOUT_MS));
    EXPECT_STREQ(notice.c_str(), "remove: ID=\"the files_TIME4711\"");
    EXPECT_TRUE(times.contains(4711));
    xcb_disconnect(x11);
    window.terminate();
    EXPECT_TRUE(window.waitForFinished(TIMEOUT_MS));
}

TEST_F(ProgramWindow, OpensAlthoughTheBusDoesNotAnswer)
{
    QLocalServer silentBus;
    ASSERT_TRUE(silentBus.listen(QString::fromStdString(home.path("bus"))));
    QProcess window;
    start(window, QStringLiteral(SONAVO_PROGRAM), {});
    EXPECT_TRUE(xdotool(visibleWindow));
    window.terminate();
    EXPECT_TRUE(window.waitForFinished(TIMEOUT_MS));
    EXPECT_EQ(window.exitCode(), 0);
}

} // namespace
} // namespace sonavo
