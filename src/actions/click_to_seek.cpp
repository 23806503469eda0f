#include "actions/click_to_seek.h"

#include "model/song.h"

#include <algorithm>
#include <cmath>

namespace sonavo {

std::optional<qint64> seekTarget(double x, double width, double duration)
{
    if (!std::isfinite(x) || !(width > 0.0))
        return std::nullopt;
    return wholeSeconds(std::min(x / width, 1.0) * duration);
}

} // namespace sonavo
