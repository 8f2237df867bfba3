#include "base/Blanks.h"
#include "base/Multiply.h"
#include "base/Numbers.h"
#include "base/Sse2.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstring>
#include <limits>
#include <system_error>

namespace {

// A number out of range is infinite or 0: which, its decimal exponent tells, that is, where its first
// digit other than 0 stands and what its exponent says. What is given is a number to its end.
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

// Most reals of a drawing have at most 19 digits and no exponent: digits / 10^decimals, rounded once. They
// are converted here in two thirds of the instructions that std::from_chars takes; bench/ shows the figure.
constexpr int kMostDigits = 19; // what 64 bits hold

struct POWER {
    std::uint64_t five;       // 5^n
    std::uint64_t reciprocal; // 2^(63 + bits) / 5^n, rounded down: between 2^63 and 2^64
    int bits;                 // of 5^n
};

consteval POWER MakePower(int n)
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

consteval auto MakePowers()
{
    std::array<POWER, kMostDigits + 1> powers{};
    for (std::size_t n = 1; n < powers.size(); ++n) // 5^0 needs no division
        powers[n] = MakePower(static_cast<int>(n));
    return powers;
}

constexpr auto kPowers = MakePowers();

// digits / 10^decimals, correctly rounded, for decimals from 1 to kMostDigits and digits above 0.
//
// With w = digits shifted to fill 64 bits, the quotient w * 2^(bits - 1) / 5^decimals has 63 or 64 bits. Its
// estimate by the reciprocal is at most 1 too small: the remainder, below 2 * 5^decimals and so exact in
// 64-bit arithmetic, tells.
double Divide(std::uint64_t digits, int decimals)
{
    const POWER& power = kPowers[static_cast<std::size_t>(decimals)];
    const int shift = std::countl_zero(digits);
    const std::uint64_t w = digits << shift;
    std::uint64_t quotient = Multiply(w, power.reciprocal).high;
    std::uint64_t rest = (w << (power.bits - 1)) - quotient * power.five;
    const bool isOneTooSmall = rest >= power.five;
    quotient += isOneTooSmall;
    rest -= isOneTooSmall ? power.five : 0;
    // One bit less, so that the conversion is a signed one, the machine's own; what is lost only has to say
    // that the quotient is not whole.
    const std::uint64_t rounded = quotient >> 1 | (quotient & 1) | (rest != 0);
    const int exponent = 1 - shift - (power.bits - 1) - decimals; // far from any limit
    const double scale = std::bit_cast<double>(static_cast<std::uint64_t>(1023 + exponent) << 52);
    return static_cast<double>(static_cast<std::int64_t>(rounded)) * scale;
}

#if defined(PLEXORN_SSE2)

constexpr std::uint64_t EightTimes(std::uint64_t byte)
{
    return byte * 0x0101010101010101u;
}

// The number that eight digits write, values from 0 to 9 with the first in the lowest byte: they are taken
// together in pairs, pairs of pairs and halves, with three multiplications.
std::uint64_t ValueOfEight(std::uint64_t digits)
{
    digits = digits * (10 * 256 + 1) >> 8;
    digits = (digits & 0x00FF00FF00FF00FFu) * (100 * 65536 + 1) >> 16;
    return (digits & 0x0000FFFF0000FFFFu) * (10000 * 4294967296u + 1) >> 32;
}

// The same for sixteen: two numbers of eight digits, the first in the low half.
std::uint64_t ValuesOfSixteen(__m128i digits)
{
    const __m128i tens = _mm_mullo_epi16(_mm_and_si128(digits, _mm_set1_epi16(0xFF)), _mm_set1_epi16(10));
    const __m128i pairs = _mm_add_epi16(tens, _mm_srli_epi16(digits, 8));
    const __m128i fours = _mm_madd_epi16(pairs, _mm_set1_epi32(1 << 16 | 100));
    const __m128i eights = _mm_madd_epi16(_mm_packs_epi32(fours, fours), _mm_set1_epi32(1 << 16 | 10000));
    return static_cast<std::uint64_t>(_mm_cvtsi128_si64(eights));
}

constexpr auto kPowersOfTen = [] {
    std::array<std::uint64_t, kMostDigits + 1> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 10;
    return powers;
}();

// From the n-th of these bytes on: sixteen bytes of which the last n are set.
constexpr auto kLastBytes = [] {
    std::array<unsigned char, 32> bytes{};
    for (std::size_t i = 16; i < bytes.size(); ++i)
        bytes[i] = 0xFF;
    return bytes;
}();

// Reads up to seven digits, a point and one to sixteen digits that fill a text to its end, without a branch
// for a digit: the lengths of coordinates change from line to line, and every wrong guess of a loop's end
// costs as much as ten digits. False when the text has another form. The sixteen bytes before the text and
// the eight from its begin on can be read.
bool ReadDecimal(const char* begin, const char* end, std::uint64_t& digits, std::ptrdiff_t& decimals)
{
    std::uint64_t first;
    std::memcpy(&first, begin, sizeof(first));
    const std::uint64_t difference = first ^ EightTimes('.');
    const std::uint64_t points = (difference - EightTimes(0x01)) & ~difference & EightTimes(0x80);
    const std::ptrdiff_t whole =
        std::countr_zero(points) / 8; // digits before the point; 8 when there is none
    decimals = end - begin - whole - 1;
    if (whole == 8 || decimals < 1 || decimals > 16 || whole + decimals > kMostDigits)
        return false;

    const auto load = [](const void* place) { return _mm_loadu_si128(static_cast<const __m128i*>(place)); };
    const __m128i characters = load(end - 16);
    const __m128i after =
        _mm_and_si128(_mm_sub_epi8(characters, _mm_set1_epi8('0')), load(kLastBytes.data() + decimals));
    const std::uint64_t before = (first ^ EightTimes('0')) << 8 * (7 - whole) << 8;
    const __m128i aboveNine = _mm_subs_epu8(after, _mm_set1_epi8(9));
    const int good = _mm_movemask_epi8(_mm_cmpeq_epi8(aboveNine, _mm_setzero_si128()));
    if (good != 0xFFFF || ((before | (before + EightTimes(0x7F - 9))) & EightTimes(0x80)) != 0)
        return false;

    const std::uint64_t halves = ValuesOfSixteen(after);
    digits = ValueOfEight(before) * kPowersOfTen[static_cast<std::size_t>(decimals)] +
             (halves & 0xFFFFFFFFu) * 100'000'000 + (halves >> 32);
    return true;
}

#else

bool ReadDecimal(const char*, const char*, std::uint64_t&, std::ptrdiff_t&)
{
    return false; // every number is read the plain way
}

#endif

// Reads digits onto value and returns the place behind them.
const char* ReadDigits(const char* at, const char* end, std::uint64_t& value)
{
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

double ValueOf(std::uint64_t digits, std::ptrdiff_t decimals)
{
    if (digits == 0 || decimals == 0)
        return static_cast<double>(digits);
    return Divide(digits, static_cast<int>(decimals));
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
    return ValueOf(digits, decimals);
}

} // namespace

double ParseReal(std::string_view text)
{
    const char* const end = text.data() + text.size();
    const char* at = SkipBlanks(text.data(), end);
    const bool negative = TakeSign(at, end);
    const char* const digit = at != end && *at == '.' ? at + 1 : at;
    if (digit == end || !IsDigit(*digit)) // no word and no second sign is looked at
        return 0.0;
    const double value = ParseUnsigned(at, end);
    return negative ? -value : value;
}

double ParseLineReal(std::string_view line)
{
    const char* const begin = line.data();
    const char* const end = begin + line.size();
    const bool negative = !line.empty() && *begin == '-';
    std::uint64_t digits;
    std::ptrdiff_t decimals;
    if (!ReadDecimal(begin + negative, end, digits, decimals)) [[unlikely]]
        return ParseReal(line);
    const double value = ValueOf(digits, decimals);
    return negative ? -value : value;
}
