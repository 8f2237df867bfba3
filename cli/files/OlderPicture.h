// What is at a picture's place before it is drawn.
#pragma once

#include "cli/options/Options.h"

#include <filesystem>
#include <string>

namespace plexorn {

// Why the picture at output (kStandardStream is no picture) is not drawn again from the file drawing, as the
// end of a sentence that begins with the picture; empty when it is drawn.
std::string WhyLeftAlone(const std::filesystem::path& drawing, const std::string& output,
                         const Options& options);

// Whether a file is at output that has bytes but not the mark of this command's pictures, and so is lost when
// the picture replaces it.
bool HoldsOtherFile(const std::string& output);

// The value of the attribute data-generator that marks a picture.
inline constexpr const char* kGenerator = "plexorn";

} // namespace plexorn
