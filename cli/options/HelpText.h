// The text of --help, made from the tables of options.
#pragma once

#include "cli/options/OptionTable.h"

#include <string>

namespace plexorn {

std::string HelpText(const CommandRow& command);

} // namespace plexorn
