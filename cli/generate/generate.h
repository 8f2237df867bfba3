// Texts made from the tables of options.
#ifndef PLEXORN_CLI_GENERATE_GENERATE_H
#define PLEXORN_CLI_GENERATE_GENERATE_H

#include "cli/optiontable.h"

#include <string>
#include <string_view>

namespace plexorn {

// What --help prints.
std::string HelpText(const CommandRow& command);

// The manual page and the completions of shells.
std::string ManualPage();
std::string BashCompletion();
std::string ZshCompletion();
std::string FishCompletion();

// The text called man, bash, zsh or fish; empty for another name.
std::string Generated(std::string_view name);

} // namespace plexorn

#endif
