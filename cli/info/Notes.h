// What a reader of a drawing should know besides the numbers.
#pragma once

#include "cli/contents/DrawingInfo.h"

#include <string>
#include <vector>

namespace plexorn {

// One sentence each.
std::vector<std::string> NotesOn(const DrawingInfo& info);

} // namespace plexorn
