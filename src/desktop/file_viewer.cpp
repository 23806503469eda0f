#include "desktop/file_viewer.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QThreadPool>
#include <QTimer>
#include <QUrl>
#include <QtConcurrentRun>

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

/// Connecting to the bus waits for its answer, which may never come, and a pool's destructor would wait with
/// it: this one is never deleted. One thread is enough, since sessionBus() keeps its connection.
QThreadPool &connectPool()
{
    static QThreadPool *const pool = [] {
        auto *newPool = new QThreadPool;
        newPool->setMaxThreadCount(1);
        return newPool;
    }();
    return *pool;
}

/// A request to show one file; deletes itself when it is finished.
class ShowRequest : public QObject
{
public:
    ShowRequest(const QString &path, QObject *parent)
        : QObject(parent)
        , m_path(QFileInfo(path).absoluteFilePath())
    {}

    void start(std::chrono::milliseconds timeout)
    {
        QTimer::singleShot(timeout, this, [this] { fallBack(); });
        connect(&m_connection, &QFutureWatcherBase::finished, this, [this] { send(m_connection.result()); });
        m_connection.setFuture(QtConcurrent::run(&connectPool(), &QDBusConnection::sessionBus));
    }

private:
    void send(const QDBusConnection &bus)
    {
        const QDBusPendingCall call = bus.asyncCall(showItemsMessage(QUrl::fromLocalFile(m_path)));
        if (call.isError()) { // not connected: a watcher would never finish
            fallBack();
            return;
        }
        const auto *reply = new QDBusPendingCallWatcher(call, this);
        connect(reply, &QDBusPendingCallWatcher::finished, this, [this, reply] {
            if (reply->isError())
                fallBack();
            else
                finish();
        });
    }

    void fallBack()
    {
        if (finish())
            QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(m_path).path()));
    }

    /// @return false if the request was finished before
    bool finish()
    {
        deleteLater();
        return !std::exchange(m_isFinished, true);
    }

    const QString m_path;
    QFutureWatcher<QDBusConnection> m_connection;
    bool m_isFinished = false;
};

} // namespace

FileViewer::FileViewer(std::chrono::milliseconds timeout)
    : m_timeout(timeout)
{}

void FileViewer::show(const QString &path)
{
    (new ShowRequest(path, this))->start(m_timeout);
}

} // namespace sonavo
