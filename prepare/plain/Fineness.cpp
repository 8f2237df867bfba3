#include "prepare/plain/Fineness.h"

#include <algorithm>

namespace prepare {

namespace {

// What a part of a curve earns: enough points to show its shape.
constexpr double kEarned = 8;

} // namespace

Fineness::Fineness(double tolerance, std::uint64_t spare)
    : m_tolerance(tolerance), m_half(static_cast<double>(spare) / 2), m_spare(static_cast<double>(spare))
{
}

// The points of a curve fall with the square root of the tolerance. So a curve takes the same share of those
// that are left as it would take of half of all.
double Fineness::Tolerance(double coarsest) const
{
    m_wasAsked = true;
    const double wanted = std::min(m_tolerance, coarsest);
    if (!IsCoarse())
        return wanted;
    constexpr double kLeast = 1e-6;
    const double rest = std::max(m_spare / m_half, kLeast);
    return wanted / (rest * rest);
}

void Fineness::Take(std::size_t parts, std::size_t points)
{
    if (IsCoarse())
        m_coarseParts += parts;
    m_spare += kEarned * static_cast<double>(parts) - static_cast<double>(points);
    m_spare = std::max(m_spare, 0.0);
}

} // namespace prepare
