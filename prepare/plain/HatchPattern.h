// The lines of a hatch's pattern.
#pragma once

#include "prepare/plain/HatchBoundary.h"

#include <cstddef>
#include <vector>

namespace prepare {

// The most lines of a hatch.
inline constexpr std::size_t kMostHatchLines = 20'000;

// Draws the pattern's lines within rings, by the even-odd rule; a dashed line is one stroke with a line type,
// but for the dashes at its start. False, and nothing is drawn, when the pattern is too dense to be seen or
// takes more than kMostHatchLines.
bool DrawPattern(const Hatch& hatch, const std::vector<Ring>& rings, Pen& pen);

} // namespace prepare
