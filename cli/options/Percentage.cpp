#include "cli/options/Percentage.h"

#include <charconv>

namespace plexorn {

std::optional<double> PercentageOf(const std::string& text)
{
    const char* end = text.data() + text.size();
    if (text.ends_with('%'))
        --end;
    double number = 0;
    const std::from_chars_result result = std::from_chars(text.data(), end, number, std::chars_format::fixed);
    const bool isNumber = result.ec == std::errc() && result.ptr == end && text[0] != '-';
    return isNumber && number >= 0 && number <= 100 ? std::optional(number) : std::nullopt;
}

} // namespace plexorn
