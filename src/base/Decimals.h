// Powers of ten, and numbers rounded by them.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdlib>

// Each is exact, as powers of ten are up to 10^22.
inline constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,
                                          1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19};

// Up to here doubles and the integers below them are the same, and a value times a power of ten is exact
// enough to be rounded.
inline constexpr double kMostScaled = 9e15;

// 10 to that power: the nearest double for powers of -22 to 22, and within two units of the last place for
// others of -300 to 300.
inline double PowerOfTen(int power)
{
    double result = 1;
    for (int rest = std::abs(power); rest > 0; rest -= 15)
        result *= kPowersOfTen[std::min(rest, 15)];
    return power < 0 ? 1 / result : result;
}

// The nearest number of that many decimals, 0 to 15; value itself where a double has no more.
inline double RoundedTo(double value, int decimals)
{
    const double scaled = value * kPowersOfTen[decimals];
    return std::fabs(scaled) < kMostScaled ? std::nearbyint(scaled) / kPowersOfTen[decimals] : value;
}
