// Strokes that cover an area, for hosts that fill nothing.
#pragma once

#include "prepare/drawing/Point.h"

#include <cstdint>
#include <span>
#include <vector>

namespace prepare {

// A stroke along the points, with flat ends; a closed one ends where it starts, in the midst of an edge.
struct AreaStroke {
    std::vector<Point2> points;
    std::int32_t width; // in hundredths
};

// How many edges may be looked at for all areas of a drawing, besides some for each edge.
inline constexpr std::uint64_t kSpareLooks = 20'000'000;

// Strokes within the area between the rings (what an odd number of them is around). They overlap, and leave
// free only what is narrower than half a stroke. stroke: the width of the drawing's thinnest one. Each ring
// has three points at least, all finite, and no two alike in succession; there may be none.
//
// There are about twelve strokes, fewer of a simple or small area, more of a jagged one. It does not matter
// how the corners of strokes are drawn. Takes time for each edge, and some of spareLooks besides. Of an area
// that is too elaborate for that, parts are left free.
std::vector<AreaStroke> CoverArea(std::span<const std::vector<Point2>> rings, double stroke,
                                  std::uint64_t& spareLooks);

} // namespace prepare
