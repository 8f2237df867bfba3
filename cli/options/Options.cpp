#include "cli/options/Options.h"

#include <algorithm>

namespace plexorn {

bool NamesStandardInputTwice(const std::vector<std::string>& names, const std::string& list)
{
    return std::count(names.begin(), names.end(), kStandardStream) + (list == kStandardStream) > 1;
}

} // namespace plexorn
