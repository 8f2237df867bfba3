// The dashes of a hatch's lines.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace prepare {

// Dashes and gaps in turn, a dash first and a gap last; empty for a solid line.
struct HatchDashes {
    std::vector<double> lengths; // gaps are below 0
    double origin = 0;           // where the first dash begins
    double period = 0;

    // dashes are those of a pattern: above 0 drawn, below 0 a gap, 0 a dot, which is drawn dot long.
    HatchDashes(std::span<const double> dashes, double dot);

    bool IsSolid() const { return lengths.empty(); }
};

} // namespace prepare
