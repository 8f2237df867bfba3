// A keyed hash for tables that a file fills.
#pragma once

#include "reader/Multiply.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

// The high half xor the low half of a product.
inline std::uint64_t MultiplyAndFold(std::uint64_t a, std::uint64_t b)
{
    const UINT128 product = Multiply(a, b);
    return product.high ^ product.low;
}

// A hash of bytes that depends on a key the file's author cannot know, so that no drawing can be made whose
// names all fall into one slot.
inline std::uint64_t HashBytes(const void* bytes, std::size_t size, std::uint64_t key)
{
    constexpr std::uint64_t kMix1 = 0x9E3779B97F4A7C15u, kMix2 = 0xD6E8FEB86659FD93u; // odd, many bits set
    const char* at = static_cast<const char*>(bytes);
    std::uint64_t hash = key ^ (size * kMix1);
    for (; size >= 8; size -= 8, at += 8) {
        std::uint64_t word;
        std::memcpy(&word, at, sizeof(word));
        hash = MultiplyAndFold(hash ^ word ^ kMix1, key ^ kMix2) + word;
    }
    std::uint64_t tail = 0;
    std::memcpy(&tail, at, size);
    return MultiplyAndFold(hash ^ tail ^ kMix2, key ^ kMix1);
}

// A key that differs from process to process and from object to object: where the system put the object.
inline std::uint64_t HashKey(const void* object)
{
    return MultiplyAndFold(reinterpret_cast<std::uintptr_t>(object) ^ 0xA0761D6478BD642Fu,
                           0xE7037ED1A0B428DBu) |
           1u;
}
