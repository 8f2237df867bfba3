// What an option's value must be. Each gives why text cannot be the value, or an empty text.
#ifndef PLEXORN_CLI_OPTIONCHECKS_H
#define PLEXORN_CLI_OPTIONCHECKS_H

#include <string>

namespace plexorn {

std::string CheckNotEmpty(const std::string& text);
std::string CheckColour(const std::string& text);
std::string CheckUnits(const std::string& text);
std::string CheckMessageFormat(const std::string& text);
std::string CheckJobs(const std::string& text);
std::string CheckCount(const std::string& text);

} // namespace plexorn

#endif
