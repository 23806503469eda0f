#pragma once

#include <QtGlobal>

#include <limits>

namespace sonavo {

/// Sum and product of counts, which stay at the maximum instead of overflowing.
/// @param a, b, count zero or more
/// @param factor one or more
[[nodiscard]] constexpr qint64 saturatingSum(qint64 a, qint64 b)
{
    constexpr qint64 MAXIMUM = std::numeric_limits<qint64>::max();
    return a > MAXIMUM - b ? MAXIMUM : a + b;
}

[[nodiscard]] constexpr qint64 saturatingProduct(qint64 count, qint64 factor)
{
    constexpr qint64 MAXIMUM = std::numeric_limits<qint64>::max();
    return count > MAXIMUM / factor ? MAXIMUM : count * factor;
}

} // namespace sonavo
