#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <random>

namespace sonavo {

/// Random numbers that are the same with every standard library, whose distributions differ while its engines
/// do not.
class RandomSource
{
public:
    explicit RandomSource(std::uint64_t seed)
        : m_engine(seed)
    {}

    [[nodiscard]] std::uint64_t bits() { return m_engine(); }

    /// Each number below `limit` as likely. @param limit at least 1, and small beside 2^64
    [[nodiscard]] std::size_t below(std::size_t limit) { return m_engine() % limit; }

    /// From `first` to `last`, both included.
    [[nodiscard]] std::size_t between(std::size_t first, std::size_t last)
    {
        return first + below(last - first + 1);
    }

    [[nodiscard]] bool isOneIn(std::size_t count) { return below(count) == 0; }

    /// At least 0 and less than 1.
    [[nodiscard]] double unit() { return static_cast<double>(m_engine() >> 11) * 0x1p-53; }

    /// Nearly the normal distribution with mean 0 and deviation 1.
    [[nodiscard]] double normal()
    {
        double sum = -6.0;
        for (int i = 0; i < 12; ++i)
            sum += unit();
        return sum;
    }

    /// An index into `weights`, as likely as its weight.
    [[nodiscard]] std::size_t weighted(std::initializer_list<std::size_t> weights)
    {
        std::size_t sum = 0;
        for (const std::size_t weight : weights)
            sum += weight;
        std::size_t rest = below(sum);
        std::size_t index = 0;
        for (const std::size_t weight : weights) {
            if (rest < weight)
                break;
            rest -= weight;
            ++index;
        }
        return index;
    }

private:
    std::mt19937_64 m_engine;
};

} // namespace sonavo
