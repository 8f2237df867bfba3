#include "base/CDxfArena.h"

#include "base/Chunk.h"

#include <algorithm>
#include <cstring>
#include <limits>

CDxfArena::~CDxfArena()
{
    while (m_chunks != nullptr)
        ReleaseChunk(m_chunks);
}

CDxfArena::Chunk* CDxfArena::NewChunk(std::size_t size)
{
    if (size > std::numeric_limits<std::size_t>::max() - sizeof(Chunk))
        throw std::bad_alloc();
    Chunk* const chunk = static_cast<Chunk*>(AllocateChunk(sizeof(Chunk) + size));
    chunk->size = sizeof(Chunk) + size;
    chunk->previous = m_chunks;
    chunk->next = nullptr;
    if (m_chunks != nullptr)
        m_chunks->next = chunk;
    m_chunks = chunk;
    return chunk;
}

void CDxfArena::ReleaseChunk(Chunk* chunk)
{
    if (chunk->previous != nullptr)
        chunk->previous->next = chunk->next;
    if (chunk->next != nullptr)
        chunk->next->previous = chunk->previous;
    if (m_chunks == chunk)
        m_chunks = chunk->previous;
    FreeChunk(chunk, chunk->size);
}

void* CDxfArena::AllocateFromNewChunk(std::size_t rounded)
{
    if (rounded >= kOwnChunk)
        return NewChunk(rounded) + 1;
    const std::size_t size = std::max(m_nextChunkSize - sizeof(Chunk), rounded);
    char* const storage = reinterpret_cast<char*>(NewChunk(size) + 1);
    m_next = storage + rounded;
    m_end = storage + size;
    // A small drawing needs one small chunk, and at first each chunk is as large as all before it. In a large
    // drawing each further chunk is a quarter of all before it: past 8 MB at most a fifth is unused, and
    // there are few chunks (to align each, the system reserves up to kPreferredChunk of addresses).
    m_chunkBytes += size;
    m_nextChunkSize = m_chunkBytes < 2 * kOwnChunk
                          ? std::max(m_chunkBytes, kFirstChunk)
                          : std::clamp(m_chunkBytes / 4 / kPreferredChunk, std::size_t{1}, std::size_t{16}) *
                                kPreferredChunk;
    return storage;
}

void* CDxfArena::Resize(void* block, std::size_t oldSize, std::size_t newSize)
{
    if (newSize > std::numeric_limits<std::size_t>::max() / 2)
        throw std::bad_alloc();
    const std::size_t oldRounded = Round(oldSize);
    const std::size_t newRounded = Round(newSize);
    if (block != nullptr && static_cast<char*>(block) + oldRounded == m_next && oldRounded < kOwnChunk &&
        newRounded - oldRounded <= static_cast<std::size_t>(m_end - m_next) && newRounded < kOwnChunk) {
        m_next += newRounded - oldRounded;
        return block;
    }
    void* const larger = Allocate(newSize);
    if (oldSize != 0)
        std::memcpy(larger, block, oldSize);
    if (oldRounded >= kOwnChunk)
        ReleaseChunk(static_cast<Chunk*>(block) - 1);
    return larger;
}

bool CDxfArena::Shrink(void* block, std::size_t oldSize, std::size_t newSize)
{
    const std::size_t oldRounded = Round(oldSize);
    if (block == nullptr || oldRounded >= kOwnChunk || static_cast<char*>(block) + oldRounded != m_next)
        return false;
    m_next = static_cast<char*>(block) + Round(newSize);
    return true;
}
