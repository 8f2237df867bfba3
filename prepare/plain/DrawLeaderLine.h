// The lines and arrows that LEADER and MULTILEADER share.
#pragma once

#include "prepare/plain/Pen.h"

#include <string_view>
#include <vector>

namespace prepare {

// The name of the block with that handle in the table of blocks; empty if there is none.
std::string_view ArrowOfBlock(Handle record, const Drawing& drawing);

// The points that can be drawn; the pen loses the others.
std::vector<Point3> DrawableOf(const std::vector<Point3>& points, Pen& pen);

// The points are in world coordinates.
void DrawLeaderLine(const std::vector<Point3>& points, bool isSpline, Pen& pen);

// On the first point, where the segment that begins there has room for two. name is the block's; an empty one
// is the usual arrow.
void DrawLeaderArrow(std::string_view name, const std::vector<Point3>& points, double size, Pen& pen);

} // namespace prepare
