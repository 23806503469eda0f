#pragma once

#include <QCoroTask>

#include <chrono>

namespace sonavo {

/// Interrupts long work, so that the thread can do other things meanwhile. An interface, so that tests need
/// not wait in real time and can see which pauses are made.
class Pauses
{
public:
    Pauses() = default;
    virtual ~Pauses() = default;
    Q_DISABLE_COPY_MOVE(Pauses)

    /// Suspends the caller for `length`; it resumes in the thread that it was suspended in. Never fails.
    [[nodiscard]] virtual QCoro::Task<> wait(std::chrono::milliseconds length) = 0;
};

} // namespace sonavo
