#include "app/application_service.h"

#include <QDBusError>
#include <QDBusMessage>

#include <array>
#include <filesystem>

namespace sonavo {
namespace {

const QString NAME = QStringLiteral("org.sonavo.Sonavo");
const QString OBJECT_PATH = QStringLiteral("/org/sonavo/Sonavo");
const QString INTERFACE = QStringLiteral("org.freedesktop.Application");
const QString BUSY_ERROR = QStringLiteral("org.sonavo.Sonavo.Error.Busy");
const QString ACTIVATION_TOKEN = QStringLiteral("activation-token");
/// Its name before Wayland.
const QString STARTUP_ID = QStringLiteral("desktop-startup-id");

QDBusMessage busCall(const QString &method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"), method);
}

/// What the launcher has told this process, for the one that shows the window.
QVariantMap ownPlatformData()
{
    const std::array variables{
        std::pair{"XDG_ACTIVATION_TOKEN", ACTIVATION_TOKEN},
        std::pair{"DESKTOP_STARTUP_ID", STARTUP_ID},
    };
    QVariantMap data;
    for (const auto &[variable, key] : variables) {
        if (const QString value = qEnvironmentVariable(variable); !value.isEmpty())
            data.insert(key, value);
    }
    return data;
}

QString activationTokenOf(const QVariantMap &platformData)
{
    const QString token = platformData.value(ACTIVATION_TOKEN).toString();
    return !token.isEmpty() ? token : platformData.value(STARTUP_ID).toString();
}

} // namespace

bool ApplicationService::claimName(const QDBusConnection &bus)
{
    QDBusConnection connection = bus;
    if (!connection.registerObject(OBJECT_PATH, this, QDBusConnection::ExportAllSlots))
        return false;
    constexpr uint DO_NOT_QUEUE = 4;
    constexpr uint PRIMARY_OWNER = 1;
    constexpr int TIMEOUT_MS = 1000;
    const QDBusMessage reply =
        bus.call(busCall(QStringLiteral("RequestName")) << NAME << DO_NOT_QUEUE, QDBus::Block, TIMEOUT_MS);
    if (reply.arguments().value(0).toUInt() != PRIMARY_OWNER) {
        connection.unregisterObject(OBJECT_PATH);
        return false;
    }
    m_bus = bus;
    return true;
}

void ApplicationService::releaseName()
{
    if (m_bus)
        m_bus->send(busCall(QStringLiteral("ReleaseName")) << NAME);
    m_bus.reset();
}

// NOLINTBEGIN(readability-identifier-naming)

void ApplicationService::Activate(const QVariantMap &platformData)
{
    handle({{}, activationTokenOf(platformData)});
}

void ApplicationService::Open(const QStringList &uris, const QVariantMap &platformData)
{
    QList<QUrl> items;
    for (const QString &uri : uris) {
        if (const QUrl url = QUrl::fromEncoded(uri.toUtf8()); url.isLocalFile())
            items.append(url);
    }
    handle({items, activationTokenOf(platformData)});
}

void ApplicationService::ActivateAction(const QString & /*name*/, const QVariantList & /*parameters*/,
                                        const QVariantMap & /*platformData*/)
{
    sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("no such action"));
}

// NOLINTEND(readability-identifier-naming)

void ApplicationService::handle(const OpenRequest &request)
{
    if (!m_handler) // the window is about to go
        sendErrorReply(QDBusError::ServiceUnknown);
    else if (!m_handler(request))
        sendErrorReply(BUSY_ERROR, QStringLiteral("a job is running"));
}

HandOver handOver(const QDBusConnection &bus, const QList<QUrl> &items, std::chrono::milliseconds timeout)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        NAME, OBJECT_PATH, INTERFACE, items.isEmpty() ? QStringLiteral("Activate") : QStringLiteral("Open"));
    message.setAutoStartService(false);
    if (!items.isEmpty()) {
        QStringList uris;
        for (const QUrl &item : items)
            uris.append(QString::fromLatin1(item.toEncoded()));
        message << uris;
    }
    message << ownPlatformData();
    const QDBusMessage reply = bus.call(message, QDBus::Block, static_cast<int>(timeout.count()));
    if (reply.type() == QDBusMessage::ReplyMessage)
        return HandOver::Accepted;
    return reply.errorName() == BUSY_ERROR ? HandOver::Refused : HandOver::Failed;
}

bool isInstalled()
{
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    const std::filesystem::path prefix = program.parent_path().parent_path();
    return std::filesystem::exists(prefix / "share/applications/org.sonavo.Sonavo.desktop", error);
}

} // namespace sonavo
