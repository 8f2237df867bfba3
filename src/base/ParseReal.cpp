#include "base/Blanks.h"
#include "base/Multiply.h"
#include "base/Numbers.h"
#include "base/Sse2.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <system_error>

namespace {

// The value of a number out of range: infinity if it is too large, 0 if it is too small. Its power of ten
// decides, which is the place of the first digit other than 0 plus the exponent. The text is one whole
// number.
double OutOfRange(const char* at, const char* end)
{
    constexpr long long kFar = 1'000'000'000'000;
    long long magnitude = 0; // of the first digit that is not 0, as a power of ten
    bool found = false, point = false;
    for (; at != end && (IsDigit(*at) || *at == '.'); ++at) {
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
        for (; at != end; ++at)
            exponent = std::min(exponent * 10 + (*at - '0'), kFar);
        exponent = negative ? -exponent : exponent;
    }
    return magnitude + exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

// A number within a text, without its sign.
struct Magnitude {
    const char* begin;
    const char* end;
    bool isNegative;

    double Signed(double value) const { return isNegative ? -value : value; }
};

// The number that a text begins with after blanks, and all that follows it. Nothing is read beyond its first
// digit: no word and no second sign is looked at.
inline std::optional<Magnitude> FindReal(std::string_view text)
{
    const char* const end = text.data() + text.size();
    const char* at = SkipBlanks(text.data(), end);
    const bool isNegative = TakeSign(at, end);
    const char* const digit = at != end && *at == '.' ? at + 1 : at;
    if (digit == end || !IsDigit(*digit))
        return std::nullopt;
    return Magnitude{at, end, isNegative};
}

} // namespace

double ParseReal(std::string_view text)
{
    const auto found = FindReal(text);
    if (!found)
        return 0.0;
    double value = 0.0;
    const std::from_chars_result result = std::from_chars(found->begin, found->end, value);
    return found->Signed(result.ec == std::errc::result_out_of_range ? OutOfRange(found->begin, result.ptr)
                                                                     : value);
}

std::optional<double> LeadingReal(std::string_view text)
{
    const auto found = FindReal(text);
    double value = 0.0;
    if (!found || std::from_chars(found->begin, found->end, value).ec != std::errc())
        return std::nullopt;
    return found->Signed(value);
}

#if defined(PLEXORN_SSE2)

// Most reals of a drawing have a point, at most 19 digits and no exponent: digits / 10^decimals, rounded
// once. They are read here without a branch for a digit: the lengths of coordinates change from line to line,
// and every wrong guess of a loop's end costs as much as ten digits. plexorn_number_bench shows the gain over
// std::from_chars.
namespace {

constexpr std::ptrdiff_t kMostWhole = 8;
constexpr std::ptrdiff_t kMostDecimals = 16;
constexpr std::ptrdiff_t kMostDigits = 19; // what 64 bits hold

// 10^n, of which 5^n has so many bits.
struct Power {
    std::uint64_t ten;
    std::uint64_t reciprocal; // 2^(63 + bits) / 5^n, rounded down: between 2^63 and 2^64
    std::uint64_t scale;      // the bits of the double 2^(2 - bits - n)
    double real;
};

constexpr Power MakePower(int n)
{
    std::uint64_t five = 1, ten = 1;
    for (int i = 0; i < n; ++i) {
        five *= 5;
        ten *= 10;
    }
    const int bits = static_cast<int>(std::bit_width(five));
    // Long division of 2^(63 + bits), bit by bit; the first bits of the quotient are 0.
    std::uint64_t rest = 0, quotient = 0;
    for (int i = 63 + bits; i >= 0; --i) {
        rest = rest * 2 + (i == 63 + bits);
        quotient = quotient * 2 + (rest >= five);
        rest -= rest >= five ? five : 0;
    }
    return {ten, quotient, static_cast<std::uint64_t>(1023 + 2 - bits - n) << 52, static_cast<double>(ten)};
}

constexpr auto kPowers = [] {
    std::array<Power, kMostDecimals + 1> powers{};
    for (std::size_t n = 1; n < powers.size(); ++n) // 5^0 needs no division
        powers[n] = MakePower(static_cast<int>(n));
    return powers;
}();

// From the n-th of these bytes on: sixteen bytes of which the last n are set.
constexpr auto kLastBytes = [] {
    std::array<unsigned char, 32> bytes{};
    for (std::size_t i = 16; i < bytes.size(); ++i)
        bytes[i] = 0xFF;
    return bytes;
}();

__m128i Load16(const void* place)
{
    return _mm_loadu_si128(static_cast<const __m128i*>(place));
}

__m128i Load8(const void* place)
{
    return _mm_loadl_epi64(static_cast<const __m128i*>(place));
}

// Values of digits, two by two in 16 bits and then four by four in 32.
__m128i ValuesOfFour(__m128i digits)
{
    const __m128i pairs = _mm_srli_epi16(_mm_mullo_epi16(digits, _mm_set1_epi16(10 * 256 + 1)), 8);
    return _mm_madd_epi16(pairs, _mm_set1_epi32(1 << 16 | 100));
}

// Reads up to eight digits, a point and one to sixteen digits that fill a text to its end; false when the
// text has another form. What lies outside the text is read up to sixteen bytes before its end, eight before
// its begin and sixteen from its begin on.
bool ReadDecimal(const char* begin, const char* end, std::uint64_t& digits, std::ptrdiff_t& decimals)
{
    const int points = _mm_movemask_epi8(_mm_cmpeq_epi8(Load16(begin), _mm_set1_epi8('.')));
    const std::ptrdiff_t whole = std::countr_zero(static_cast<unsigned>(points) | 1u << (kMostWhole + 1));
    decimals = end - begin - whole - 1;
    if (whole > kMostWhole || decimals < 1 || decimals > kMostDecimals || whole + decimals > kMostDigits)
        return false;

    const auto values = [](__m128i characters, __m128i valid) {
        return _mm_and_si128(_mm_sub_epi8(characters, _mm_set1_epi8('0')), valid);
    };
    const __m128i before = values(Load8(begin + whole - 8), Load8(kLastBytes.data() + 8 + whole));
    const __m128i after = values(Load16(end - 16), Load16(kLastBytes.data() + decimals));
    const __m128i aboveNine = _mm_subs_epu8(_mm_max_epu8(before, after), _mm_set1_epi8(9));
    if (_mm_movemask_epi8(_mm_cmpeq_epi8(aboveNine, _mm_setzero_si128())) != 0xFFFF)
        return false;

    // Numbers of eight digits in 32 bits each: those before the point, 0, and those after it.
    const __m128i eights = _mm_madd_epi16(_mm_packs_epi32(ValuesOfFour(before), ValuesOfFour(after)),
                                          _mm_set1_epi32(1 << 16 | 10000));
    const std::uint64_t wholeValue = static_cast<std::uint64_t>(_mm_cvtsi128_si64(eights));
    const std::uint64_t halves =
        static_cast<std::uint64_t>(_mm_cvtsi128_si64(_mm_unpackhi_epi64(eights, eights)));
    digits = wholeValue * kPowers[static_cast<std::size_t>(decimals)].ten +
             (halves & 0xFFFFFFFFu) * 100'000'000 + (halves >> 32);
    return true;
}

// digits / 10^decimals, correctly rounded, with a sign; false when that takes more than is done here.
//
// With w = digits shifted to fill 64 bits, the quotient q = w * 2^(bits - 1) / 5^decimals lies between 2^62
// and 2^64, and its estimate by the reciprocal is at most 2 too small. Doubles there, and the middles
// between them, are multiples of 512: where none of these is within 2 of the estimate, q rounds as the
// estimate does. Else q is a double or next to a middle. The first is common, in short numbers, which the
// machine divides exactly; the second happens once in a hundred long ones.
bool Divide(std::uint64_t digits, std::ptrdiff_t decimals, std::uint64_t sign, double& value)
{
    const Power& power = kPowers[static_cast<std::size_t>(decimals)];
    const int shift = std::countl_zero(digits | 1);
    const std::uint64_t estimate = Multiply(digits << shift, power.reciprocal).high;
    if (((estimate + 2) & 511) >= 4) {
        const std::uint64_t scale = power.scale - (static_cast<std::uint64_t>(shift) << 52);
        // One bit less, so that the conversion is a signed one, the machine's own.
        value = static_cast<double>(static_cast<std::int64_t>(estimate >> 1)) *
                std::bit_cast<double>(scale | sign);
        return true;
    }
    if (digits > std::uint64_t{1} << 53)
        return false;
    const double quotient = static_cast<double>(static_cast<std::int64_t>(digits)) / power.real;
    value = std::bit_cast<double>(std::bit_cast<std::uint64_t>(quotient) | sign);
    return true;
}

} // namespace

double ParseLineReal(CDxfLine line)
{
    const char* const begin = line.data();
    const std::uint64_t isNegative = *begin == '-'; // an empty line is too short for any sign after it
    std::uint64_t digits;
    std::ptrdiff_t decimals;
    double value;
    if (!ReadDecimal(begin + isNegative, begin + line.size(), digits, decimals) ||
        !Divide(digits, decimals, isNegative << 63, value)) [[unlikely]]
        return ParseReal(line);
    return value;
}

#else

double ParseLineReal(CDxfLine line)
{
    return ParseReal(line);
}

#endif

std::optional<double> ParseWholeReal(std::string_view text)
{
    double value = 0;
    const std::from_chars_result result = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isWhole = result.ec == std::errc() && result.ptr == text.data() + text.size();
    return isWhole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}
