// What a drawing holds, for people.
#pragma once

#include "cli/contents/DrawingInfo.h"

#include <string>

namespace plexorn {

// A table in UTF-8 without control characters.
std::string InfoText(const std::string& file, const DrawingInfo& info, bool withTexts);

} // namespace plexorn
