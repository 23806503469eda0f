#pragma once

#include <QDBusConnection>
#include <QFuture>

#include <chrono>
#include <optional>

namespace sonavo {

/// Connects to the user's session bus, or gives the connection that exists. Connecting waits for the bus,
/// which may never answer, so it happens in a thread of its own. Any thread; needs no QCoreApplication.
/// @return a connection that is not open where there is no bus
[[nodiscard]] QFuture<QDBusConnection> connectToSessionBus();

/// The same, waiting for at most `timeout`.
/// @return nothing when there is no bus, or none that has answered by then
[[nodiscard]] std::optional<QDBusConnection> waitForSessionBus(std::chrono::milliseconds timeout);

/// Whether the session bus authenticates this process within `timeout`. Once Qt has begun to connect to a bus
/// that does not, everything in Qt that needs a bus waits with it. A bus whose address is not that of a Unix
/// socket counts as answering.
[[nodiscard]] bool doesSessionBusAnswer(std::chrono::milliseconds timeout);

} // namespace sonavo
