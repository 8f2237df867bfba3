// Numbers in drawings and in attribute texts: always in the C locale's form, whatever the host has set.
#pragma once

#include "base/Blanks.h"
#include "base/CDxfLine.h"

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

// Reads a group code as "%d" does: blanks, a sign and digits, anything after them ignored. Returns false,
// with the code unchanged, when there are no digits. A number outside 32 bits wraps.
bool ParseCode(std::string_view line, std::int32_t& code);

// The same for a code in three columns, as nearly all are: quick, and false, with the code unchanged, for any
// other line.
inline bool ParseUsualCode(std::string_view line, std::int32_t& code)
{
    const auto digit = [&](std::size_t place) { return static_cast<unsigned>(line[place] - '0'); };
    if (line.size() == 3 && digit(2) < 10) {
        unsigned value = digit(2);
        if (line[1] == ' ' && line[0] == ' ') {
            code = static_cast<std::int32_t>(value);
            return true;
        }
        if (digit(1) < 10 && (line[0] == ' ' || digit(0) < 10)) {
            value += digit(1) * 10 + (line[0] == ' ' ? 0 : digit(0) * 100);
            code = static_cast<std::int32_t>(value);
            return true;
        }
    }
    return false;
}

// Reads a code that is the whole line but for blanks around it: up to four digits, and perhaps a minus.
// False, with the code unchanged, for any other line.
bool ParseWholeCode(std::string_view line, std::int32_t& code);

// Reads an integer as _wtoi does: blanks, a sign and digits; 0 without digits; saturates.
std::int32_t ParseInteger(std::string_view text);

// The same; nothing where there are no digits.
std::optional<std::int32_t> LeadingInteger(std::string_view text);

// Reads a real as _wtof does: blanks, a sign, decimal digits with a point, an exponent with digits; 0 when
// there are no digits. Beyond the range it is infinite, below it 0. Hexadecimal numbers and words such as
// "inf" are not numbers.
double ParseReal(std::string_view text);

// The same; nothing where there are no digits, or where the number is beyond a double's range, large or
// small.
std::optional<double> LeadingReal(std::string_view text);

// As ParseReal, of a line in wide steps: bytes around it are read, though they do not count.
double ParseLineReal(CDxfLine line);

// Reads a number that is the whole text, in the form that it has for ParseReal, but with neither blanks nor a
// '+' before it; nothing for any other text, and for what a double cannot hold.
std::optional<double> ParseWholeReal(std::string_view text);

// Reads up to 16 hexadecimal digits; nothing when text has another character, or none.
inline std::optional<std::uint64_t> ParseHex(std::string_view text)
{
    std::uint64_t value = 0;
    for (const char character : text) {
        const int digit = HexDigit(character);
        if (digit < 0)
            return std::nullopt;
        value = value << 4 | static_cast<unsigned>(digit);
    }
    return text.empty() || text.size() > 16 ? std::nullopt : std::optional(value);
}

// The longest text that a number gives: the largest double has 309 digits before the point.
inline constexpr std::size_t kLongestNumber = 309 + 1 + 1 + 6;

// Each writes a number without a terminating zero, in at most kLongestNumber characters, and returns the
// end of it: as "%f", "%4.2f", "%g" and "%d". What is not a number is "nan" whatever its sign.
char* FormatFixed6(double value, char* out);
char* FormatWidth4Fixed2(double value, char* out);
char* FormatGeneral(double value, char* out);
char* FormatInteger(std::int32_t value, char* out);

// The same for wider integers, which have up to kLongestInteger digits and a sign.
inline constexpr std::size_t kLongestInteger = 20;
char* FormatSigned(std::int64_t value, char* out);
char* FormatUnsigned(std::uint64_t value, char* out);
template <std::integral Integer>
char* FormatInteger(Integer value, char* out)
{
    if constexpr (std::signed_integral<Integer>)
        return FormatSigned(value, out);
    else
        return FormatUnsigned(value, out);
}

// As "%.*f", "%.*e" and "%.*g": with so many decimals, or digits, up to kMostDigits; in at most
// kLongestFormatted characters.
inline constexpr int kMostDigits = 20;
inline constexpr std::size_t kLongestFormatted = 309 + 1 + 1 + kMostDigits;
char* FormatFixed(double value, int decimals, char* out);
char* FormatScientific(double value, int decimals, char* out);
char* FormatGeneral(double value, int digits, char* out);

// With so many decimals, 0 to 15, and no zero too many; 0 has no sign. In contrast to FormatFixed, what is
// rounded is the product with a power of ten, which makes short work of it. A number of more than 15 digits
// is written as FormatGeneral does with kDigitsOfLarge.
inline constexpr int kDigitsOfLarge = 14;
char* FormatDecimals(double value, int decimals, char* out);
// The same, but a number without decimals gets ".0".
char* FormatWithPoint(double value, int decimals, char* out);

// As "%0*x" and "%0*X": with zeros in front up to so many digits; in at most 16 characters, or digits.
char* FormatHex(std::uint64_t value, std::size_t digits, char* out);
char* FormatUpperHex(std::uint64_t value, std::size_t digits, char* out);

// The longest text that reads back as a double and has no digit too many: a sign, 17 digits with a point, and
// an exponent of three digits.
inline constexpr std::size_t kLongestShortest = 1 + 17 + 1 + 5;

// Each writes the shortest text that reads back as the same number, as std::to_chars chooses it, without a
// terminating zero and in at most kLongestShortest characters, and returns the end of it.
char* FormatShortest(float value, char* out);
char* FormatShortest(double value, char* out);

// At least as many characters as FormatFixed6 writes, and at most one more; from the exponent alone.
inline std::size_t RoomForFixed6(double value)
{
    const std::uint64_t bits = std::bit_cast<std::uint64_t>(value);
    const std::size_t exponent = bits >> 52 & 0x7FF;
    if (exponent == 0x7FF) // "-inf", "nan"
        return 4;
    // Rounded, it is 2^(exponent - 1022) at most; 0.30103 is hardly more than the logarithm of 2.
    const std::size_t digits = exponent < 1023 ? 1 : (exponent - 1022) * 30103 / 100'000 + 1;
    return (bits >> 63) + digits + sizeof(".000000") - 1;
}
