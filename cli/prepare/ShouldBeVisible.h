// Whether a picture in which nothing is visible is a failure.
#pragma once

#include "cli/contents/DrawingInfo.h"
#include "prepare/report/Report.h"

namespace plexorn {

// Whether something should be visible of the drawing: it has an entity, also one within a block, or its file
// is cut off or damaged, so that nobody knows what it should hold.
bool ShouldBeVisible(const DrawingInfo& info);
bool ShouldBeVisible(const prepare::Report& findings);

} // namespace plexorn
