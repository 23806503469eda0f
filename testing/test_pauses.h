#pragma once

#include "analysis/pauses.h"

#include <QCoroFuture>
#include <QCoroTimer>
#include <QPromise>

#include <functional>
#include <memory>
#include <vector>

namespace sonavo {

/// Pauses that last until the test ends them.
class HeldPauses final : public Pauses
{
public:
    [[nodiscard]] QCoro::Task<> wait(std::chrono::milliseconds length) override
    {
        const auto end = std::make_shared<QPromise<void>>();
        end->start();
        m_pauses.push_back({length, end});
        co_await end->future();
    }

    [[nodiscard]] std::size_t count() const { return m_pauses.size(); }
    [[nodiscard]] std::chrono::milliseconds lengthOf(std::size_t pause) const
    {
        return m_pauses.at(pause).length;
    }

    /// The caller of wait() continues at the next turn of the event loop.
    void end(std::size_t pause) { m_pauses.at(pause).end->finish(); }

private:
    struct Pause
    {
        std::chrono::milliseconds length;
        std::shared_ptr<QPromise<void>> end;
    };
    std::vector<Pause> m_pauses;
};

/// Pauses that last one turn of the event loop; the test hears of each.
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
