// The storage of one reader: records, texts and lists, freed together.
#pragma once

#include "base/CDxfArena.h"
#include "base/CDxfHashIndex.h"
#include "base/DXF_HANDLE.h"
#include "base/DXF_STRING.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

// An arena that keeps texts. Each is converted from the system's ANSI code page; those that repeat can be
// kept once. As in every arena, running out of memory throws std::bad_alloc.
class CDxfStore : public CDxfArena {
public:
    CDxfStore();

    // A text of its own.
    DXF_STRING Keep(std::string_view narrow);

    // As Keep, but the same text is kept once, however often it comes: for names.
    DXF_STRING KeepOnce(std::string_view narrow);

    // A handle: in place if it is short, else kept once, because entities of one owner share its handle.
    DXF_HANDLE KeepHandle(std::string_view narrow);

    // An empty text with room for so many characters, which Append then fills without moving it.
    DXF_STRING Start(std::size_t capacity);

    // Adds to the end of a text. Cheap for the text that was added to last, whatever has been kept since: the
    // cost of building a text is linear in its length.
    void Append(DXF_STRING& text, std::string_view narrow);

private:
    // A text of up to 16 bytes: its first eight bytes and its last eight, some of them twice; or first has
    // all that there are.
    struct Words {
        std::uint64_t first;
        std::uint64_t last;
    };
    // A text kept once. One of up to 16 bytes is in here itself, so that a look at it takes one cache line.
    // Of a longer one words.last is the address.
    struct KeptText {
        Words words;
        std::size_t size;
        DXF_STRING text;
    };
    static constexpr std::size_t kLongestInPlace = 16;

    wchar_t* AllocateText(std::size_t length);
    static void SetLength(wchar_t* text, std::size_t length);
    void Grow(DXF_STRING text, std::size_t capacity);
    static Words WordsOf(std::string_view narrow);
    DXF_STRING KeepLongOnce(std::string_view narrow);
    DXF_STRING AddKept(std::string_view narrow, const Words& words, std::uint64_t hash);

    wchar_t* m_growing = nullptr; // the text that Append wrote last
    std::size_t m_growingCapacity = 0;

    KeptText* m_kept = nullptr;
    std::size_t m_keptCount = 0;
    std::size_t m_keptCapacity = 0;
    CDxfHashIndex m_keptIndex;
    std::uint64_t m_hashKey;
};
