#include "prepare/write/StandardDecimals.h"

#include <algorithm>
#include <cmath>

namespace prepare {

int StandardDecimals(const Box& extents)
{
    constexpr double kDigitsOfAll = 14;
    double farthest = 1e-300;
    if (!extents.IsEmpty())
        for (const double value : {extents.min.x, extents.min.y, extents.max.x, extents.max.y})
            farthest = std::max(farthest, std::fabs(value));
    return static_cast<int>(std::clamp(kDigitsOfAll - std::ceil(std::log10(farthest)), 0.0, 15.0));
}

} // namespace prepare
