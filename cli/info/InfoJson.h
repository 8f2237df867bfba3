// What a drawing holds, for programs.
#pragma once

#include "cli/contents/DrawingInfo.h"
#include "cli/prepare/Becoming.h"

#include <string>

namespace plexorn {

// One JSON object and a line end; docs/manual.md describes its members. becoming is null when the drawing is
// not prepared: what becomes of its entities is what the module does by itself then.
std::string InfoJson(const std::string& file, const DrawingInfo& info, const Becoming* becoming,
                     bool withTexts);

} // namespace plexorn
