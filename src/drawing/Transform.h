// From drawing points to document points.
#pragma once

#include "entities/DXF_POINT2D.h"

#include <cstdint>
#include <limits>

// The Y mode in which a drawing's Y, which points up, is turned to point down.
inline constexpr std::int32_t kFlippedYAxisMode = 2;

inline DXF_POINT2D TransformPoint(double x, double y, double scale, std::int32_t yAxisMode)
{
    return {x * scale, yAxisMode == kFlippedYAxisMode ? -(y * scale) : y * scale};
}

// The host takes coordinates as floats; what is too large for one becomes infinite (quirk 45).
inline float ToFloat(double value)
{
    static_assert(std::numeric_limits<float>::is_iec559); // else the conversion would be undefined
    return static_cast<float>(value);
}
