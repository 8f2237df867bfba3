#include "base/Blanks.h"
#include "base/Numbers.h"

#include <algorithm>

namespace {

// Both ways to read an integer have it inline.
inline std::optional<std::int32_t> Leading(std::string_view text)
{
    constexpr std::int64_t kLimit = std::int64_t{1} << 31;
    const char* const end = text.data() + text.size();
    const char* at = SkipBlanks(text.data(), end);
    const bool negative = TakeSign(at, end);
    if (at == end || !IsDigit(*at))
        return std::nullopt;
    std::int64_t value = 0;
    for (; at != end && IsDigit(*at); ++at)
        value = std::min(value * 10 + (*at - '0'), kLimit);
    return static_cast<std::int32_t>(negative ? -value : std::min(value, kLimit - 1));
}

} // namespace

bool ParseCode(std::string_view line, std::int32_t& code)
{
    const char* const end = line.data() + line.size();
    const char* at = SkipBlanks(line.data(), end);
    const bool negative = TakeSign(at, end);
    if (at == end || !IsDigit(*at))
        return false;
    std::uint32_t value = 0;
    for (; at != end && IsDigit(*at); ++at)
        value = value * 10 + static_cast<std::uint32_t>(*at - '0');
    code = static_cast<std::int32_t>(negative ? 0 - value : value);
    return true;
}

bool ParseWholeCode(std::string_view line, std::int32_t& code)
{
    constexpr std::size_t kLongest = 4;
    std::string_view text = Trim(line);
    const bool isNegative = text.starts_with('-');
    text.remove_prefix(isNegative ? 1 : 0);
    if (text.empty() || text.size() > kLongest || !std::all_of(text.begin(), text.end(), IsDigit<char>))
        return false;
    std::int32_t value = 0;
    for (const char digit : text)
        value = value * 10 + (digit - '0');
    code = isNegative ? -value : value;
    return true;
}

std::int32_t ParseInteger(std::string_view text)
{
    return Leading(text).value_or(0);
}

std::optional<std::int32_t> LeadingInteger(std::string_view text)
{
    return Leading(text);
}
