// Storage that grows and is freed at once.
#pragma once

#include <cstddef>
#include <new>
#include <string_view>
#include <utility>

// Gives storage from large chunks and frees all of them together, without running destructors: what is made
// here owns nothing that lives elsewhere. Running out of memory throws std::bad_alloc and leaves the arena as
// it was.
class CDxfArena {
public:
    CDxfArena() = default;
    ~CDxfArena();
    CDxfArena(const CDxfArena&) = delete;
    CDxfArena& operator=(const CDxfArena&) = delete;

    // Uninitialised storage, aligned for any record.
    void* Allocate(std::size_t size)
    {
        const std::size_t rounded = Round(size);
        if (rounded > static_cast<std::size_t>(m_end - m_next) || rounded >= kOwnChunk) [[unlikely]]
            return AllocateFromNewChunk(rounded);
        void* const block = m_next;
        m_next += rounded;
        return block;
    }

    // Storage of newSize bytes that begins with the oldSize bytes of block. The block grows in place if
    // nothing has been allocated after it. It may be null, with a size of 0.
    void* Resize(void* block, std::size_t oldSize, std::size_t newSize);

    // Gives back the end of a block. False, with the block as it was, if something has been allocated after
    // it.
    bool Shrink(void* block, std::size_t oldSize, std::size_t newSize);

    // An object, made from these arguments; without any, with its default values.
    template <class Object, class... Arguments>
    Object* New(Arguments&&... arguments)
    {
        static_assert(alignof(Object) <= kAlignment);
        return ::new (Allocate(sizeof(Object))) Object{std::forward<Arguments>(arguments)...};
    }

    // A copy of a text. A zero follows it, which the view does not count.
    template <class Char>
    std::basic_string_view<Char> Copy(std::basic_string_view<Char> text)
    {
        Char* const copy = static_cast<Char*>(Allocate((text.size() + 1) * sizeof(Char)));
        text.copy(copy, text.size());
        copy[text.size()] = Char();
        return {copy, text.size()};
    }

private:
    static constexpr std::size_t kAlignment = 8;
    static constexpr std::size_t Round(std::size_t size)
    {
        return (size + kAlignment - 1) & ~(kAlignment - 1);
    }

    static constexpr std::size_t kFirstChunk = std::size_t{32} << 10;

    // Each block of at least this size has its own chunk, which is freed when the block outgrows it.
    static constexpr std::size_t kOwnChunk = std::size_t{256} << 10;

    struct Chunk {
        Chunk* previous;
        Chunk* next;
        std::size_t size; // with this header
    };

    void* AllocateFromNewChunk(std::size_t rounded);
    Chunk* NewChunk(std::size_t size);
    void ReleaseChunk(Chunk* chunk);

    Chunk* m_chunks = nullptr;
    char* m_next = nullptr;
    char* m_end = nullptr;
    std::size_t m_nextChunkSize = kFirstChunk;
    std::size_t m_chunkBytes = 0; // of all chunks but those of large blocks
};
