// Pi, and with it a full turn and degrees.
#pragma once

#include <numbers>

inline constexpr double kPi = std::numbers::pi;
inline constexpr double kTurn = 2 * kPi;
inline constexpr double kDegreesPerRadian = 180 / kPi;
inline constexpr double kRadiansPerDegree = kPi / 180;
