#include "base/CDxfStore.h"

#include "base/CodePage.h"
#include "base/Hash.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

namespace {

constexpr std::size_t kFewestKept = 64;

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

CDxfStore::Words CDxfStore::WordsOf(std::string_view narrow)
{
    const bool isLong = narrow.size() >= 8;
    return {LoadBytes(narrow.data(), narrow.size()),
            isLong ? LoadBytes(narrow.data() + narrow.size() - 8, 8) : 0};
}

DXF_STRING CDxfStore::KeepOnce(std::string_view narrow)
{
    if (narrow.size() > kLongestInPlace)
        return KeepLongOnce(narrow);
    if (narrow.empty())
        return {};
    const Words words = WordsOf(narrow);
    // Hashed as sixteen bytes whatever the length, without a branch for it.
    const std::uint64_t hash = HashBytes(&words, sizeof(words), m_hashKey ^ narrow.size());
    const std::uint32_t known = m_keptIndex.Find(hash, [&](std::uint32_t number) {
        const KeptText& kept = m_kept[number];
        return kept.words.first == words.first && kept.words.last == words.last && kept.size == narrow.size();
    });
    return known != CDxfHashIndex::kNone ? m_kept[known].text : AddKept(narrow, words, hash);
}

DXF_STRING CDxfStore::KeepLongOnce(std::string_view narrow)
{
    const std::uint64_t hash = HashBytes(narrow.data(), narrow.size(), m_hashKey);
    const std::uint32_t known = m_keptIndex.Find(hash, [&](std::uint32_t number) {
        const KeptText& kept = m_kept[number];
        return kept.size == narrow.size() &&
               EqualBytes(std::bit_cast<const char*>(kept.words.last), narrow.data(), narrow.size());
    });
    if (known != CDxfHashIndex::kNone)
        return m_kept[known].text;
    const std::uint64_t copy = reinterpret_cast<std::uintptr_t>(Copy(narrow).data());
    return AddKept(narrow, {0, copy}, hash);
}

DXF_STRING CDxfStore::AddKept(std::string_view narrow, const Words& words, std::uint64_t hash)
{
    m_keptIndex.Reserve();
    if (m_keptCount == m_keptCapacity) {
        const std::size_t capacity = std::max(m_keptCapacity * 2, kFewestKept);
        m_kept = static_cast<KeptText*>(
            Resize(m_kept, m_keptCapacity * sizeof(KeptText), capacity * sizeof(KeptText)));
        m_keptCapacity = capacity;
    }
    const DXF_STRING text = Keep(narrow);
    m_kept[m_keptCount] = {words, narrow.size(), text};
    m_keptIndex.Add(hash, static_cast<std::uint32_t>(m_keptCount));
    ++m_keptCount;
    return text;
}

DXF_HANDLE CDxfStore::KeepHandle(std::string_view narrow)
{
    if (narrow.empty())
        return {};
    if (narrow.size() < sizeof(std::uint64_t)) {
        const std::uint64_t bits = LoadText(narrow.data(), narrow.size());
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
