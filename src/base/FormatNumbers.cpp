#include "base/Digits.h"
#include "base/Multiply.h"
#include "base/Numbers.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

namespace {

char* FormatReal(double value, char* out, std::chars_format format, int precision)
{
    if (std::isnan(value))
        return std::copy_n("nan", 3, out);
    return std::to_chars(out, out + kLongestFormatted, value, format, precision).ptr;
}

char* FormatHexWith(const char (&digitsOf)[17], std::uint64_t value, std::size_t digits, char* out)
{
    while (digits < 16 && value >> (4 * digits) != 0)
        ++digits;
    for (std::size_t i = digits; i-- > 0; value >>= 4)
        out[i] = digitsOf[value & 15];
    return out + digits;
}

// Between these lie almost all coordinates; their millionths are whole numbers of 64 bits and come from the
// double's own bits. plexorn_number_bench shows the gain over std::to_chars.
constexpr double kSmallestQuick = 0x1p-10;
constexpr double kLargestQuick = 1e12;

// value * 10^6, rounded to a whole number, to even on a tie: exact. value lies between the two limits.
std::uint64_t Millionths(double value)
{
    const std::uint64_t bits = std::bit_cast<std::uint64_t>(value);
    const int shift = 1075 - static_cast<int>(bits >> 52); // value = mantissa / 2^shift, from 13 to 62
    const std::uint64_t mantissa = (bits & ((std::uint64_t{1} << 52) - 1)) | std::uint64_t{1} << 52;
    const Uint128 product = Multiply(mantissa, 1'000'000);
    const std::uint64_t whole = product.low >> shift | product.high << (64 - shift);
    const std::uint64_t rest = product.low & ((std::uint64_t{1} << shift) - 1);
    const std::uint64_t half = std::uint64_t{1} << (shift - 1);
    return whole + (rest > half || (rest == half && (whole & 1) != 0));
}

// Writes eight characters, of which the number's digits count.
char* WriteWhole(std::uint32_t whole, char* out)
{
    const std::uint64_t digits = DigitsOf(whole);
    const int begin = std::min(ZerosBefore(digits), 7);
    WriteDigits(out, digits >> 8 * begin);
    return out + 8 - begin;
}

} // namespace

char* FormatFixed6(double value, char* out)
{
    const double magnitude = std::fabs(value);
    const bool isQuick = (magnitude >= kSmallestQuick && magnitude < kLargestQuick) || magnitude == 0;
    if (!isQuick) // what is not a number too
        return FormatReal(value, out, std::chars_format::fixed, 6);
    if (std::signbit(value))
        *out++ = '-';
    const std::uint64_t millionths = magnitude == 0 ? 0 : Millionths(magnitude);
    const std::uint64_t whole = millionths / 1'000'000;
    const auto decimals = static_cast<std::uint32_t>(millionths % 1'000'000);
    if (whole < 100'000'000) [[likely]]
        out = WriteWhole(static_cast<std::uint32_t>(whole), out);
    else
        out = std::to_chars(out, out + kLongestNumber, whole).ptr;
    *out = '.';
    const std::uint64_t text = TextOfDigits(decimals == 0 ? 0 : DigitsOf(decimals) >> 16);
    std::memcpy(out + 1, &text, 6);
    return out + 7;
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

char* FormatSigned(std::int64_t value, char* out)
{
    return std::to_chars(out, out + kLongestInteger, value).ptr;
}

char* FormatUnsigned(std::uint64_t value, char* out)
{
    return std::to_chars(out, out + kLongestInteger, value).ptr;
}

char* FormatFixed(double value, int decimals, char* out)
{
    return FormatReal(value, out, std::chars_format::fixed, decimals);
}

char* FormatScientific(double value, int decimals, char* out)
{
    return FormatReal(value, out, std::chars_format::scientific, decimals);
}

char* FormatGeneral(double value, int digits, char* out)
{
    return FormatReal(value, out, std::chars_format::general, digits);
}

char* FormatHex(std::uint64_t value, std::size_t digits, char* out)
{
    return FormatHexWith("0123456789abcdef", value, digits, out);
}

char* FormatUpperHex(std::uint64_t value, std::size_t digits, char* out)
{
    return FormatHexWith("0123456789ABCDEF", value, digits, out);
}
