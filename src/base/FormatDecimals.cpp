#include "base/Decimals.h"
#include "base/Numbers.h"

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

} // namespace

char* FormatDecimals(double value, int decimals, char* out)
{
    const double scaled = std::fabs(value * kPowersOfTen[decimals]);
    if (!(scaled < kMostScaled))
        return FormatGeneral(value, kDigitsOfLarge, out);
    const auto whole = static_cast<std::uint64_t>(std::nearbyint(scaled));
    if (value < 0 && whole != 0)
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
