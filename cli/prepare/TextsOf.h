// The texts of a drawing.
#pragma once

#include "cli/contents/DrawingInfo.h"
#include "cli/files/Source.h"
#include "cli/options/Options.h"

#include <vector>

namespace plexorn {

// All texts as preparing reads them, in the order of the file: in UTF-8, with their plain words and places.
// Throws std::bad_alloc, and std::system_error when the drawing cannot be read to its end.
std::vector<TextInfo> TextsOf(Source& source, const Options& options);

} // namespace plexorn
