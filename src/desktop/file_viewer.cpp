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

/// Joining the bus waits for its answer, which may never come: a destructor would wait with it. Only the
/// first time, then the connection is kept for all.
QThreadPool &joiningThread()
{
    static QThreadPool *const thread = [] {
        auto *pool = new QThreadPool;
        pool->setMaxThreadCount(1);
        return pool;
    }();
    return *thread;
}

/// One file to be shown; deletes itself when that is settled.
class ShowRequest : public QObject
{
public:
    ShowRequest(const QString &path, QObject *parent)
        : QObject(parent)
        , m_path(QFileInfo(path).absoluteFilePath())
    {}

    void start(std::chrono::milliseconds patience)
    {
        QTimer::singleShot(patience, this, [this] { settle(false); });
        connect(&m_bus, &QFutureWatcherBase::finished, this, [this] { ask(m_bus.result()); });
        m_bus.setFuture(QtConcurrent::run(&joiningThread(), &QDBusConnection::sessionBus));
    }

private:
    void ask(const QDBusConnection &bus)
    {
        const QDBusPendingCall call = bus.asyncCall(showItemsMessage(QUrl::fromLocalFile(m_path)));
        if (call.isError()) { // without a bus there is nothing to watch
            settle(false);
            return;
        }
        const auto *answer = new QDBusPendingCallWatcher(call, this);
        connect(answer, &QDBusPendingCallWatcher::finished, this,
                [this, answer] { settle(!answer->isError()); });
    }

    void settle(bool isShown)
    {
        if (std::exchange(m_isSettled, true))
            return;
        if (!isShown)
            QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(m_path).path()));
        deleteLater();
    }

    const QString m_path;
    QFutureWatcher<QDBusConnection> m_bus;
    bool m_isSettled = false;
};

} // namespace

FileViewer::FileViewer(std::chrono::milliseconds patience)
    : m_patience(patience)
{}

void FileViewer::show(const QString &path)
{
    (new ShowRequest(path, this))->start(m_patience);
}

} // namespace sonavo
