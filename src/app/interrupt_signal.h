#pragma once

#include <QObject>

#include <csignal>

#include <array>

namespace sonavo {

/// Turns the first Ctrl-C (SIGINT) into a Qt signal in the main thread. A second one ends the program at
/// once, and so does any after this object is gone. One object at a time.
class InterruptSignal : public QObject
{
    Q_OBJECT

public:
    explicit InterruptSignal(QObject *parent = nullptr);
    ~InterruptSignal() override;

Q_SIGNALS:
    void interrupted();

private:
    struct sigaction m_previousAction = {};
    std::array<int, 2> m_pipe{-1, -1};
};

} // namespace sonavo
