// UTF-8 and wide texts (UTF-16 where wchar_t has 16 bits, UTF-32 elsewhere), without the locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

inline constexpr char32_t kReplacementCharacter = 0xFFFD;
inline constexpr std::string_view kReplacementText = "\xEF\xBF\xBD"; // the same in UTF-8

// The byte order marks that files begin with.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
inline constexpr std::string_view kUtf16LittleMark = "\xFF\xFE";
inline constexpr std::string_view kUtf16BigMark = "\xFE\xFF";

// The value of bytes that are not UTF-8. It is not a character.
inline constexpr char32_t kNoCharacter = 0xFFFFFFFF;

constexpr bool IsSurrogate(char32_t value)
{
    return value >= 0xD800 && value <= 0xDFFF;
}

// UTF-16 writes a character past U+FFFF as two surrogates, a high one and a low one.
constexpr bool IsHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool IsLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

constexpr char32_t JoinSurrogates(char32_t high, char32_t low)
{
    return 0x10000 + ((high & 0x3FF) << 10) + (low & 0x3FF);
}

constexpr char32_t HighSurrogateOf(char32_t character)
{
    return 0xD800 + ((character - 0x10000) >> 10);
}

constexpr char32_t LowSurrogateOf(char32_t character)
{
    return 0xDC00 + (character & 0x3FF);
}

// True for what UTF-8 can encode: the values up to U+10FFFF without the surrogates.
constexpr bool IsCharacter(char32_t value)
{
    return value <= 0x10FFFF && !IsSurrogate(value);
}

// Whether a character is no sign but a control code.
constexpr bool IsControl(char32_t character)
{
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

// Whether a byte continues a character that an earlier byte began.
constexpr bool IsTrailByte(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// The longest start of a UTF-8 text that has at most so many bytes and does not end within a character.
constexpr std::string_view StartOfUtf8(std::string_view text, std::size_t most)
{
    if (text.size() <= most)
        return text;
    while (most > 0 && IsTrailByte(text[most]))
        --most;
    return text.substr(0, most);
}

// What a text begins with, and how many of its bytes or units that takes: at least one.
struct DecodedCharacter {
    char32_t value;
    std::size_t size;
};

enum class Utf8Range : std::uint8_t {
    Characters, // well-formed UTF-8
    AnyNumber,  // encoded surrogates and numbers past U+10FFFF, too, each as one number; nothing overlong
};

// Decodes the start of a text that is not empty. Invalid bytes give kNoCharacter and the size of the longest
// part that begins a sequence (Unicode calls it a maximal subpart): to replace each part, use that size; to
// replace each byte, use 1.
DecodedCharacter DecodeUtf8(std::string_view text, Utf8Range range = Utf8Range::Characters);

// Decodes the start of a wide text that is not empty. A pair of surrogates is one character; a surrogate
// alone and a number past U+10FFFF come out as they are.
DecodedCharacter DecodeWide(std::wstring_view text);

// Adds a character to the end of a text; what IsCharacter refuses becomes U+FFFD.
void AppendUtf8(std::string& text, char32_t character);

// The UTF-8 form of a wide text; surrogates alone and numbers past U+10FFFF become U+FFFD.
std::string Utf8FromWide(std::wstring_view text);

// The wide form of a UTF-8 text; nothing when it has invalid bytes.
std::optional<std::wstring> WideFromUtf8(std::string_view text);

// The text with each byte that belongs to no character replaced by U+FFFD.
std::string ValidUtf8(std::string_view text);

// Writes the wide form of a UTF-8 text, with one U+FFFD for each part that DecodeUtf8 finds invalid; wide has
// room for text.size() units. Returns the number of units written, with no terminating zero.
std::size_t Utf8ToWide(std::string_view text, wchar_t* wide);
