#include "cli/contents/LeadingNumbers.h"

#include "base/Blanks.h"
#include "base/Numbers.h"

#include <cmath>

namespace plexorn {

namespace {

// The text from its first digit or point on, without blanks and a sign before it.
std::string_view Unsigned(std::string_view text)
{
    const char* const end = text.data() + text.size();
    const char* at = SkipBlanks(text.data(), end);
    TakeSign(at, end);
    return {at, static_cast<std::size_t>(end - at)};
}

bool BeginsWithNumber(std::string_view digits)
{
    if (digits.starts_with('.'))
        digits.remove_prefix(1);
    return !digits.empty() && IsDigit(digits[0]);
}

// Whether all digits before an exponent are 0.
bool IsZero(std::string_view digits)
{
    std::size_t other = digits.find_first_not_of('0');
    if (other != std::string_view::npos && digits[other] == '.')
        other = digits.find_first_not_of('0', other + 1);
    return other == std::string_view::npos || !IsDigit(digits[other]);
}

} // namespace

std::optional<std::int32_t> LeadingInteger(std::string_view text)
{
    constexpr std::size_t kSafe = 9; // every number of that many characters fits 32 bits
    std::int32_t code = 0;
    if (!ParseCode(text, code))
        return std::nullopt;
    return text.size() <= kSafe ? code : ParseInteger(text);
}

std::optional<double> LeadingNumber(std::string_view text)
{
    const std::string_view digits = Unsigned(text);
    if (!BeginsWithNumber(digits))
        return std::nullopt;
    const double value = ParseReal(text);
    const bool isWithinRange = std::isfinite(value) && (value != 0 || IsZero(digits));
    return isWithinRange ? std::optional(value) : std::nullopt;
}

} // namespace plexorn
