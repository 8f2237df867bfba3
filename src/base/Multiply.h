// The full product of two 64-bit numbers.
#pragma once

#include <cstdint>

struct UINT128 {
    std::uint64_t low;
    std::uint64_t high;
};

#if defined(__SIZEOF_INT128__) && !defined(PLEXORN_PORTABLE)

inline UINT128 Multiply(std::uint64_t a, std::uint64_t b)
{
    __extension__ using WIDE = unsigned __int128; // one instruction in place of four and their sums
    const WIDE product = static_cast<WIDE>(a) * b;
    return {static_cast<std::uint64_t>(product), static_cast<std::uint64_t>(product >> 64)};
}

#else

inline UINT128 Multiply(std::uint64_t a, std::uint64_t b)
{
    const std::uint64_t aLow = a & 0xFFFFFFFFu, aHigh = a >> 32;
    const std::uint64_t bLow = b & 0xFFFFFFFFu, bHigh = b >> 32;
    const std::uint64_t low = aLow * bLow;
    const std::uint64_t middle1 = aHigh * bLow + (low >> 32);
    const std::uint64_t middle2 = aLow * bHigh + (middle1 & 0xFFFFFFFFu);
    return {(middle2 << 32) | (low & 0xFFFFFFFFu), aHigh * bHigh + (middle1 >> 32) + (middle2 >> 32)};
}

#endif
