#pragma once

#include "analysis/pauses.h"

namespace sonavo {

/// Pauses in real time, during which the Qt event loop runs.
class EventLoopPauses final : public Pauses
{
public:
    [[nodiscard]] QCoro::Task<> wait(std::chrono::milliseconds length) override;
};

} // namespace sonavo
