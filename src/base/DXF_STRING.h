// A text that the reader keeps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

// A wide, zero-terminated text in storage that the reader owns; no larger than a pointer, because a drawing
// has a dozen for each entity. Copies refer to the same characters. Empty until it is assigned.
class DXF_STRING {
public:
    constexpr DXF_STRING() = default;

    // The characters, zero-terminated; never null.
    const wchar_t* c_str() const { return m_text == nullptr ? L"" : m_text; }

    // The number of wchar_t units before the terminating zero.
    std::size_t size() const { return m_text == nullptr ? 0 : StoredLength(); }

    bool empty() const { return size() == 0; }

    operator std::wstring_view() const { return {c_str(), size()}; }

    friend bool operator==(DXF_STRING left, std::wstring_view right)
    {
        return std::wstring_view(left) == right;
    }
    friend bool operator==(DXF_STRING left, DXF_STRING right)
    {
        return left.m_text == right.m_text || std::wstring_view(left) == std::wstring_view(right);
    }

private:
    friend class CDxfStore;
    friend class DXF_HANDLE;

    // The length is a std::uint32_t right before the characters.
    explicit DXF_STRING(const wchar_t* text) : m_text(text) {}
    std::uint32_t StoredLength() const
    {
        std::uint32_t length;
        std::memcpy(&length, reinterpret_cast<const char*>(m_text) - sizeof(length), sizeof(length));
        return length;
    }

    const wchar_t* m_text = nullptr;
};
