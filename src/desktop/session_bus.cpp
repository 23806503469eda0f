#include "desktop/session_bus.h"

#include <QFile>
#include <QScopeGuard>
#include <QThreadPool>
#include <QtConcurrentRun>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <future>
#include <memory>

namespace sonavo {
namespace {

/// A pool's destructor would wait for a bus that does not answer: this one is never deleted. One thread is
/// enough, since the connection is made once.
QThreadPool &connectPool()
{
    static QThreadPool *const pool = [] {
        auto *newPool = new QThreadPool;
        newPool->setMaxThreadCount(1);
        return newPool;
    }();
    return *pool;
}

/// @return empty when there is none; libdbus would start a bus then
QByteArray busAddress()
{
    if (QByteArray named = qgetenv("DBUS_SESSION_BUS_ADDRESS"); !named.isEmpty())
        return named;
    const QByteArray usual = qgetenv("XDG_RUNTIME_DIR") + "/bus";
    return QFile::exists(QFile::decodeName(usual)) ? "unix:path=" + usual : QByteArray();
}

/// The name of the first Unix socket in a D-Bus server address; an abstract one begins with 0.
std::optional<QByteArray> socketNameOf(const QByteArray &address)
{
    const QByteArray first = address.split(';').constFirst();
    if (!first.startsWith("unix:"))
        return {};
    for (const QByteArray &pair : first.mid(5).split(',')) {
        const QByteArray value = QByteArray::fromPercentEncoding(pair.mid(pair.indexOf('=') + 1));
        if (pair.startsWith("path="))
            return value;
        if (pair.startsWith("abstract="))
            return '\0' + value;
    }
    return {};
}

/// @return whether the socket is ready for `events` in time
bool waitForSocket(int socket, short events, std::chrono::milliseconds timeout)
{
    pollfd entry{socket, events, 0};
    return ::poll(&entry, 1, static_cast<int>(timeout.count())) == 1;
}

/// Connects to a bus and asks it to authenticate this process by its user.
bool authenticates(const QByteArray &socketName, std::chrono::milliseconds timeout)
{
    sockaddr_un name = {};
    name.sun_family = AF_UNIX;
    const auto size = static_cast<std::size_t>(socketName.size());
    if (size >= sizeof name.sun_path)
        return false;
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket < 0)
        return false;
    const auto closed = qScopeGuard([socket] { ::close(socket); });
    std::memcpy(name.sun_path, socketName.constData(), size);
    const std::size_t length = offsetof(sockaddr_un, sun_path) + size;
    if (::connect(socket, reinterpret_cast<const sockaddr *>(&name), static_cast<socklen_t>(length)) != 0)
        return false;
    const QByteArray request = '\0' + ("AUTH EXTERNAL " + QByteArray::number(::getuid()).toHex()) + "\r\n";
    std::array<char, 2> answer{};
    return ::send(socket, request.constData(), static_cast<std::size_t>(request.size()), MSG_NOSIGNAL) ==
               request.size() &&
           waitForSocket(socket, POLLIN, timeout) && ::recv(socket, answer.data(), answer.size(), 0) == 2 &&
           answer == std::array{'O', 'K'};
}

QDBusConnection connection()
{
    const QString name = QStringLiteral("sonavo");
    return !busAddress().isEmpty() ? QDBusConnection::connectToBus(QDBusConnection::SessionBus, name)
                                   : QDBusConnection(name);
}

} // namespace

QFuture<QDBusConnection> connectToSessionBus()
{
    return QtConcurrent::run(&connectPool(), &connection);
}

std::optional<QDBusConnection> waitForSessionBus(std::chrono::milliseconds timeout)
{
    const auto promise = std::make_shared<std::promise<QDBusConnection>>();
    std::future<QDBusConnection> future = promise->get_future();
    connectPool().start([promise] { promise->set_value(connection()); });
    if (future.wait_for(timeout) != std::future_status::ready)
        return {};
    const QDBusConnection bus = future.get();
    return bus.isConnected() ? std::optional(bus) : std::nullopt;
}

bool doesSessionBusAnswer(std::chrono::milliseconds timeout)
{
    const QByteArray address = busAddress();
    if (address.isEmpty())
        return false;
    const std::optional<QByteArray> socketName = socketNameOf(address);
    return !socketName || authenticates(*socketName, timeout);
}

} // namespace sonavo
