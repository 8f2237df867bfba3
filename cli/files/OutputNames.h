// The names of what is made of drawings.
#pragma once

#include "cli/files/Inputs.h"
#include "cli/options/Options.h"

#include <string>
#include <string_view>

namespace plexorn {

// What is made of drawings.
struct Product {
    std::string_view ending;
    std::string_view name;
};

Product ProductOf(Task task);

// Whether an output is a folder, or is named like one.
bool IsFolderOfPictures(const std::string& output);

// Where what is made of the drawing goes: into the folder that options name (isFolder), to the name that they
// give, or beside the drawing.
std::string OutputFor(const Input& input, const Options& options, bool isFolder);

} // namespace plexorn
