#include "desktop/file_viewer.h"
#include "testing/message_bus.h"
#include "testing/private_home.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusError>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLocalServer>
#include <QProcess>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>

namespace sonavo {
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

/// A file manager on the bus, and what opens folders without one. Records what it is asked to show.
class FileManager : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    FileManager() { QDesktopServices::setUrlHandler(u"file"_s, this, "open"); }
    ~FileManager() override { QDesktopServices::unsetUrlHandler(u"file"_s); }
    Q_DISABLE_COPY_MOVE(FileManager)

    Q_INVOKABLE void open(const QUrl &url) { openedFolders.append(url); }

    std::string behavior;
    QStringList shownFiles;
    QList<QUrl> openedFolders;

public Q_SLOTS:
    void ShowItems(const QStringList &uris, const QString & /*startupId*/)
    {
        shownFiles += uris;
        setDelayedReply(behavior == "silent file manager");
        if (behavior == "refusing file manager")
            sendErrorReply(QDBusError::Failed);
    }
};

/// The parameter says who is there to show a file. Unless it says otherwise, folders can be opened with
/// another program than Sonavo.
class FileViewerTest : public testing::TestWithParam<std::string>
{
protected:
    ~FileViewerTest() override
    {
        // Disconnecting from a bus that is still alive can race with its own thread.
        m_bus.reset();
        QTest::qWait(10);
        QDBusConnection::disconnectFromBus(u"manager"_s);
    }

    void SetUp() override
    {
        installApplications();
        static bool isConnected = false;
        if (std::exchange(isConnected, true))
            GTEST_SKIP() << "a process has one session bus only; ctest gives each test its own process";
    }

    /// No desktop says which of them opens folders.
    void installApplications() const
    {
        qputenv("XDG_CURRENT_DESKTOP", "X-Generic");
        qputenv("XDG_DATA_DIRS", home.path("share").c_str());
        qputenv("XDG_CONFIG_DIRS", home.path("none").c_str());
        const std::filesystem::path folder = home.path("share/applications");
        if (GetParam() != "only Sonavo")
            home.add("share/applications/thunar.desktop", "[Desktop Entry]\nType=Application\nName=Files\n"
                                                          "Exec=true %U\nMimeType=inode/directory;\n");
        std::filesystem::create_directories(folder);
        for (const auto &entry : std::filesystem::directory_iterator(SONAVO_PACKAGING)) {
            if (entry.path().extension() == ".desktop")
                std::filesystem::copy(entry, folder);
        }
        EXPECT_EQ(QProcess::execute(u"update-desktop-database"_s, {QString::fromStdString(folder)}), 0);
        QGuiApplication::setDesktopFileName(u"org.sonavo.Sonavo"_s);
    }

    /// Starts a file manager on a bus that starts no programs.
    void startFileManager()
    {
        ASSERT_TRUE(m_bus.emplace().start(home));
        QDBusConnection bus = QDBusConnection::connectToBus(m_address, u"manager"_s);
        ASSERT_TRUE(bus.registerObject(u"/org/freedesktop/FileManager1"_s, &manager,
                                       QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(bus.registerService(u"org.freedesktop.FileManager1"_s));
    }

    PrivateHome home;
    FileManager manager;

private:
    const QString m_address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    std::optional<MessageBus> m_bus;
};

TEST_P(FileViewerTest, ShowsAFileByItsUriOrOpensItsFolderOnceWithoutBlocking)
{
    QLocalServer silentBus;
    if (GetParam() == "silent bus") {
        ASSERT_TRUE(silentBus.listen(QString::fromStdString(home.path("bus"))));
    } else if (GetParam().ends_with("file manager")) {
        manager.behavior = GetParam();
        ASSERT_NO_FATAL_FAILURE(startFileManager());
    }
    const bool isSilent = GetParam().starts_with("silent");
    FileViewer viewer(isSilent ? 300ms : 20s);
    QElapsedTimer time;
    time.start();
    bool hasFailed = false;
    viewer.show(u"/m #1/a#b %41?\n\u00e9.mp3"_s, [&hasFailed] { hasFailed = true; });
    EXPECT_LT(time.elapsed(), isSilent ? 300 : 5000);
    EXPECT_TRUE(manager.openedFolders.isEmpty());
    if (GetParam() == "silent file manager") {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !manager.shownFiles.isEmpty(); }, 20'000));
        QTest::qWait(1000); // may still show the file
    } else {
        ASSERT_TRUE(QTest::qWaitFor([&viewer] { return viewer.children().isEmpty(); }, 20'000));
    }
    EXPECT_GE(time.elapsed(), isSilent ? 300 : 0);
    const bool isOpened = QStringList{u"no bus"_s, u"silent bus"_s, u"refusing file manager"_s}.contains(
        QString::fromStdString(GetParam()));
    const QUrl folder = QUrl::fromLocalFile(u"/m #1"_s);
    EXPECT_EQ(manager.openedFolders, isOpened ? QList<QUrl>{folder} : QList<QUrl>());
    EXPECT_EQ(hasFailed, GetParam() == "only Sonavo");
    const bool isAsked = GetParam().ends_with("file manager");
    const QString uri = u"file:///m%20%231/a%23b%20%2541%3F%0A%C3%A9.mp3"_s;
    EXPECT_EQ(manager.shownFiles, isAsked ? QStringList{uri} : QStringList());
}

INSTANTIATE_TEST_SUITE_P(All, FileViewerTest,
                         testing::Values("file manager", "no bus", "only Sonavo", "silent bus",
                                         "refusing file manager", "silent file manager"));

} // namespace
} // namespace sonavo

#include "file_viewer_test.moc"
