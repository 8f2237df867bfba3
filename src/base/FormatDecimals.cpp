#include "base/Blanks.h"
#include "base/Decimals.h"
#include "base/Digits.h"
#include "base/Numbers.h"
#include "base/Sse2.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace {

constexpr std::uint64_t kEightDigits = 100'000'000;
constexpr int kMostDigitsOfFixed = 16; // before and after the point
static_assert(kMostScaled < 1e16);
constexpr int kDigitsOfShort = 8;

// Ends a number without decimals.
template <bool hasPoint>
char* EndWhole(char* out)
{
    if (hasPoint) {
        *out++ = '.';
        *out++ = '0';
    }
    return out;
}

// Nearly all numbers have up to eight digits. These are moved to their places without a way through memory,
// in a fifth fewer instructions.
template <bool hasPoint>
char* WriteShort(std::uint32_t whole, bool isNegative, int decimals, char* out)
{
    const std::uint64_t digits = DigitsOf(whole);
    *out = '-';
    out += isNegative;
    const int point = kDigitsOfShort - decimals;
    const int begin = std::min(ZerosBefore(digits), point - 1);
    const int decimalsLeft = decimals - ZerosAfter(digits);
    WriteDigits(out, digits >> 8 * begin);
    out += point - begin;
    if (decimalsLeft <= 0)
        return EndWhole<hasPoint>(out);
    *out++ = '.';
    WriteDigits(out, digits >> 8 * point);
    return out + decimalsLeft;
}

// The same for any number of digits and decimals.
template <bool hasPoint>
char* WriteLong(std::uint64_t whole, bool isNegative, int decimals, char* out)
{
    if (isNegative)
        *out++ = '-';
    const std::uint64_t first =
        whole < kEightDigits ? 0 : DigitsOf(static_cast<std::uint32_t>(whole / kEightDigits));
    const std::uint64_t last = DigitsOf(static_cast<std::uint32_t>(whole % kEightDigits));
    const int zerosBefore = first != 0 ? ZerosBefore(first) : 8 + ZerosBefore(last);
    const int zerosAfter = last != 0 ? ZerosAfter(last) : 8 + ZerosAfter(first);
    char digits[3 * kMostDigitsOfFixed] = {}; // and as many that are copied, but do not count
    WriteDigits(digits, first);
    WriteDigits(digits + 8, last);
    const int point = kMostDigitsOfFixed - decimals;
    const int begin = std::min(zerosBefore, point - 1);
    const int decimalsLeft = std::max(decimals - zerosAfter, 0);
    // As many as there can be: what is too many is written over.
    std::memcpy(out, digits + begin, kMostDigitsOfFixed);
    out += point - begin;
    if (decimalsLeft == 0)
        return EndWhole<hasPoint>(out);
    *out++ = '.';
    std::memcpy(out, digits + point, kMostDigitsOfFixed);
    return out + decimalsLeft;
}

// The nearest whole number, as nearbyint finds it.
std::int64_t Rounded(double value)
{
#if defined(PLEXORN_SSE2)
    return _mm_cvtsd_si64(_mm_set_sd(value)); // no call
#else
    return static_cast<std::int64_t>(std::nearbyint(value));
#endif
}

template <bool hasPoint>
char* Format(double value, int decimals, char* out)
{
    const double scaled = std::fabs(value * kPowersOfTen[decimals]);
    if (!(scaled < kMostScaled)) {
        char* const end = FormatGeneral(value, kDigitsOfLarge, out);
        return std::all_of(out + (*out == '-'), end, IsDigit<char>) ? EndWhole<hasPoint>(end) : end;
    }
    const auto whole = static_cast<std::uint64_t>(Rounded(scaled));
    const bool isNegative = value < 0 && whole != 0;
    if (whole < kEightDigits && decimals < kDigitsOfShort) [[likely]]
        return WriteShort<hasPoint>(static_cast<std::uint32_t>(whole), isNegative, decimals, out);
    return WriteLong<hasPoint>(whole, isNegative, decimals, out);
}

} // namespace

char* FormatDecimals(double value, int decimals, char* out)
{
    return Format<false>(value, decimals, out);
}

char* FormatWithPoint(double value, int decimals, char* out)
{
    return Format<true>(value, decimals, out);
}
