// The outlines of images, which underlays and WIPEOUT have as well.
#pragma once

#include "prepare/plain/Pen.h"

#include <vector>

namespace prepare {

// The corners that clip means: two of a rectangle, or a polygon's.
std::vector<Point2> OutlineOf(const std::vector<Point2>& clip);

// The corners of what the image shows of itself, in the output's plane.
std::vector<Point2> CornersOf(const Image& image, const Pen& pen);

} // namespace prepare
