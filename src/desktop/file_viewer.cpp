#include "desktop/file_viewer.h"

#include "desktop/session_bus.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QGuiApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTimer>
#include <QUrl>

#include <limits>
#include <utility>

namespace sonavo {
namespace {

QDBusMessage showItemsMessage(const QUrl &file)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    const QString noStartupId;
    message << QStringList{QString::fromLatin1(file.toEncoded())} << noStartupId;
    return message;
}

/// Asks for the application that opens folders, in the same way as xdg-open does: where nothing else does,
/// it is this program itself, which would start once more.
void startQuery(QProcess &query)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // It looks for a desktop there, and would hang with the bus.
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QStringLiteral("disabled:"));
    query.setProcessEnvironment(environment);
    query.start(QStringLiteral("xdg-mime"),
                {QStringLiteral("query"), QStringLiteral("default"), QStringLiteral("inode/directory")});
    constexpr std::chrono::seconds TIMEOUT(5);
    QTimer::singleShot(TIMEOUT, &query, &QProcess::kill);
}

/// Whether a file manager may carry out a request all the same. All other errors say that it was not reached
/// or has refused.
bool mayStillBeCarriedOut(QDBusError::ErrorType error)
{
    return error == QDBusError::NoReply || error == QDBusError::Timeout || error == QDBusError::Disconnected;
}

/// A request to show one file; deletes itself when it is finished.
class ShowRequest : public QObject
{
public:
    ShowRequest(const QString &path, std::function<void()> onFailure, QObject *parent)
        : QObject(parent)
        , m_path(QFileInfo(path).absoluteFilePath())
        , m_onFailure(std::move(onFailure))
    {}

    void start(std::chrono::milliseconds timeout)
    {
        connect(&m_timer, &QTimer::timeout, this, [this] { openFolder(); });
        m_timer.setSingleShot(true);
        m_timer.start(timeout);
        connect(&m_connection, &QFutureWatcherBase::finished, this, [this] { send(m_connection.result()); });
        m_connection.setFuture(connectToSessionBus());
    }

private:
    void send(const QDBusConnection &bus)
    {
        if (!m_timer.isActive()) // too late: the folder has been opened
            return;
        m_timer.stop();
        constexpr int NO_TIMEOUT = std::numeric_limits<int>::max();
        const QDBusPendingCall call =
            bus.asyncCall(showItemsMessage(QUrl::fromLocalFile(m_path)), NO_TIMEOUT);
        if (call.isError()) { // not connected: a watcher would never finish
            openFolder();
            return;
        }
        const auto *reply = new QDBusPendingCallWatcher(call, this);
        connect(reply, &QDBusPendingCallWatcher::finished, this, [this, reply] {
            if (reply->isError() && !mayStillBeCarriedOut(reply->error().type()))
                openFolder();
            else
                deleteLater();
        });
    }

    void openFolder()
    {
        m_timer.stop();
        auto *query = new QProcess(this);
        connect(query, &QProcess::finished, this, [this, query] {
            openFolderWith(QString::fromLocal8Bit(query->readAllStandardOutput()).trimmed());
        });
        connect(query, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                openFolderWith({});
        });
        startQuery(*query);
    }

    /// @param application the default one for folders; empty if unknown
    void openFolderWith(const QString &application)
    {
        deleteLater();
        const QString own = QGuiApplication::desktopFileName();
        const bool isOther = own.isEmpty() || !application.contains(own);
        const bool isOpened =
            isOther && QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(m_path).path()));
        if (!isOpened && m_onFailure)
            m_onFailure();
    }

    const QString m_path;
    const std::function<void()> m_onFailure;
    QTimer m_timer;
    QFutureWatcher<QDBusConnection> m_connection;
};

} // namespace

FileViewer::FileViewer(std::chrono::milliseconds timeout)
    : m_timeout(timeout)
{}

void FileViewer::show(const QString &path, std::function<void()> onFailure)
{
    (new ShowRequest(path, std::move(onFailure), this))->start(m_timeout);
}

} // namespace sonavo
