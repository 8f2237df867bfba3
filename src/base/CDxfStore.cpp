#include "base/CDxfStore.h"

#include "base/CDxfChunk.h"
#include "base/CodePage.h"
#include "base/Hash.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

namespace {

constexpr std::size_t kFirstChunk = std::size_t{32} << 10;

constexpr std::size_t kFewestNames = 64;

} // namespace

CDxfStore::CDxfStore() : m_nextChunkSize(kFirstChunk), m_hashKey(HashKey(this)) {}

CDxfStore::~CDxfStore()
{
    while (m_chunks != nullptr)
        ReleaseChunk(m_chunks);
}

CDxfStore::CHUNK* CDxfStore::NewChunk(std::size_t size)
{
    if (size > std::numeric_limits<std::size_t>::max() - sizeof(CHUNK))
        throw std::bad_alloc();
    CHUNK* const chunk = static_cast<CHUNK*>(AllocateChunk(sizeof(CHUNK) + size));
    chunk->size = sizeof(CHUNK) + size;
    chunk->previous = m_chunks;
    chunk->next = nullptr;
    if (m_chunks != nullptr)
        m_chunks->next = chunk;
    m_chunks = chunk;
    return chunk;
}

void CDxfStore::ReleaseChunk(CHUNK* chunk)
{
    if (chunk->previous != nullptr)
        chunk->previous->next = chunk->next;
    if (chunk->next != nullptr)
        chunk->next->previous = chunk->previous;
    if (m_chunks == chunk)
        m_chunks = chunk->previous;
    FreeChunk(chunk, chunk->size);
}

void* CDxfStore::AllocateFromNewChunk(std::size_t rounded)
{
    if (rounded >= kOwnChunk)
        return NewChunk(rounded) + 1;
    const std::size_t size = std::max(m_nextChunkSize - sizeof(CHUNK), rounded);
    char* const storage = reinterpret_cast<char*>(NewChunk(size) + 1);
    m_next = storage + rounded;
    m_end = storage + size;
    // A small drawing gets by with a small chunk. In a large one a quarter of what there is follows: beyond 8
    // MB no more than a fifth is unused, and chunks are not many (to align each, the system sets up to
    // kPreferredChunk of addresses aside).
    m_chunkBytes += size;
    m_nextChunkSize = m_chunkBytes < 2 * kOwnChunk
                          ? 2 * kOwnChunk
                          : std::clamp(m_chunkBytes / 4 / kPreferredChunk, std::size_t{1}, std::size_t{16}) *
                                kPreferredChunk;
    return storage;
}

void* CDxfStore::Resize(void* block, std::size_t oldSize, std::size_t newSize)
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
        ReleaseChunk(static_cast<CHUNK*>(block) - 1);
    return larger;
}

bool CDxfStore::Shrink(void* block, std::size_t oldSize, std::size_t newSize)
{
    const std::size_t oldRounded = Round(oldSize);
    if (block == nullptr || oldRounded >= kOwnChunk || static_cast<char*>(block) + oldRounded != m_next)
        return false;
    m_next = static_cast<char*>(block) + Round(newSize);
    return true;
}

wchar_t* CDxfStore::AllocateText(std::size_t length)
{
    if (length >= std::numeric_limits<std::uint32_t>::max())
        throw std::bad_alloc();
    char* const block = static_cast<char*>(Allocate(sizeof(std::uint32_t) + (length + 1) * sizeof(wchar_t)));
    return reinterpret_cast<wchar_t*>(block + sizeof(std::uint32_t));
}

void CDxfStore::SetLength(wchar_t* text, std::size_t length)
{
    const std::uint32_t stored = static_cast<std::uint32_t>(length);
    std::memcpy(reinterpret_cast<char*>(text) - sizeof(stored), &stored, sizeof(stored));
    text[length] = L'\0';
}

DXF_STRING CDxfStore::Keep(std::string_view narrow)
{
    if (narrow.empty())
        return {};
    wchar_t* const text = AllocateText(narrow.size()); // no code page gives more units than bytes
    SetLength(text, ToWide(narrow, text));
    return DXF_STRING(text);
}

DXF_STRING CDxfStore::Keep(std::wstring_view wide)
{
    if (wide.empty())
        return {};
    wchar_t* const text = AllocateText(wide.size());
    std::copy(wide.begin(), wide.end(), text);
    SetLength(text, wide.size());
    return DXF_STRING(text);
}

DXF_STRING CDxfStore::KeepOnce(std::string_view narrow)
{
    if (narrow.empty())
        return {};
    const std::uint64_t hash = HashBytes(narrow.data(), narrow.size(), m_hashKey);
    const NAME wanted = NameInPlace(narrow);
    const std::uint32_t known = m_nameIndex.Find(hash, [&](std::uint32_t number) {
        const NAME& name = m_names[number];
        if (name.length != wanted.length || name.start != wanted.start)
            return false;
        if (name.length <= kLongestInPlace)
            return name.rest == wanted.rest;
        return EqualBytes(std::bit_cast<const char*>(name.rest), narrow.data(), narrow.size());
    });
    return known != CDxfHashIndex::kNone ? m_names[known].text : AddName(narrow, hash);
}

CDxfStore::NAME CDxfStore::NameInPlace(std::string_view narrow)
{
    const std::size_t first = std::min(narrow.size(), sizeof(std::uint64_t));
    const std::size_t second = std::min(narrow.size() - first, sizeof(std::uint64_t));
    return {LoadBytes(narrow.data(), first), LoadBytes(narrow.data() + first, second), narrow.size(), {}};
}

DXF_STRING CDxfStore::AddName(std::string_view narrow, std::uint64_t hash)
{
    m_nameIndex.Reserve();
    if (m_nameCount == m_nameCapacity) {
        const std::size_t capacity = std::max(m_nameCapacity * 2, kFewestNames);
        m_names = static_cast<NAME*>(Resize(m_names, m_nameCapacity * sizeof(NAME), capacity * sizeof(NAME)));
        m_nameCapacity = capacity;
    }
    NAME name = NameInPlace(narrow);
    if (narrow.size() > kLongestInPlace) {
        void* const copy = Allocate(narrow.size());
        std::memcpy(copy, narrow.data(), narrow.size());
        name.rest = reinterpret_cast<std::uintptr_t>(copy);
    }
    name.text = Keep(narrow);
    m_names[m_nameCount] = name;
    m_nameIndex.Add(hash, static_cast<std::uint32_t>(m_nameCount));
    ++m_nameCount;
    return name.text;
}

DXF_HANDLE CDxfStore::KeepHandle(std::string_view narrow)
{
    if (narrow.empty())
        return {};
    std::uint64_t bits = 0;
    if (narrow.size() < sizeof(bits)) {
        std::memcpy(&bits, narrow.data(), narrow.size());
        if ((bits & DXF_HANDLE::kNotAscii) == 0)
            return DXF_HANDLE(bits | DXF_HANDLE::kInPlace |
                              std::uint64_t{narrow.size()} << DXF_HANDLE::kSizeShift);
    }
    return DXF_HANDLE(reinterpret_cast<std::uintptr_t>(KeepOnce(narrow).m_text));
}

DXF_STRING CDxfStore::Start(std::size_t capacity)
{
    m_growing = AllocateText(capacity);
    m_growingCapacity = capacity;
    SetLength(m_growing, 0);
    return DXF_STRING(m_growing);
}

void CDxfStore::Append(DXF_STRING& text, std::string_view narrow)
{
    const std::size_t length = text.size();
    if (text.m_text == nullptr || text.m_text != m_growing || length + narrow.size() > m_growingCapacity) {
        const std::size_t capacity = (length + narrow.size()) * 2;
        const std::size_t header = sizeof(std::uint32_t) + sizeof(wchar_t); // length before, zero behind
        const bool grow = text.m_text != nullptr && text.m_text == m_growing;
        if (grow) {
            char* const block = reinterpret_cast<char*>(m_growing) - sizeof(std::uint32_t);
            if (capacity >= std::numeric_limits<std::uint32_t>::max())
                throw std::bad_alloc();
            void* const larger = Resize(block, header + m_growingCapacity * sizeof(wchar_t),
                                        header + capacity * sizeof(wchar_t));
            m_growing = reinterpret_cast<wchar_t*>(static_cast<char*>(larger) + sizeof(std::uint32_t));
        } else {
            wchar_t* const fresh = AllocateText(capacity);
            std::copy_n(text.c_str(), length, fresh);
            m_growing = fresh;
        }
        m_growingCapacity = capacity;
    }
    SetLength(m_growing, length + ToWide(narrow, m_growing + length));
    text = DXF_STRING(m_growing);
}
