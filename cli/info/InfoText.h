// What a drawing holds, for people.
#pragma once

#include "cli/contents/DrawingInfo.h"
#include "cli/prepare/Becoming.h"

#include <string>

namespace plexorn {

// A table in UTF-8 without control characters. becoming is null when the drawing is not
// prepared: what becomes of its entities is what the module does by itself then.
std::string InfoText(const std::string& file, const DrawingInfo& info, const Becoming* becoming,
                     bool withTexts);

} // namespace plexorn
