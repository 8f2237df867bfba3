#include "base/Decimals.h"
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

// The digits of a number below 10^8, one in each byte, the first in the lowest; all are found at a time.
std::uint64_t DigitsOf(std::uint32_t value)
{
    const auto eachDivided = [](std::uint64_t lanes, std::uint64_t factor, int shift, std::uint64_t mask) {
        return ((lanes * factor) >> shift) & mask;
    };
    std::uint64_t digits = value / 10'000 | std::uint64_t{value % 10'000} << 32;
    const std::uint64_t hundreds = eachDivided(digits, 10'486, 20, 0x7F'0000'007F);
    digits = hundreds | (digits - 100 * hundreds) << 16;
    const std::uint64_t tens = eachDivided(digits, 103, 10, 0xF'000F'000F'000F);
    return tens | (digits - 10 * tens) << 8;
}

void WriteDigits(char* out, std::uint64_t digits)
{
    const std::uint64_t text = digits + 0x3030'3030'3030'3030;
    std::memcpy(out, &text, sizeof(text));
}

constexpr int BytesOf(int bits)
{
    return static_cast<int>(static_cast<unsigned>(bits) / 8);
}

// Nearly all numbers have up to eight digits. These are moved to their places without a way through memory,
// in a fifth fewer instructions.
char* WriteShort(std::uint32_t whole, bool isNegative, int decimals, char* out)
{
    const std::uint64_t digits = DigitsOf(whole);
    *out = '-';
    out += isNegative;
    const int point = kDigitsOfShort - decimals;
    const int begin = std::min(BytesOf(std::countr_zero(digits)), point - 1);
    const int decimalsLeft = decimals - BytesOf(std::countl_zero(digits));
    WriteDigits(out, digits >> 8 * begin);
    out += point - begin;
    if (decimalsLeft <= 0)
        return out;
    *out++ = '.';
    WriteDigits(out, digits >> 8 * point);
    return out + decimalsLeft;
}

// The same for any number of digits and decimals.
char* WriteLong(std::uint64_t whole, bool isNegative, int decimals, char* out)
{
    if (isNegative)
        *out++ = '-';
    const std::uint64_t first =
        whole < kEightDigits ? 0 : DigitsOf(static_cast<std::uint32_t>(whole / kEightDigits));
    const std::uint64_t last = DigitsOf(static_cast<std::uint32_t>(whole % kEightDigits));
    const int zerosBefore = first != 0 ? std::countr_zero(first) / 8 : 8 + std::countr_zero(last) / 8;
    const int zerosAfter = last != 0 ? std::countl_zero(last) / 8 : 8 + std::countl_zero(first) / 8;
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
        return out;
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

} // namespace

char* FormatDecimals(double value, int decimals, char* out)
{
    const double scaled = std::fabs(value * kPowersOfTen[decimals]);
    if (!(scaled < kMostScaled))
        return FormatGeneral(value, kDigitsOfLarge, out);
    const auto whole = static_cast<std::uint64_t>(Rounded(scaled));
    const bool isNegative = value < 0 && whole != 0;
    if (whole < kEightDigits && decimals < kDigitsOfShort) [[likely]]
        return WriteShort(static_cast<std::uint32_t>(whole), isNegative, decimals, out);
    return WriteLong(whole, isNegative, decimals, out);
}
