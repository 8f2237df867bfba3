// A keyed hash for tables that a file fills.
#pragma once

#include "base/Multiply.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

// The high half xor the low half of a product.
inline std::uint64_t MultiplyAndFold(std::uint64_t a, std::uint64_t b)
{
    const Uint128 product = Multiply(a, b);
    return product.high ^ product.low;
}

// Up to eight bytes as a number, with no call of memcpy for a length that is not known.
inline std::uint64_t LoadBytes(const char* bytes, std::size_t size)
{
    const auto load = [&](auto word, std::size_t place) {
        std::memcpy(&word, bytes + place, sizeof(word));
        return std::uint64_t{word};
    };
    if (size >= 8)
        return load(std::uint64_t{}, 0);
    if (size >= 4)
        return load(std::uint32_t{}, 0) | load(std::uint32_t{}, size - 4) << 32;
    if (size >= 2)
        return load(std::uint16_t{}, 0) | load(std::uint16_t{}, size - 2) << 16;
    return size == 0 ? 0 : static_cast<unsigned char>(*bytes);
}

// Up to seven bytes, the first in the lowest place and 0 after the last, with no call of memcpy. Where the
// two loads overlap, both have the same bytes.
inline std::uint64_t LoadText(const char* bytes, std::size_t size)
{
    const auto load = [&](auto word, std::size_t place) {
        std::memcpy(&word, bytes + place, sizeof(word));
        return std::uint64_t{word} << 8 * place;
    };
    if (size >= 4)
        return load(std::uint32_t{}, 0) | load(std::uint32_t{}, size - 4);
    if (size >= 2)
        return load(std::uint16_t{}, 0) | load(std::uint16_t{}, size - 2);
    return size == 0 ? 0 : static_cast<unsigned char>(*bytes);
}

// True when size bytes are the same; for short texts without a call.
inline bool EqualBytes(const char* left, const char* right, std::size_t size)
{
    if (size > 24)
        return std::memcmp(left, right, size) == 0;
    std::uint64_t difference = 0;
    for (std::size_t i = 0; i + 8 < size; i += 8)
        difference |= LoadBytes(left + i, 8) ^ LoadBytes(right + i, 8);
    const std::size_t tail = size >= 8 ? size - 8 : 0;
    return (difference | (LoadBytes(left + tail, size - tail) ^ LoadBytes(right + tail, size - tail))) == 0;
}

// A hash of bytes that depends on a key. Nobody who does not know the key can make a drawing whose names all
// fall into one slot.
inline std::uint64_t HashBytes(const void* bytes, std::size_t size, std::uint64_t key)
{
    constexpr std::uint64_t kMix1 = 0x9E3779B97F4A7C15u, kMix2 = 0xD6E8FEB86659FD93u; // odd, many bits set
    const char* const begin = static_cast<const char*>(bytes);
    std::uint64_t hash = key ^ (size * kMix1);
    for (std::size_t i = 0; i + 8 < size; i += 8)
        hash = MultiplyAndFold(hash ^ LoadBytes(begin + i, 8) ^ kMix1, key ^ kMix2) + LoadBytes(begin + i, 8);
    // The last eight bytes, some of them for the second time, or all there are.
    const std::uint64_t tail = size >= 8 ? LoadBytes(begin + size - 8, 8) : LoadBytes(begin, size);
    return MultiplyAndFold(hash ^ tail ^ kMix2, key ^ kMix1);
}

// A key: the address of the object, which the systems choose again for each process.
inline std::uint64_t HashKey(const void* object)
{
    return MultiplyAndFold(reinterpret_cast<std::uintptr_t>(object) ^ 0xA0761D6478BD642Fu,
                           0xE7037ED1A0B428DBu) |
           1u;
}
