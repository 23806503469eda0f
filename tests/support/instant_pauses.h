#pragma once

#include "analysis/pauses.h"

#include <QCoroTimer>

#include <functional>

namespace sonavo {

/// Pauses that last one turn of the event loop, after telling the test.
class InstantPauses final : public Pauses
{
public:
    std::function<void(std::chrono::milliseconds length)> onPause = [](std::chrono::milliseconds) {};

    [[nodiscard]] QCoro::Task<> wait(std::chrono::milliseconds length) override
    {
        onPause(length);
        co_await QCoro::sleepFor(std::chrono::milliseconds(0));
    }
};

} // namespace sonavo
