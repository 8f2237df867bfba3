#include "prepare/CurveTolerance.h"

#include <algorithm>

namespace prepare {

double CurveTolerance(double thinnestStroke, double side)
{
    constexpr double kShareOfStroke = 1.0 / 20, kShareOfDrawing = 1.0 / 4000;
    return std::min(thinnestStroke * kShareOfStroke, side * kShareOfDrawing);
}

} // namespace prepare
