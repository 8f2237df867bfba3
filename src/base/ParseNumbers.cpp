#include "base/Blanks.h"
#include "base/Numbers.h"

#include <algorithm>

bool ParseAnyCode(std::string_view line, std::int32_t& code)
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

std::int32_t ParseInteger(std::string_view text)
{
    constexpr std::int64_t kLimit = std::int64_t{1} << 31;
    const char* const end = text.data() + text.size();
    const char* at = SkipBlanks(text.data(), end);
    const bool negative = TakeSign(at, end);
    std::int64_t value = 0;
    for (; at != end && IsDigit(*at); ++at)
        value = std::min(value * 10 + (*at - '0'), kLimit);
    return static_cast<std::int32_t>(negative ? -value : std::min(value, kLimit - 1));
}
