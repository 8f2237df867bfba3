// Which drawings are meant.
#pragma once

#include "cli/options/Options.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace plexorn {

// Whether path ends in .dxf, in small or capital letters, and has more than that.
bool EndsInDxf(std::string_view path);

// The name under which a drawing is reported.
std::string ShownName(const std::string& input);

// A drawing that is meant. One that cannot be taken (a folder without drawings, say) has a reason, as the end
// of a sentence.
struct Input {
    std::string name;
    // Where the drawing is within the folder that was named, and so its picture within the folder for
    // pictures.
    std::filesystem::path below;
    std::string reason{};
    std::string layout{}; // the sheet that is meant, where each has a picture of its own
};

struct Inputs {
    std::vector<Input> files;
    // Whether the command line can mean several drawings, however many there are: it has several names, a
    // folder, a pattern that the command expands, or a list.
    bool areMany = false;
};

// All the drawings that the names, the folders and the list mean, in their order. Throws UsageError when the
// list cannot be read, cannot be a list, or names the standard input that it comes from.
Inputs FindInputs(const Options& options);

} // namespace plexorn
