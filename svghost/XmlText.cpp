#include "svghost/XmlText.h"

#include "base/Ideographs.h"
#include "base/NarrowAscii.h"
#include "base/Numbers.h"
#include "base/Utf8.h"

#include <algorithm>
#include <array>

namespace svghost {

namespace {

// For each byte the places, as bits of XmlPlace, where it is escaped. An XML reader makes blanks of the tabs
// and line ends that an attribute has unescaped.
constexpr auto kEscapedAt = [] {
    constexpr auto kAttribute = static_cast<std::uint8_t>(XmlPlace::Attribute);
    constexpr auto kText = static_cast<std::uint8_t>(XmlPlace::Text);
    std::array<std::uint8_t, 256> places{};
    for (std::size_t byte = 0; byte < 0x20; ++byte)
        places[byte] = kAttribute | kText;
    places['\t'] = places['\n'] = places['\r'] = places['"'] = kAttribute;
    places['>'] = kText;
    places['<'] = places['&'] = kAttribute | kText;
    return places;
}();

bool IsAllowed(char32_t character)
{
    if (character < 0x20)
        return character == '\t' || character == '\n' || character == '\r';
    return IsCharacter(character) && character != 0xFFFE && character != 0xFFFF;
}

bool IsNameCharacter(char32_t character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '-' || character == '.' || character == '_';
}

void AppendAllowed(std::string& out, char32_t character)
{
    if (character >= 0x20 && character < 0x7F)
        out += static_cast<char>(character);
    else
        AppendUtf8(out, IsAllowed(character) ? character : kReplacementCharacter);
}

} // namespace

std::string XmlTextOf(std::wstring_view text)
{
    std::string valid(text.size(), '\0');
    const auto isPlain = [](char character) { return character >= 0x20; };
    if (NarrowAscii(text, valid.data()) && std::all_of(valid.begin(), valid.end(), isPlain))
        return valid;
    valid.clear();
    while (!text.empty()) {
        const DecodedCharacter next = DecodeWide(text);
        AppendAllowed(valid, next.value);
        text.remove_prefix(next.size);
    }
    return valid;
}

std::string XmlTextOf(std::string_view text)
{
    std::string valid;
    valid.reserve(text.size());
    while (!text.empty()) {
        // An encoded surrogate is one character that is not allowed, not three invalid bytes.
        const DecodedCharacter next = DecodeUtf8(text, Utf8Range::AnyNumber);
        AppendAllowed(valid, next.value);
        text.remove_prefix(next.value == kNoCharacter ? 1 : next.size);
    }
    return valid;
}

std::size_t CountPlain(std::string_view text, XmlPlace place)
{
    const auto isPlain = [&](char byte) {
        return (kEscapedAt[static_cast<unsigned char>(byte)] & static_cast<std::uint8_t>(place)) == 0;
    };
    std::size_t count = 0;
    while (count != text.size() && isPlain(text[count]))
        ++count;
    return count;
}

char* WriteEscape(char byte, char* out)
{
    const auto copy = [&](std::string_view escape) { return std::copy(escape.begin(), escape.end(), out); };
    switch (byte) {
    case '&':
        return copy("&amp;");
    case '<':
        return copy("&lt;");
    case '>':
        return copy("&gt;");
    case '"':
        return copy("&quot;");
    default: // a control character, always with two digits, which FormatInteger does not write
        const char number[] = {'&', '#', static_cast<char>('0' + byte / 10),
                               static_cast<char>('0' + byte % 10), ';'};
        return copy({number, sizeof number});
    }
}

std::string EscapedForAttribute(std::string_view text)
{
    std::string escaped;
    for (;;) {
        const std::size_t plain = CountPlain(text, XmlPlace::Attribute);
        escaped += text.substr(0, plain);
        if (plain == text.size())
            return escaped;
        char escape[kLongestEscape];
        escaped.append(escape, WriteEscape(text[plain], escape));
        text.remove_prefix(plain + 1);
    }
}

void AppendXmlName(std::string& out, std::wstring_view text)
{
    while (!text.empty()) {
        const DecodedCharacter next = DecodeWide(text);
        text.remove_prefix(next.size);
        const bool opensEscape = next.value == '_' && text.starts_with(L'x');
        if (IsNameCharacter(next.value) && !opensEscape) {
            out += static_cast<char>(next.value);
            continue;
        }
        char digits[8];
        out.append("_x").append(digits, FormatUpperHex(next.value, 1, digits)).append("_");
    }
}

bool IsAttributeNamePart(std::wstring_view text)
{
    const auto isPart = [](wchar_t unit) { return IsNameCharacter(static_cast<char32_t>(unit)); };
    return !text.empty() && std::all_of(text.begin(), text.end(), isPart);
}

std::size_t CountCharacters(std::wstring_view text)
{
    if (sizeof(wchar_t) != 2)
        return text.size();
    std::size_t count = 0;
    for (; !text.empty(); ++count)
        text.remove_prefix(DecodeWide(text).size);
    return count;
}

std::size_t CountIdeographs(std::wstring_view text)
{
    std::size_t count = 0;
    while (!text.empty()) {
        const DecodedCharacter next = DecodeWide(text);
        if (IsIdeograph(next.value))
            ++count;
        text.remove_prefix(next.size);
    }
    return count;
}

} // namespace svghost
