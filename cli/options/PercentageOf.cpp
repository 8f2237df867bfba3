#include "cli/options/PercentageOf.h"

#include "base/Numbers.h"

#include <string_view>

namespace plexorn {

std::optional<double> PercentageOf(const std::string& text)
{
    std::string_view digits = text;
    if (digits.ends_with('%'))
        digits.remove_suffix(1);
    if (digits.find_first_not_of("0123456789.") != std::string_view::npos)
        return std::nullopt;
    const std::optional<double> number = ParseWholeReal(digits);
    return number && *number <= 100 ? number : std::nullopt;
}

} // namespace plexorn
