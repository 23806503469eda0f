#pragma once

#include <QCoroTask>

#include <chrono>

namespace sonavo {

/// Waits on behalf of long work, so that the thread can do other things meanwhile. Handed in, so that a test
/// need not wait for real seconds and can see which pauses are made.
class Pauses
{
public:
    Pauses() = default;
    virtual ~Pauses() = default;
    Q_DISABLE_COPY_MOVE(Pauses)

    /// Suspends the caller for `length`; it goes on in the thread that it was called from. Never fails.
    [[nodiscard]] virtual QCoro::Task<> wait(std::chrono::milliseconds length) = 0;
};

} // namespace sonavo
