// What a drawing holds, for programs.
#pragma once

#include "cli/contents/DrawingInfo.h"

#include <string>

namespace plexorn {

// One JSON object and a line end; docs/manual.md describes its members.
std::string InfoJson(const std::string& file, const DrawingInfo& info, bool withTexts);

} // namespace plexorn
