#include "utf8.h"

#include <cstdint>

namespace plexorn {

namespace {

constexpr char32_t Replacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

char32_t UnitAt(std::wstring_view text, size_t index)
{
    if constexpr (sizeof(wchar_t) == 2)
        return static_cast<char32_t>(static_cast<std::uint16_t>(text[index]));
    else
        return static_cast<char32_t>(text[index]);
}

// The character at index, which is moved past it.
char32_t NextCharacter(std::wstring_view text, size_t& index)
{
    char32_t unit = UnitAt(text, index++);
    if (sizeof(wchar_t) == 2 && IsHighSurrogate(unit) && index < text.size() &&
        IsLowSurrogate(UnitAt(text, index)))
        return 0x10000 + ((unit - 0xD800) << 10) + (UnitAt(text, index++) - 0xDC00);
    bool isCharacter = unit <= 0x10FFFF && !IsHighSurrogate(unit) && !IsLowSurrogate(unit);
    return isCharacter ? unit : Replacement;
}

void AppendUtf8(std::string& out, char32_t character)
{
    auto byte = [&out](char32_t value) { out.push_back(static_cast<char>(value)); };
    if (character < 0x80) {
        byte(character);
        return;
    }
    if (character < 0x800) {
        byte(0xC0 | (character >> 6));
    } else {
        if (character < 0x10000) {
            byte(0xE0 | (character >> 12));
        } else {
            byte(0xF0 | (character >> 18));
            byte(0x80 | ((character >> 12) & 0x3F));
        }
        byte(0x80 | ((character >> 6) & 0x3F));
    }
    byte(0x80 | (character & 0x3F));
}

void AppendWide(std::wstring& out, char32_t character)
{
    if (sizeof(wchar_t) == 2 && character >= 0x10000) {
        out.push_back(static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10)));
        out.push_back(static_cast<wchar_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
    } else {
        out.push_back(static_cast<wchar_t>(character));
    }
}

// The length of the sequence that lead begins, 0 when no sequence begins so.
size_t SequenceLength(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

bool IsShortestForm(char32_t character, size_t length)
{
    return (length < 3 || character >= 0x800) && (length < 4 || character >= 0x10000);
}

// Reads the sequence at the start of text; nothing when it is broken.
std::optional<char32_t> DecodeSequence(std::string_view text, size_t length)
{
    if (length == 0 || length > text.size())
        return std::nullopt;
    auto lead = static_cast<unsigned char>(text[0]);
    char32_t character = length == 1 ? lead : lead & (0x7Fu >> length);
    for (size_t i = 1; i < length; ++i) {
        auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80)
            return std::nullopt;
        character = (character << 6) | (next & 0x3F);
    }
    bool isSurrogate = IsHighSurrogate(character) || IsLowSurrogate(character);
    if (!IsShortestForm(character, length) || isSurrogate || character > 0x10FFFF)
        return std::nullopt;
    return character;
}

} // namespace

std::string Utf8FromWide(std::wstring_view text)
{
    std::string out;
    out.reserve(text.size());
    for (size_t index = 0; index < text.size();)
        AppendUtf8(out, NextCharacter(text, index));
    return out;
}

std::optional<std::wstring> WideFromUtf8(std::string_view text)
{
    std::wstring out;
    out.reserve(text.size());
    while (!text.empty()) {
        size_t length = SequenceLength(static_cast<unsigned char>(text[0]));
        std::optional<char32_t> character = DecodeSequence(text, length);
        if (!character)
            return std::nullopt;
        AppendWide(out, *character);
        text.remove_prefix(length);
    }
    return out;
}

std::string ValidUtf8(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        size_t length = SequenceLength(static_cast<unsigned char>(text[0]));
        bool isCharacter = DecodeSequence(text, length).has_value();
        if (isCharacter)
            out += text.substr(0, length);
        else
            AppendUtf8(out, Replacement);
        text.remove_prefix(isCharacter ? length : 1);
    }
    return out;
}

std::string Printable(std::string_view text)
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        auto byte = static_cast<unsigned char>(text[i]);
        // U+0080 to U+009F, C2 80 to C2 9F, are control characters too.
        auto next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0u;
        bool isUpperControl = byte == 0xC2 && next >= 0x80 && next < 0xA0;
        if (isUpperControl)
            byte = static_cast<unsigned char>(text[++i]);
        if (isUpperControl || byte < 0x20 || byte == 0x7F)
            out.append({'\\', 'x', digits[byte >> 4], digits[byte & 15]});
        else
            out.push_back(text[i]);
    }
    return out;
}

} // namespace plexorn
