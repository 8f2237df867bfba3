#include "prepare/plain/LineTypeShapes.h"

#include <algorithm>
#include <cmath>

namespace prepare {

bool IsNearlyAllShapes(const LineType& lineType)
{
    constexpr double kLeastShare = 0.25;
    double drawn = 0, whole = 0;
    for (const double length : lineType.dashes) {
        drawn += std::max(length, 0.0);
        whole += std::fabs(length);
    }
    return lineType.hasShapes && drawn < kLeastShare * whole;
}

} // namespace prepare
