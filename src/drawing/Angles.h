// Angles in degrees.
#pragma once

#include "base/Pi.h"

#include <cmath>

// What comes of "while below 0 add 360, then while above 360 subtract 360", at once: an exact positive
// multiple of 360 gives 360, a negative one 0. The remainder is exact, as the steps of the loop are while the
// angle is large; the last step rounds here as it does there. What is not finite stays as it is.
inline double NormalizeDegrees(double angle)
{
    if (!std::isfinite(angle) || (angle >= 0.0 && angle <= 360.0))
        return angle;
    const double rest = std::fmod(angle, 360.0);
    if (angle < 0.0)
        return rest < 0.0 ? rest + 360.0 : 0.0;
    return rest > 0.0 ? rest : 360.0;
}
