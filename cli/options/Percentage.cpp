#include "cli/options/Percentage.h"

#include "base/Numbers.h"

#include <algorithm>
#include <string_view>

namespace plexorn {

std::optional<double> PercentageOf(const std::string& text)
{
    std::string_view digits = text;
    if (digits.ends_with('%'))
        digits.remove_suffix(1);
    const auto points = std::count(digits.begin(), digits.end(), '.');
    const bool isNumber = points <= 1 && digits.size() > static_cast<std::size_t>(points) &&
                          digits.find_first_not_of("0123456789.") == std::string_view::npos;
    const double number = ParseReal(digits);
    return isNumber && number <= 100 ? std::optional(number) : std::nullopt;
}

} // namespace plexorn
