#include "cli/options/Tolerance.h"

#include <charconv>
#include <cmath>

namespace plexorn {

std::optional<double> ToleranceOf(const std::string& text)
{
    const char* const end = text.data() + text.size();
    double number = 0;
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    const bool isNumber = result.ec == std::errc() && result.ptr == end && std::isfinite(number);
    return isNumber && number > 0 ? std::optional(number) : std::nullopt;
}

} // namespace plexorn
