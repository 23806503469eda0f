#pragma once

#include <QDBusConnection>
#include <QString>
#include <QStringList>

#include <vector>

namespace sonavo {

/// Reads the program's window and moves its focus as a screen reader does, over the accessibility bus
/// (AT-SPI).
class ScreenReader
{
public:
    /// Asks programs to be accessible, also those that start later. Throws std::runtime_error when the
    /// desktop has no accessibility bus.
    explicit ScreenReader(const QString &sessionBusAddress);
    ~ScreenReader();
    Q_DISABLE_COPY_MOVE(ScreenReader)

    /// Names of everything that is shown now, parents first.
    [[nodiscard]] QStringList names() const;
    /// Moves the keyboard focus. @return whether something that can have it has the name
    [[nodiscard]] bool focus(const QString &name) const;

private:
    struct Node
    {
        QString service;
        QString path;
        QString name;
    };

    /// Appends what is shown in a node. @param only child to look at; all of them when empty
    void read(const Node &node, std::vector<Node> &nodes, const QString &only = {}) const;
    [[nodiscard]] std::vector<Node> nodes() const;

    QDBusConnection m_bus;
};

} // namespace sonavo
