#include "support/FailingMemory.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

thread_local FailingMemory* current = nullptr;
std::atomic<std::uint64_t> lastNumber = 0;

void* (*allocateBlock)(std::size_t) = std::malloc;
void (*releaseBlock)(void*) = std::free;

// Comes before each block.
struct alignas(std::max_align_t) HEADER {
    std::uint64_t owner;
    std::size_t size;
};

void* AllocateCounted(std::size_t size, std::size_t counted)
{
    void* const whole = FailingMemory::Fails() ? nullptr : allocateBlock(sizeof(HEADER) + size);
    if (whole == nullptr)
        throw std::bad_alloc();
    return new (whole) HEADER{FailingMemory::Allocated(counted), counted} + 1;
}

void* Allocate(std::size_t size)
{
    return AllocateCounted(size, size);
}

void Free(void* block)
{
    if (block == nullptr)
        return;
    HEADER* const header = static_cast<HEADER*>(block) - 1;
    FailingMemory::Freed(header->owner, header->size);
    releaseBlock(header);
}

// No function for aligned memory is there on every platform: the block it got comes before the one
// that is given.
void* AllocateAligned(std::size_t size, std::size_t alignment)
{
    char* const whole = static_cast<char*>(AllocateCounted(size + alignment + sizeof(void*), size));
    const std::uintptr_t first = reinterpret_cast<std::uintptr_t>(whole) + sizeof(void*);
    void** const aligned = reinterpret_cast<void**>((first + alignment - 1) & ~(alignment - 1));
    aligned[-1] = whole;
    return aligned;
}

void FreeAligned(void* block)
{
    if (block != nullptr)
        Free(static_cast<void**>(block)[-1]);
}

} // namespace

FailingMemory::FailingMemory(std::size_t n, Which which) : m_n(n), m_which(which), m_number(++lastNumber)
{
    current = this;
}

FailingMemory::~FailingMemory()
{
    current = nullptr;
}

FailingMemory::Pause::Pause() : m_paused(current)
{
    current = nullptr;
}

FailingMemory::Pause::~Pause()
{
    current = m_paused;
}

void FailingMemory::UseBlocksOf(void* (*allocate)(std::size_t), void (*release)(void*))
{
    allocateBlock = allocate;
    releaseBlock = release;
}

bool FailingMemory::Fails()
{
    FailingMemory* const memory = current;
    if (memory == nullptr)
        return false;
    ++memory->m_count;
    const bool isLater = memory->m_which == Which::NthAndLater && memory->m_count > memory->m_n;
    if (memory->m_n == 0 || (memory->m_count != memory->m_n && !isLater))
        return false;
    memory->m_hasFailed = true;
    return true;
}

std::uint64_t FailingMemory::Allocated(std::size_t size)
{
    if (current == nullptr)
        return 0;
    ++current->m_live;
    current->m_bytes += size;
    current->m_mostBytes = std::max(current->m_mostBytes, current->m_bytes);
    return current->m_number;
}

void FailingMemory::Freed(std::uint64_t owner, std::size_t size)
{
    if (current == nullptr || current->m_number != owner)
        return;
    --current->m_live;
    current->m_bytes -= size;
}

void* operator new(std::size_t size)
{
    return Allocate(size);
}
void* operator new[](std::size_t size)
{
    return Allocate(size);
}
// Sanitizers have operators of their own for these too, whose blocks ours would free.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    try {
        return Allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void* operator new[](std::size_t size, const std::nothrow_t& nothrow) noexcept
{
    return operator new(size, nothrow);
}
void* operator new(std::size_t size, std::align_val_t alignment)
{
    return AllocateAligned(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment)
{
    return AllocateAligned(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* block) noexcept
{
    Free(block);
}
void operator delete[](void* block) noexcept
{
    Free(block);
}
void operator delete(void* block, std::size_t) noexcept
{
    Free(block);
}
void operator delete[](void* block, std::size_t) noexcept
{
    Free(block);
}
void operator delete(void* block, std::align_val_t) noexcept
{
    FreeAligned(block);
}
void operator delete[](void* block, std::align_val_t) noexcept
{
    FreeAligned(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept
{
    FreeAligned(block);
}
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept
{
    FreeAligned(block);
}
