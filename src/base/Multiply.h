// The full product of two 64-bit numbers.
#pragma once

#include <cstdint>

struct Uint128 {
    std::uint64_t low;
    std::uint64_t high;
};

#if defined(__SIZEOF_INT128__) && !defined(PLEXORN_PORTABLE)

inline Uint128 Multiply(std::uint64_t a, std::uint64_t b)
{
    __extension__ using Wide = unsigned __int128; // one instruction in place of four and their sums
    const Wide product = static_cast<Wide>(a) * b;
    return {static_cast<std::uint64_t>(product), static_cast<std::uint64_t>(product >> 64)};
}

#else

inline Uint128 Multiply(std::uint64_t a, std::uint64_t b)
{
    const std::uint64_t aLow = a & 0xFFFFFFFFu, aHigh = a >> 32;
    const std::uint64_t bLow = b & 0xFFFFFFFFu, bHigh = b >> 32;
    const std::uint64_t low = aLow * bLow;
    const std::uint64_t middle1 = aHigh * bLow + (low >> 32);
    const std::uint64_t middle2 = aLow * bHigh + (middle1 & 0xFFFFFFFFu);
    return {(middle2 << 32) | (low & 0xFFFFFFFFu), aHigh * bHigh + (middle1 >> 32) + (middle2 >> 32)};
}

#endif
