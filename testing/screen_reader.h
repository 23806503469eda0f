#pragma once

#include <QDBusConnection>
#include <QRect>
#include <QString>

#include <vector>

namespace sonavo {

/// Looks at the programs of a desktop as a screen reader does: over the accessibility bus (AT-SPI).
class ScreenReader
{
public:
    struct Node
    {
        QString service;
        QString path;
        QString role;
        QString name;
    };

    /// Tells the programs that someone looks, also those that start later.
    /// @param busAddress the session bus of the desktop; throws std::runtime_error when it has no such bus
    explicit ScreenReader(const QString &busAddress);
    ~ScreenReader();
    Q_DISABLE_COPY_MOVE(ScreenReader)

    /// Everything that is to be seen in a program now, from the outside in; what is hidden is left out.
    /// @param program its name on the bus
    [[nodiscard]] std::vector<Node> read(const QString &program) const;
    /// Where a node is on the screen.
    [[nodiscard]] QRect placeOf(const Node &node) const;

private:
    void read(const Node &node, std::vector<Node> &nodes) const;
    [[nodiscard]] std::vector<Node> childrenOf(const Node &node) const;
    [[nodiscard]] bool isShowing(const Node &node) const;

    QDBusConnection m_bus;
};

} // namespace sonavo
