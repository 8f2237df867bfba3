// What was meant by a word that the command does not know.
#pragma once

#include "cli/options/OptionTable.h"

#include <string>
#include <string_view>

namespace plexorn {

// How many letters have to be added, left out, changed or exchanged with the next one to make one word of the
// other; words that differ in their length by more than a few are just far apart.
std::size_t EditDistance(std::string_view a, std::string_view b);

// What was meant by an argument that is no option of command: "--paper", say, or "plexorn info --json"; empty
// when nothing is near.
std::string SuggestedOption(const CommandRow& command, std::string_view argument);

// What was meant by word where the name of a command may be: "plexorn info", say; empty when nothing is near.
std::string SuggestedCommand(std::string_view word);

} // namespace plexorn
