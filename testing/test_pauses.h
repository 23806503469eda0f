#pragma once

#include "analysis/pauses.h"

#include <QCoroFuture>
#include <QCoroTimer>
#include <QPromise>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace sonavo {

/// Pauses that last until the test ends them.
class HeldPauses final : public Pauses
{
public:
    [[nodiscard]] QCoro::Task<> wait(std::chrono::milliseconds length) override
    {
        const auto end = m_pauses.emplace_back(length, std::make_shared<QPromise<void>>()).second;
        end->start();
        co_await end->future();
    }

    [[nodiscard]] std::size_t count() const { return m_pauses.size(); }
    [[nodiscard]] std::chrono::milliseconds lengthOf(std::size_t pause) const
    {
        return m_pauses.at(pause).first;
    }

    /// The caller of wait() continues at the next turn of the event loop.
    void end(std::size_t pause) { m_pauses.at(pause).second->finish(); }

private:
    std::vector<std::pair<std::chrono::milliseconds, std::shared_ptr<QPromise<void>>>> m_pauses;
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
