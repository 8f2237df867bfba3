// What is at the place of a picture, or of a prepared drawing, before it is written.
#pragma once

#include "cli/options/Options.h"

#include <filesystem>
#include <string>

namespace plexorn {

// Why the picture at output (kStandardStream is no picture) is not drawn again from the file drawing, as the
// end of a sentence that begins with the picture; empty when it is drawn.
std::string WhyLeftAlone(const std::filesystem::path& drawing, const std::string& output,
                         const Options& options);

// Whether a file is at output that has bytes but not the mark of what this command writes, and so is lost
// when it is replaced.
bool HoldsOtherFile(const std::string& output);

} // namespace plexorn
