#include "base/Utf8.h"

#include <algorithm>

namespace {

constexpr bool kWideIsUtf16 = sizeof(wchar_t) == 2;

// What may follow the first byte of a sequence: how many bytes, and the range of the first of them (Unicode,
// table 3-7).
struct Lead {
    unsigned trails;
    unsigned char low, high;
};

Lead LeadOf(unsigned char byte, Utf8Range range)
{
    const bool isAnyNumber = range == Utf8Range::AnyNumber;
    const auto bound = [](bool isNarrow, int narrow, int wide) {
        return static_cast<unsigned char>(isNarrow ? narrow : wide);
    };
    if (byte >= 0xC2 && byte <= 0xDF)
        return {1, 0x80, 0xBF};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {2, bound(byte == 0xE0, 0xA0, 0x80), bound(byte == 0xED && !isAnyNumber, 0x9F, 0xBF)};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {3, bound(byte == 0xF0, 0x90, 0x80), bound(byte == 0xF4 && !isAnyNumber, 0x8F, 0xBF)};
    return {0, 0, 0};
}

char32_t UnitOf(wchar_t unit)
{
    const char32_t value = static_cast<char32_t>(unit);
    return kWideIsUtf16 ? value & 0xFFFF : value; // a signed unit must not become a large number
}

// Writes the units of a character and returns the end of them.
wchar_t* WriteWide(wchar_t* out, char32_t character)
{
    if (kWideIsUtf16 && character >= 0x10000) {
        *out++ = static_cast<wchar_t>(HighSurrogateOf(character));
        *out++ = static_cast<wchar_t>(LowSurrogateOf(character));
    } else {
        *out++ = static_cast<wchar_t>(character);
    }
    return out;
}

char32_t Replaced(char32_t value)
{
    return IsCharacter(value) ? value : kReplacementCharacter;
}

} // namespace

DecodedCharacter DecodeUtf8(std::string_view text, Utf8Range range)
{
    const auto byteAt = [&](std::size_t place) { return static_cast<unsigned char>(text[place]); };
    const unsigned char first = byteAt(0);
    if (first < 0x80)
        return {first, 1};
    const Lead lead = LeadOf(first, range);
    char32_t value = first & (0x3Fu >> lead.trails);
    for (std::size_t size = 1; size <= lead.trails; ++size) {
        const unsigned char low = size == 1 ? lead.low : 0x80;
        const unsigned char high = size == 1 ? lead.high : 0xBF;
        if (size == text.size() || byteAt(size) < low || byteAt(size) > high)
            return {kNoCharacter, size};
        value = value << 6 | (byteAt(size) & 0x3Fu);
    }
    return {lead.trails == 0 ? kNoCharacter : value, lead.trails + 1};
}

DecodedCharacter DecodeWide(std::wstring_view text)
{
    const char32_t first = UnitOf(text[0]);
    if (!kWideIsUtf16 || !IsHighSurrogate(first) || text.size() == 1)
        return {first, 1};
    const char32_t second = UnitOf(text[1]);
    if (!IsLowSurrogate(second))
        return {first, 1};
    return {JoinSurrogates(first, second), 2};
}

void AppendUtf8(std::string& text, char32_t character)
{
    const char32_t value = Replaced(character);
    if (value < 0x80) {
        text += static_cast<char>(value);
        return;
    }
    const unsigned trails = value < 0x800 ? 1 : value < 0x10000 ? 2 : 3;
    constexpr unsigned kMarks[] = {0, 0xC0, 0xE0, 0xF0}; // of the first byte, by the number of the others
    text += static_cast<char>(kMarks[trails] | (value >> (6 * trails)));
    for (unsigned i = trails; i != 0; --i)
        text += static_cast<char>(0x80 | (value >> (6 * (i - 1)) & 0x3F));
}

std::string Utf8FromWide(std::wstring_view text)
{
    std::string utf8;
    utf8.reserve(text.size());
    while (!text.empty()) {
        if (UnitOf(text[0]) < 0x80) { // nearly every character of most texts
            utf8 += static_cast<char>(text[0]);
            text.remove_prefix(1);
            continue;
        }
        const DecodedCharacter next = DecodeWide(text);
        AppendUtf8(utf8, next.value);
        text.remove_prefix(next.size);
    }
    return utf8;
}

std::optional<std::wstring> WideFromUtf8(std::string_view text)
{
    std::wstring wide;
    wide.reserve(text.size());
    while (!text.empty()) {
        const DecodedCharacter next = DecodeUtf8(text);
        if (next.value == kNoCharacter)
            return std::nullopt;
        wchar_t units[2];
        wide.append(units, WriteWide(units, next.value));
        text.remove_prefix(next.size);
    }
    return wide;
}

std::string ValidUtf8(std::string_view text)
{
    std::string valid;
    valid.reserve(text.size());
    const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
    while (!text.empty()) {
        const auto end = std::find_if_not(text.begin(), text.end(), isAscii);
        const std::size_t size = static_cast<std::size_t>(end - text.begin());
        valid += text.substr(0, size);
        text.remove_prefix(size);
        if (text.empty())
            break;
        const DecodedCharacter next = DecodeUtf8(text);
        AppendUtf8(valid, next.value);
        text.remove_prefix(next.value == kNoCharacter ? 1 : next.size);
    }
    return valid;
}

std::size_t Utf8ToWide(std::string_view text, wchar_t* wide)
{
    wchar_t* out = wide;
    for (std::size_t at = 0; at != text.size();) {
        if (static_cast<unsigned char>(text[at]) < 0x80) { // nearly every byte of most drawings
            *out++ = static_cast<wchar_t>(text[at++]);
            continue;
        }
        const DecodedCharacter next = DecodeUtf8(text.substr(at));
        out = WriteWide(out, Replaced(next.value));
        at += next.size;
    }
    return static_cast<std::size_t>(out - wide);
}
