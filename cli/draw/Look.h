// How a picture looks, beyond what the drawing says.
#pragma once

#include "cli/options/Options.h"

#include <optional>
#include <string>

namespace plexorn {

struct Look {
    std::optional<std::string> background; // a CSS colour
    std::string style;                     // a style sheet, empty for none
};

Look LookFor(const Options& options);

} // namespace plexorn
