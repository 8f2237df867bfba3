#include "cli/info/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace plexorn {

namespace {

// std::from_chars takes no plus sign.
std::string_view WithoutPlus(std::string_view text)
{
    bool isPlus = text.size() > 1 && text[0] == '+' && text[1] != '-';
    return isPlus ? text.substr(1) : text;
}

} // namespace

std::string_view Trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n\v\f";
    size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::optional<int> LeadingInteger(std::string_view text)
{
    text = WithoutPlus(text);
    int value = 0;
    std::from_chars_result result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        return text.starts_with('-') ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    return result.ec == std::errc() ? std::optional(value) : std::nullopt;
}

std::optional<double> LeadingNumber(std::string_view text)
{
    text = WithoutPlus(text);
    double value = 0;
    std::from_chars_result result = std::from_chars(text.data(), text.data() + text.size(), value);
    // It knows the words for infinity and not-a-number, which are no numbers here.
    return result.ec == std::errc() && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

} // namespace plexorn
