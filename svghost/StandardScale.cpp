#include "svghost/StandardScale.h"

#include <algorithm>

namespace svghost {

namespace {

// Coordinates are 32-bit floats: a frame drawn round a sheet may miss its size by the last digits.
constexpr double kRounding = 1 + 1e-6;

// Sizes of what can be drawn are far below the last one.
constexpr int kMostPowers = 300;

bool FitsAt(double scale, double longer, double shorter)
{
    return longer <= kLongestSheet * kRounding * scale && shorter <= kWidestSheet * kRounding * scale;
}

} // namespace

double StandardScale(double width, double height)
{
    const double longer = std::max(width, height);
    const double shorter = std::min(width, height);
    double decade = 1;
    for (int power = 0; power < kMostPowers; ++power) {
        for (const double step : {1.0, 2.0, 2.5, 5.0}) {
            const double scale = decade * step;
            const bool isWhole = decade > 1 || step != 2.5;
            if (isWhole && FitsAt(scale, longer, shorter))
                return scale;
        }
        decade *= 10;
    }
    return 1;
}

} // namespace svghost
