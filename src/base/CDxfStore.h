// The storage of one reader: records, texts and lists, freed together.
#pragma once

#include "base/CDxfHashIndex.h"
#include "base/DXF_HANDLE.h"
#include "base/DXF_STRING.h"

#include <cstddef>
#include <cstdint>
#include <new>
#include <string_view>

// Hands out storage from large chunks and frees all of them at once, without running destructors: what is
// made here holds nothing that lives elsewhere. Running out of memory throws std::bad_alloc and leaves the
// store as it was.
class CDxfStore {
public:
    CDxfStore();
    ~CDxfStore();
    CDxfStore(const CDxfStore&) = delete;
    CDxfStore& operator=(const CDxfStore&) = delete;

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

    // Storage of newSize bytes that begins with the oldSize bytes of block. It is the same block, grown in
    // place, where nothing has been allocated since; a block may be null with a size of 0.
    void* Resize(void* block, std::size_t oldSize, std::size_t newSize);

    // Gives back the end of a block; false, with the block as it was, when something has been allocated
    // since.
    bool Shrink(void* block, std::size_t oldSize, std::size_t newSize);

    // A record with its default values.
    template <class Record>
    Record* New()
    {
        static_assert(alignof(Record) <= kAlignment);
        return ::new (Allocate(sizeof(Record))) Record();
    }

    // A text of its own, converted from the system's ANSI code page.
    DXF_STRING Keep(std::string_view narrow);

    // A text of its own from wide characters.
    DXF_STRING Keep(std::wstring_view wide);

    // As Keep, but the same text is kept once, however often it comes: for names.
    DXF_STRING KeepOnce(std::string_view narrow);

    // A handle: in place where it is short, else kept once, because entities of one owner share its handle.
    DXF_HANDLE KeepHandle(std::string_view narrow);

    // An empty text with room for so many characters, which Append then fills without moving it.
    DXF_STRING Start(std::size_t capacity);

    // Adds to the end of a text. Cheap when it is the text that was added to last, whatever has been kept
    // in between: the cost of building a text is linear in its length.
    void Append(DXF_STRING& text, std::string_view narrow);

private:
    static constexpr std::size_t kAlignment = 8;
    static constexpr std::size_t Round(std::size_t size)
    {
        return (size + kAlignment - 1) & ~(kAlignment - 1);
    }

    // Every block of at least this size has a chunk of its own, so that one which is outgrown can be given
    // back at once.
    static constexpr std::size_t kOwnChunk = std::size_t{256} << 10;

    struct CHUNK {
        CHUNK* previous;
        CHUNK* next;
        std::size_t size; // with this header
    };
    // A name of up to 16 bytes stands here itself, so that a look at it takes one cache line; of a longer one
    // the first eight bytes do, and rest is the address of all of them.
    struct NAME {
        std::uint64_t start;
        std::uint64_t rest;
        std::size_t length;
        DXF_STRING text;
    };
    static constexpr std::size_t kLongestInPlace = 16;

    void* AllocateFromNewChunk(std::size_t rounded);
    CHUNK* NewChunk(std::size_t size);
    void ReleaseChunk(CHUNK* chunk);
    wchar_t* AllocateText(std::size_t length);
    static void SetLength(wchar_t* text, std::size_t length);
    static NAME NameInPlace(std::string_view narrow);
    DXF_STRING AddName(std::string_view narrow, std::uint64_t hash);

    CHUNK* m_chunks = nullptr;
    char* m_next = nullptr;
    char* m_end = nullptr;
    std::size_t m_nextChunkSize;
    std::size_t m_chunkBytes = 0; // of all chunks but those of large blocks

    wchar_t* m_growing = nullptr; // the text that Append wrote last
    std::size_t m_growingCapacity = 0;

    NAME* m_names = nullptr;
    std::size_t m_nameCount = 0;
    std::size_t m_nameCapacity = 0;
    CDxfHashIndex m_nameIndex;
    std::uint64_t m_hashKey;
};
