#include "desktop/file_viewer.h"
#include "testing/private_home.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QProcess>
#include <QTest>
#include <QUrl>

#include <gmock/gmock.h>

#include <chrono>
#include <memory>
#include <string>

namespace sonavo {
namespace {

using namespace std::chrono_literals;
using testing::IsEmpty;

/// A file viewer that notes what it is asked.
class Service : public QDBusVirtualObject
{
public:
    enum class Answer
    {
        Done,
        Error,
        None
    };
    Answer answer = Answer::Done;
    QList<QVariantList> asked;

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        EXPECT_EQ(message.path() + message.interface() + message.member() + message.signature(),
                  QStringLiteral("/org/freedesktop/FileManager1org.freedesktop.FileManager1ShowItemsass"));
        asked.append(message.arguments());
        if (answer == Answer::Done)
            bus.send(message.createReply());
        else if (answer == Answer::Error)
            bus.send(message.createErrorReply(QDBusError::Failed, QStringLiteral("no")));
        return true;
    }
};

/// Notes the folders that the system is asked to open instead of opening them.
class OpenedFolders : public QObject
{
    Q_OBJECT

public:
    OpenedFolders() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~OpenedFolders() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    Q_DISABLE_COPY_MOVE(OpenedFolders)

    Q_INVOKABLE void open(const QUrl &url) { urls.append(url); }

    QList<QUrl> urls;
};

class FileViewerTest : public testing::Test
{
protected:
    ~FileViewerTest() override
    {
        // In an order that leaves nothing for the bus's own thread to trip over.
        QDBusConnection(QStringLiteral("service")).unregisterObject(QStringLiteral("/"));
        m_daemon.kill();
        m_daemon.waitForFinished();
        QTest::qWait(10);
        QDBusConnection::disconnectFromBus(QStringLiteral("service"));
    }

    /// A bus that starts no programs.
    void startBus()
    {
        const std::string address = qgetenv("DBUS_SESSION_BUS_ADDRESS").toStdString();
        const auto config = home.add(
            "bus.conf", "<busconfig><type>session</type><listen>" + address +
                            "</listen><policy context='default'><allow own='*'/>"
                            "<allow send_destination='*'/><allow receive_sender='*'/></policy></busconfig>");
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                        QStringLiteral("--config-file=") + QString::fromStdString(config)});
        ASSERT_TRUE(m_daemon.waitForReadyRead(10'000)) << m_daemon.errorString().toStdString();
    }

    void startService(Service::Answer answer)
    {
        ASSERT_NO_FATAL_FAILURE(startBus());
        service.answer = answer;
        QDBusConnection bus = QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                                                            QStringLiteral("service"));
        ASSERT_TRUE(bus.registerVirtualObject(QStringLiteral("/"), &service, QDBusConnection::SubPath));
        ASSERT_TRUE(bus.registerService(QStringLiteral("org.freedesktop.FileManager1")));
    }

    PrivateHome home;
    Service service;
    OpenedFolders opened;

private:
    QProcess m_daemon;
};

bool isSettled(const FileViewer &viewer)
{
    return QTest::qWaitFor([&viewer] { return viewer.children().isEmpty(); }, 20'000);
}

TEST_F(FileViewerTest, AsksForFilesByTheirUris)
{
    ASSERT_NO_FATAL_FAILURE(startService(Service::Answer::Done));
    FileViewer viewer(20s);
    viewer.show(QStringLiteral("/m/a#b %41?\n\u00e9.mp3"));
    ASSERT_TRUE(isSettled(viewer));
    viewer.show(QStringLiteral("/m/b.mp3"));
    ASSERT_TRUE(isSettled(viewer));
    const auto request = [](const QString &uri) { return QVariantList{QStringList{uri}, QString()}; };
    EXPECT_EQ(service.asked,
              (QList<QVariantList>{request(QStringLiteral("file:///m/a%23b%20%2541%3F%0A%C3%A9.mp3")),
                                   request(QStringLiteral("file:///m/b.mp3"))}));
    EXPECT_THAT(opened.urls, IsEmpty());
}

class FileViewerInTrouble : public FileViewerTest, public testing::WithParamInterface<std::string>
{
protected:
    void make(const std::string &trouble)
    {
        if (trouble == "silent bus")
            ASSERT_TRUE(silentBus->listen(QString::fromStdString(home.path("bus"))));
        else if (trouble == "no service")
            startBus();
        else if (trouble != "no bus")
            startService(trouble == "silent service" ? Service::Answer::None : Service::Answer::Error);
    }

    std::unique_ptr<QLocalServer> silentBus = std::make_unique<QLocalServer>();
};

TEST_P(FileViewerInTrouble, OpensTheFolderOnceWithoutKeepingTheCallerWaiting)
{
    ASSERT_NO_FATAL_FAILURE(make(GetParam()));
    const bool isSilent = GetParam().starts_with("silent");
    FileViewer viewer(isSilent ? 300ms : 20s);
    QElapsedTimer time;
    time.start();
    viewer.show(QStringLiteral("/m #1/a.mp3"));
    EXPECT_LT(time.elapsed(), isSilent ? 300 : 5000);
    EXPECT_THAT(opened.urls, IsEmpty());
    ASSERT_TRUE(isSettled(viewer));
    EXPECT_EQ(opened.urls, QList<QUrl>{QUrl::fromLocalFile(QStringLiteral("/m #1"))});
    silentBus.reset(); // joining it would never end
}

INSTANTIATE_TEST_SUITE_P(All, FileViewerInTrouble,
                         testing::Values("no bus", "silent bus", "no service", "refusing service",
                                         "silent service"));

} // namespace
} // namespace sonavo

#include "file_viewer_test.moc"
