#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <random>

namespace sonavo {

/// Random numbers that are the same with every standard library: only the engines are specified exactly, not
/// the distributions.
class RandomSource
{
public:
    explicit RandomSource(std::uint64_t seed)
        : m_engine(seed)
    {}

    [[nodiscard]] std::uint64_t bits() { return m_engine(); }

    /// Uniform from 0 to `limit` - 1. @param limit at least 1, and small compared to 2^64
    [[nodiscard]] std::size_t below(std::size_t limit) { return m_engine() % limit; }

    /// Uniform from `first` to `last`, both included.
    [[nodiscard]] std::size_t between(std::size_t first, std::size_t last)
    {
        return first + below(last - first + 1);
    }

    /// True with a probability of 1 / `count`.
    [[nodiscard]] bool isOneIn(std::size_t count) { return below(count) == 0; }

    /// Uniform from 0 to less than 1.
    [[nodiscard]] double unit() { return static_cast<double>(m_engine() >> 11) * 0x1p-53; }

    /// Approximately normal, with mean 0 and standard deviation 1: a sum of uniform numbers.
    [[nodiscard]] double normal()
    {
        double sum = -6.0;
        for (int i = 0; i < 12; ++i)
            sum += unit();
        return sum;
    }

    /// An index into `weights`, with a probability proportional to its weight.
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
