// A handle that the reader keeps.
#pragma once

#include "base/DXF_STRING.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

// A handle as the file writes it, hexadecimal text. Every entity has one of its own, and hardly any is longer
// than seven characters: up to that many are in the pointer's place, which saves an eighth of the memory of a
// drawing of lines. A longer text, or one with characters that are not ASCII, is in storage that the reader
// owns.
class DXF_HANDLE {
public:
    constexpr DXF_HANDLE() = default;

    std::wstring Wide() const
    {
        if (!IsInPlace())
            return Kept().c_str();
        char text[8];
        std::memcpy(text, &m_bits, sizeof(text));
        return {text, text + (m_bits >> kSizeShift & 7)};
    }

    // The same handle is always in place, or never, in every store.
    friend bool operator==(const DXF_HANDLE& left, const DXF_HANDLE& right)
    {
        return left.m_bits == right.m_bits ||
               (!left.IsInPlace() && !right.IsInPlace() && left.Kept() == right.Kept());
    }

private:
    friend class CDxfStore;

    // The last byte is 0 in the pointers of a program's own memory. A text in place sets its highest bit, and
    // has its size below; the characters come before it.
    static constexpr int kSizeShift = 56;
    static constexpr std::uint64_t kInPlace = std::uint64_t{0x80} << kSizeShift;
    static constexpr std::uint64_t kNotAscii = 0x8080808080808080u;
    static_assert(sizeof(void*) == sizeof(std::uint64_t) && std::endian::native == std::endian::little);

    explicit DXF_HANDLE(std::uint64_t bits) : m_bits(bits) {}
    bool IsInPlace() const { return (m_bits & kInPlace) != 0; }
    DXF_STRING Kept() const { return DXF_STRING(std::bit_cast<const wchar_t*>(m_bits)); }

    std::uint64_t m_bits = 0;
};
