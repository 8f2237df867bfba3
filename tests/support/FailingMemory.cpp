#include "support/FailingMemory.h"

#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

thread_local FailingMemory* current = nullptr;

void* Allocate(std::size_t size)
{
    void* const block = FailingMemory::Fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (block == nullptr)
        throw std::bad_alloc();
    FailingMemory::Allocated(block);
    return block;
}

void Free(void* block)
{
    FailingMemory::Freed(block);
    std::free(block);
}

// No function for aligned memory is there on every platform: the block that was got stands before the one
// that is given.
void* AllocateAligned(std::size_t size, std::size_t alignment)
{
    char* const whole = static_cast<char*>(Allocate(size + alignment + sizeof(void*)));
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

FailingMemory::FailingMemory(std::size_t n, WHICH which) : m_n(n), m_which(which)
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

bool FailingMemory::Fails()
{
    FailingMemory* const memory = current;
    if (memory == nullptr)
        return false;
    ++memory->m_count;
    const bool isLater = memory->m_which == WHICH::NthAndLater && memory->m_count > memory->m_n;
    if (memory->m_n == 0 || (memory->m_count != memory->m_n && !isLater))
        return false;
    memory->m_hasFailed = true;
    return true;
}

void FailingMemory::Allocated(void* block)
{
    if (current == nullptr)
        return;
    if (current->m_liveCount == kMostLive)
        std::abort(); // the test needs a longer list
    current->m_live[current->m_liveCount++] = block;
}

void FailingMemory::Freed(void* block)
{
    FailingMemory* const memory = current;
    if (memory == nullptr || block == nullptr)
        return;
    for (std::size_t i = memory->m_liveCount; i-- > 0;)
        if (memory->m_live[i] == block) {
            memory->m_live[i] = memory->m_live[--memory->m_liveCount];
            return;
        }
}

void* operator new(std::size_t size)
{
    return Allocate(size);
}
void* operator new[](std::size_t size)
{
    return Allocate(size);
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
