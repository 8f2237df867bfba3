// Characters and numbers as texts, for models and for what tests print. They have nothing of src/base, which
// they are compared with.
#pragma once

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

// Steps over the first character of a text that has one, and gives it. A surrogate that is none of a pair is
// a character of its own.
inline std::uint32_t TakeCharacter(std::wstring_view& text)
{
    std::uint32_t value = static_cast<std::uint32_t>(text[0]);
    text.remove_prefix(1);
    if constexpr (sizeof(wchar_t) == 2) {
        value &= 0xFFFF;
        const std::uint32_t next = text.empty() ? 0 : static_cast<std::uint32_t>(text[0]) & 0xFFFF;
        if (value >= 0xD800 && value < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
            value = 0x10000 + (value - 0xD800) * 0x400 + (next - 0xDC00);
            text.remove_prefix(1);
        }
    }
    return value;
}

// Adds the UTF-8 of a value, whether it is that of a character or not.
inline void AppendModelUtf8(std::string& out, std::uint32_t value)
{
    const auto add = [&](std::uint32_t byte) { out += static_cast<char>(static_cast<unsigned char>(byte)); };
    const auto trail = [&](int shift) { add(0x80 | (value >> shift & 0x3F)); };
    if (value < 0x80) {
        add(value);
    } else if (value < 0x800) {
        add(0xC0 | value >> 6);
        trail(0);
    } else if (value < 0x10000) {
        add(0xE0 | value >> 12);
        trail(6);
        trail(0);
    } else {
        add((0xF0 | value >> 18) & 0xFF);
        trail(12);
        trail(6);
        trail(0);
    }
}

// With the fewest digits that give it back.
template <class Number>
std::string TextOfNumber(Number number)
{
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof(digits), number).ptr};
}
