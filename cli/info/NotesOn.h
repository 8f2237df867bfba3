// What a reader of a drawing should know besides the numbers.
#pragma once

#include "cli/contents/DrawingInfo.h"
#include "cli/prepare/Becoming.h"

#include <string>
#include <vector>

namespace plexorn {

// One sentence each. becoming is null when the drawing is not prepared.
std::vector<std::string> NotesOn(const DrawingInfo& info, const Becoming* becoming);

} // namespace plexorn
