// The digits of numbers, eight at a time.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

// The digits of a number below 10^8, one in each byte, the first in the lowest; all are found at a time.
inline std::uint64_t DigitsOf(std::uint32_t value)
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

// Eight of them as text.
inline std::uint64_t TextOfDigits(std::uint64_t digits)
{
    return digits + 0x3030'3030'3030'3030;
}

inline void WriteDigits(char* out, std::uint64_t digits)
{
    const std::uint64_t text = TextOfDigits(digits);
    std::memcpy(out, &text, sizeof(text));
}

// How many zeros eight digits begin or end with; 8 if there is nothing else.
inline int ZerosBefore(std::uint64_t digits)
{
    return static_cast<int>(static_cast<unsigned>(std::countr_zero(digits)) / 8);
}
inline int ZerosAfter(std::uint64_t digits)
{
    return static_cast<int>(static_cast<unsigned>(std::countl_zero(digits)) / 8);
}
