#pragma once

#include <QDBusConnection>
#include <QString>
#include <QStringList>

namespace sonavo {

/// Reads a program's window as a screen reader does, over the accessibility bus (AT-SPI).
class ScreenReader
{
public:
    /// Asks programs to be accessible, also those that start later. Throws std::runtime_error when the
    /// desktop has no accessibility bus.
    explicit ScreenReader(const QString &sessionBusAddress);
    ~ScreenReader();
    Q_DISABLE_COPY_MOVE(ScreenReader)

    /// Names of everything that a program shows now, parents first.
    /// @param program its name on the bus
    [[nodiscard]] QStringList names(const QString &program) const;

private:
    /// @param program the only child to look at; all that are shown when empty
    void read(const QString &service, const QString &path, const QString &program, QStringList &names) const;

    QDBusConnection m_bus;
};

} // namespace sonavo
