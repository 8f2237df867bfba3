#include "base/Chunk.h"

#include <new>

void* AllocateChunk(std::size_t size)
{
    return ::operator new(size);
}

void FreeChunk(void* chunk, std::size_t)
{
    ::operator delete(chunk);
}
