#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>

#include <chrono>
#include <functional>
#include <optional>

namespace sonavo {

/// What another process asks of the open window.
struct OpenRequest
{
    /// File URLs to scan; may be empty.
    QList<QUrl> items;
    /// With which the desktop lets the window come to the front, see bringToFront(); empty where it has none.
    QString activationToken;
};

/// The program on the session bus (org.freedesktop.Application), through which later starts, the desktop and
/// file managers reach the window that is open. Main thread only; needs no QCoreApplication until the event
/// loop runs.
class ApplicationService : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// @return false when the window cannot take the items now
    using Handler = std::function<bool(const OpenRequest &)>;

    /// Takes the program's name on the bus, unless another process has it.
    /// @param bus must be connected
    /// @return whether requests arrive here from now on; they wait for the event loop
    [[nodiscard]] bool claimName(const QDBusConnection &bus);
    /// Gives the name up: later starts open a window of their own.
    void releaseName();

    void setHandler(Handler handler) { m_handler = std::move(handler); }

    // Called over the bus; the names are those of the interface.
    // NOLINTBEGIN(readability-identifier-naming)
    Q_SLOT void Activate(const QVariantMap &platformData);
    Q_SLOT void Open(const QStringList &uris, const QVariantMap &platformData);
    /// There are no actions.
    Q_SLOT void ActivateAction(const QString &name, const QVariantList &parameters,
                               const QVariantMap &platformData);
    // NOLINTEND(readability-identifier-naming)

private:
    void handle(const OpenRequest &request);

    std::optional<QDBusConnection> m_bus;
    Handler m_handler;
};

/// How the process that has the program's name has answered.
enum class HandOver
{
    Accepted,
    /// It is busy and takes nothing.
    Refused,
    /// There is none, or it does not answer.
    Failed,
};

/// Asks the process that has the program's name to come to the front and to open these items, with the
/// activation token of this process. Starts no process. Waits for the answer, for at most `timeout`.
/// @param bus must be connected
/// @param items file URLs; may be empty
[[nodiscard]] HandOver handOver(const QDBusConnection &bus, const QList<QUrl> &items,
                                std::chrono::milliseconds timeout);

/// Whether this program is installed, with its desktop entry beside it. One that is run from its build folder
/// is not.
[[nodiscard]] bool isInstalled();

} // namespace sonavo
