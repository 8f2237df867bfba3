// How finely the curves of a drawing are drawn as lines.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace prepare {

// Each curve gets as many points as the tolerance asks for, as long as there are points to spare. Then curves
// get coarser: in the long run each takes what it earned.
class Fineness {
public:
    // tolerance: how far lines may be from their curve, above 0. spare: how many points all curves together
    // may take beyond what they earn.
    explicit Fineness(double tolerance, std::uint64_t spare = UINT64_MAX);

    // The tolerance of the next curve, or of the next part of one. coarsest: that of it while there is room.
    double Tolerance(double coarsest = HUGE_VAL) const;
    // Notes how many points that many parts of curves became.
    void Take(std::size_t parts, std::size_t points);
    // Whether anybody asked for the tolerance.
    bool WasAsked() const { return m_wasAsked; }
    // How many parts of curves were coarser than the tolerance that was asked for.
    std::uint64_t CoarseParts() const { return m_coarseParts; }

private:
    bool IsCoarse() const { return m_spare < m_half; }

    double m_tolerance;
    double m_half; // of the points that there are to spare at first
    double m_spare;
    std::uint64_t m_coarseParts = 0;
    mutable bool m_wasAsked = false;
};

} // namespace prepare
