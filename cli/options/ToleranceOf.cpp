#include "cli/options/ToleranceOf.h"

#include "base/Numbers.h"

namespace plexorn {

std::optional<double> ToleranceOf(const std::string& text)
{
    const std::optional<double> number = ParseWholeReal(text);
    return number && *number > 0 ? number : std::nullopt;
}

} // namespace plexorn
