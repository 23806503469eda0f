#pragma once

#include "testing/private_home.h"

#include <QProcess>
#include <QString>

namespace sonavo {

/// A session bus at the address that a private home gives this process. It starts the programs that service
/// files in the home's folder "services" name, and ends with this object.
class MessageBus
{
public:
    ~MessageBus()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    /// @return whether it runs
    [[nodiscard]] bool start(const PrivateHome &home)
    {
        const std::string address = qgetenv("DBUS_SESSION_BUS_ADDRESS").toStdString();
        const auto config =
            home.add("bus.conf", "<busconfig><type>session</type><listen>" + address +
                                     "</listen><servicedir>" + home.path("services").string() +
                                     "</servicedir><policy context='default'>"
                                     "<allow own='*'/><allow send_destination='*'/>"
                                     "<allow receive_sender='*'/></policy></busconfig>");
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                        QStringLiteral("--config-file=") + QString::fromStdString(config)});
        return m_daemon.waitForReadyRead(10'000);
    }

private:
    QProcess m_daemon;
};

} // namespace sonavo
