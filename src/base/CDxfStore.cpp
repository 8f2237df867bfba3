#include "base/CDxfStore.h"

#include "base/CodePage.h"
#include "base/Hash.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

namespace {

constexpr std::size_t kFewestNames = 64;

} // namespace

CDxfStore::CDxfStore() : m_hashKey(HashKey(this)) {}

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
    if (narrow.size() > kLongestInPlace)
        name.rest = reinterpret_cast<std::uintptr_t>(Copy(narrow).data());
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
    if (text.m_text == nullptr || text.m_text != m_growing || length + narrow.size() > m_growingCapacity)
        Grow(text, (length + narrow.size()) * 2);
    SetLength(m_growing, length + ToWide(narrow, m_growing + length));
    text = DXF_STRING(m_growing);
}

// Makes text the one that grows, with room for so many characters. A text that has been kept stays as it is.
void CDxfStore::Grow(DXF_STRING text, std::size_t capacity)
{
    if (capacity >= std::numeric_limits<std::uint32_t>::max())
        throw std::bad_alloc();
    if (text.m_text != nullptr && text.m_text == m_growing) {
        constexpr std::size_t kExtra = sizeof(std::uint32_t) + sizeof(wchar_t); // the length and the zero
        char* const block = reinterpret_cast<char*>(m_growing) - sizeof(std::uint32_t);
        void* const larger =
            Resize(block, kExtra + m_growingCapacity * sizeof(wchar_t), kExtra + capacity * sizeof(wchar_t));
        m_growing = reinterpret_cast<wchar_t*>(static_cast<char*>(larger) + sizeof(std::uint32_t));
    } else {
        wchar_t* const fresh = AllocateText(capacity);
        std::copy_n(text.c_str(), text.size(), fresh);
        m_growing = fresh;
    }
    m_growingCapacity = capacity;
}
