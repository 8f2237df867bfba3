#include "reader/Blanks.h"
#include "reader/Multiply.h"
#include "reader/Numbers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstring>
#include <limits>
#include <system_error>

namespace {

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

// Most reals of a drawing have at most 19 digits and no exponent: digits / 10^decimals, rounded once. They
// are converted here in two thirds of the instructions that std::from_chars takes; bench/ shows the figure.
constexpr int kMostDigits = 19; // what 64 bits hold

struct POWER {
    std::uint64_t five;       // 5^n
    std::uint64_t reciprocal; // 2^(63 + bits) / 5^n, rounded down: between 2^63 and 2^64
    int bits;                 // of 5^n
};

constexpr POWER MakePower(int n)
{
    std::uint64_t five = 1;
    for (int i = 0; i < n; ++i)
        five *= 5;
    const int bits = static_cast<int>(std::bit_width(five));
    // Long division of 2^(63 + bits), bit by bit; the first bits of the quotient are 0.
    std::uint64_t rest = 0, quotient = 0;
    for (int i = 63 + bits; i >= 0; --i) {
        rest = rest * 2 + (i == 63 + bits);
        quotient = quotient * 2 + (rest >= five);
        rest -= rest >= five ? five : 0;
    }
    return {five, quotient, bits};
}

constexpr auto kPowers = [] {
    std::array<POWER, kMostDigits + 1> powers{};
    for (int n = 1; n <= kMostDigits; ++n) // 5^0 needs no division
        powers[static_cast<std::size_t>(n)] = MakePower(n);
    return powers;
}();

// digits / 10^decimals, correctly rounded, for decimals from 1 to kMostDigits and digits above 0.
//
// With w = digits shifted to fill 64 bits, the quotient w * 2^(bits - 1) / 5^decimals has 63 or 64 bits. Its
// estimate by the reciprocal is at most 1 too small: the remainder, below 2 * 5^decimals and so exact in
// 64-bit arithmetic, tells. Quotient and remainder then decide the rounding to 53 bits, to even on a tie.
double Divide(std::uint64_t digits, int decimals)
{
    const POWER& power = kPowers[static_cast<std::size_t>(decimals)];
    const int shift = std::countl_zero(digits);
    const std::uint64_t w = digits << shift;
    std::uint64_t quotient = Multiply(w, power.reciprocal).high;
    std::uint64_t rest = (w << (power.bits - 1)) - quotient * power.five;
    if (rest >= power.five) {
        rest -= power.five;
        ++quotient;
    }
    const int dropped = static_cast<int>(std::bit_width(quotient)) - 53;
    const std::uint64_t half = std::uint64_t{1} << (dropped - 1);
    const std::uint64_t tail = quotient & (2 * half - 1);
    std::uint64_t mantissa = quotient >> dropped;
    if (tail > half || (tail == half && (rest != 0 || (mantissa & 1) != 0)))
        ++mantissa;
    const int exponent = dropped - shift - (power.bits - 1) - decimals; // far from any limit
    const double scale = std::bit_cast<double>(static_cast<std::uint64_t>(1023 + exponent) << 52);
    return static_cast<double>(mantissa) * scale;
}

// The eight digits at a place as a number; false when one of them is none. The bytes are taken as digits in
// pairs, pairs of pairs and so on (three multiplications instead of eight).
bool ReadEightDigits(const char* at, std::uint64_t& value)
{
    if constexpr (std::endian::native != std::endian::little)
        return false;
    std::uint64_t bytes;
    std::memcpy(&bytes, at, sizeof(bytes));
    const std::uint64_t tens = bytes & 0xF0F0F0F0F0F0F0F0u;
    const std::uint64_t above9 = (bytes + 0x0606060606060606u) & 0xF0F0F0F0F0F0F0F0u;
    if (tens != 0x3030303030303030u || above9 != 0x3030303030303030u)
        return false;
    bytes = (bytes & 0x0F0F0F0F0F0F0F0Fu) * 2561 >> 8;
    bytes = (bytes & 0x00FF00FF00FF00FFu) * 6553601 >> 16;
    value = (bytes & 0x0000FFFF0000FFFFu) * 42949672960001u >> 32;
    return true;
}

// Reads digits onto value and returns the place behind them.
const char* ReadDigits(const char* at, const char* end, std::uint64_t& value)
{
    for (std::uint64_t eight; end - at >= 8 && ReadEightDigits(at, eight); at += 8)
        value = value * 100'000'000 + eight;
    for (; at != end && IsDigit(*at); ++at)
        value = value * 10 + static_cast<std::uint64_t>(*at - '0');
    return at;
}

// A number that begins with a digit or a point, of any length and with any exponent.
double ParseAnyReal(const char* at, const char* end)
{
    double value = 0.0;
    const std::from_chars_result result = std::from_chars(at, end, value);
    return result.ec == std::errc::result_out_of_range ? OutOfRange(at, result.ptr) : value;
}

double ParseUnsigned(const char* begin, const char* end)
{
    std::uint64_t digits = 0; // may wrap where there are too many: then it is not used
    const char* at = ReadDigits(begin, end, digits);
    std::ptrdiff_t count = at - begin;
    std::ptrdiff_t decimals = 0;
    if (at != end && *at == '.') {
        const char* const point = at;
        at = ReadDigits(point + 1, end, digits);
        decimals = at - (point + 1);
        count += decimals;
    }
    if (count > kMostDigits || (at != end && (*at == 'e' || *at == 'E')))
        return ParseAnyReal(begin, end);
    if (digits == 0 || decimals == 0)
        return static_cast<double>(digits);
    return Divide(digits, static_cast<int>(decimals));
}

} // namespace

double ParseReal(std::string_view text)
{
    const char* const end = text.data() + text.size();
    const char* at = SkipBlanks(text.data(), end);
    const bool negative = TakeSign(at, end);
    if (at == end || !(IsDigit(*at) || *at == '.')) // no word and no second sign is looked at
        return 0.0;
    const double value = ParseUnsigned(at, end);
    return negative ? -value : value;
}
