#include "reader/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <system_error>

namespace {

bool IsBlank(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

bool IsDigit(char character)
{
    return static_cast<unsigned char>(character - '0') < 10;
}

const char* SkipBlanks(const char* at, const char* end)
{
    while (at != end && IsBlank(*at))
        ++at;
    return at;
}

// Steps over one sign; true when it is a minus.
bool TakeSign(const char*& at, const char* end)
{
    const bool negative = at != end && *at == '-';
    if (negative || (at != end && *at == '+'))
        ++at;
    return negative;
}

// A number out of range is infinite or 0: which, its decimal exponent tells, that is, where its first
// digit other than 0 stands and what its exponent says.
double OutOfRange(const char* at, const char* end)
{
    constexpr long long kFar = 1'000'000'000'000;
    long long magnitude = 0; // of the first digit that is not 0, as a power of ten
    bool found = false, point = false;
    for (; at != end && (IsDigit(*at) || (*at == '.' && !point)); ++at) {
        if (*at == '.')
            point = true;
        else if (found)
            magnitude += point ? 0 : 1;
        else if (*at != '0')
            found = true;
        if (!found && point)
            --magnitude;
    }
    long long exponent = 0;
    if (at != end) { // at the exponent's letter
        ++at;
        const bool negative = TakeSign(at, end);
        for (; at != end && IsDigit(*at); ++at)
            exponent = std::min(exponent * 10 + (*at - '0'), kFar);
        exponent = negative ? -exponent : exponent;
    }
    return magnitude + exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

char* FormatReal(double value, char* out, std::chars_format format, int precision)
{
    if (std::isnan(value))
        return std::copy_n("nan", 3, out);
    return std::to_chars(out, out + kLongestNumber, value, format, precision).ptr;
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

double ParseReal(std::string_view text)
{
    const char* const end = text.data() + text.size();
    const char* at = SkipBlanks(text.data(), end);
    const bool negative = TakeSign(at, end);
    if (at == end || !(IsDigit(*at) || *at == '.')) // leaves no word and no second sign to from_chars
        return 0.0;
    double value = 0.0;
    const std::from_chars_result result = std::from_chars(at, end, value);
    if (result.ec == std::errc::result_out_of_range)
        value = OutOfRange(at, result.ptr);
    return negative ? -value : value;
}

std::string_view Trim(std::string_view text)
{
    const char* begin = text.data();
    const char* end = begin + text.size();
    while (end != begin && IsBlank(end[-1]))
        --end;
    return {SkipBlanks(begin, end), static_cast<std::size_t>(end - SkipBlanks(begin, end))};
}

char* FormatFixed6(double value, char* out)
{
    return FormatReal(value, out, std::chars_format::fixed, 6);
}

char* FormatWidth4Fixed2(double value, char* out)
{
    char* const end = FormatReal(value, out, std::chars_format::fixed, 2);
    const std::ptrdiff_t missing = 4 - (end - out);
    if (missing <= 0)
        return end;
    std::move_backward(out, end, end + missing);
    std::fill_n(out, missing, ' ');
    return end + missing;
}

char* FormatGeneral(double value, char* out)
{
    return FormatReal(value, out, std::chars_format::general, 6);
}

char* FormatInteger(std::int32_t value, char* out)
{
    return std::to_chars(out, out + kLongestNumber, value).ptr;
}
