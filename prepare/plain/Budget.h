// How many points a drawing may unfold to.
#pragma once

#include "prepare/plain/Fineness.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace prepare {

// The points of a drawing: those of its curves, and how many all its parts may have.
class Budget {
public:
    explicit Budget(double tolerance, std::uint64_t spareOfCurves = UINT64_MAX,
                    std::uint64_t mostPoints = UINT64_MAX)
        : curves(tolerance, spareOfCurves), m_rest(mostPoints)
    {
    }

    Fineness curves;

    // Notes a part of that many points. What a part costs beside its points counts as some of them.
    void Take(std::size_t points)
    {
        constexpr std::uint64_t kOfAnyPart = 4;
        m_rest -= std::min<std::uint64_t>(m_rest, points + kOfAnyPart);
    }
    void TakeText(std::size_t bytes) { Take(bytes / kBytesOfPoint); }
    // The points that are left.
    std::uint64_t Rest() const { return m_rest; }
    // There is no room for more.
    bool IsSpent() const { return m_rest == 0; }

private:
    static constexpr std::size_t kBytesOfPoint = 16; // of text, in a picture

    std::uint64_t m_rest;
};

} // namespace prepare
