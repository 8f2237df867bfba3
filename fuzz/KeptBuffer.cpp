#include "KeptBuffer.h"

#include "support/FailingMemory.h"

#include <cstddef>
#include <cstdlib>

#if defined(__has_feature)
#define PLEXORN_HAS_FEATURE(feature) __has_feature(feature)
#else
#define PLEXORN_HAS_FEATURE(feature) 0
#endif

#if defined(__SANITIZE_ADDRESS__) || PLEXORN_HAS_FEATURE(address_sanitizer)
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(address, size) static_cast<void>(0)
#define ASAN_UNPOISON_MEMORY_REGION(address, size) static_cast<void>(0)
#endif

namespace {

constexpr std::size_t kSmallestKept = std::size_t{128} << 10;

// The first large block that was asked for; it lives as long as the program.
void* kept = nullptr;
std::size_t keptSize = 0;
bool isFree = false;

void* AllocateKept(std::size_t size)
{
    if (size < kSmallestKept)
        return std::malloc(size);
    if (isFree && size == keptSize) {
        ASAN_UNPOISON_MEMORY_REGION(kept, keptSize);
        isFree = false;
        return kept;
    }
    void* const block = std::malloc(size);
    if (kept == nullptr) {
        kept = block;
        keptSize = size;
    }
    return block;
}

void Release(void* block)
{
    if (block == nullptr || block != kept)
        return std::free(block);
    ASAN_POISON_MEMORY_REGION(kept, keptSize);
    isFree = true;
}

} // namespace

void KeepBuffer()
{
    FailingMemory::UseBlocksOf(AllocateKept, Release);
}
