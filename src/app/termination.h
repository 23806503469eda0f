#pragma once

#include <QObject>

namespace sonavo {

/// Makes SIGTERM and SIGINT quit the application in its ordinary way, through the event loop. One at a time;
/// main thread only.
class Termination : public QObject
{
    Q_OBJECT

public:
    explicit Termination(QObject *parent = nullptr);
    /// Gives the signals back their usual meaning.
    ~Termination() override;
    Q_DISABLE_COPY_MOVE(Termination)
};

} // namespace sonavo
