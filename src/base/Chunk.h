// Large blocks of memory from the system.
#pragma once

#include <cstddef>

// Chunks of this size and its multiples are cheapest to touch for the first time.
inline constexpr std::size_t kPreferredChunk = std::size_t{2} << 20;

// A block of size bytes, aligned for any record. Throws std::bad_alloc.
void* AllocateChunk(std::size_t size);

// Frees a block of the size that it was allocated with; null is allowed.
void FreeChunk(void* chunk, std::size_t size);
