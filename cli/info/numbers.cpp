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
    auto isBlank = [](char character) {
        return character == ' ' || (character >= '\t' && character <= '\r');
    };
    const char* begin = text.data();
    const char* end = begin + text.size();
    while (begin != end && isBlank(*begin))
        ++begin;
    while (begin != end && isBlank(end[-1]))
        --end;
    return {begin, static_cast<size_t>(end - begin)};
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
