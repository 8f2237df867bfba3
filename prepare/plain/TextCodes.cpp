#include "prepare/plain/TextCodes.h"

#include "base/NamedCodePage.h"
#include "base/Numbers.h"
#include "base/Utf8.h"
#include "prepare/drawing/Encoding.h"
#include "prepare/drawing/UnicodeEscape.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>

namespace prepare {

namespace {

constexpr bool IsControlByte(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

// Four digits at the start of text.
std::optional<unsigned> FourHexDigits(std::string_view text)
{
    const auto value = text.size() < 4 ? std::nullopt : ParseHex(text.substr(0, 4));
    return value ? std::optional(static_cast<unsigned>(*value)) : std::nullopt;
}

std::string Utf8Of(char32_t character)
{
    std::string text;
    AppendUtf8(text, character);
    return text;
}

// The sign of a diameter is the letter that every font and most code pages have.
constexpr char32_t kDegreeSign = 0xB0, kPlusMinusSign = 0xB1, kDiameterSign = 0xD8;

// Opening a code page takes long, and a text may ask for one every few bytes: the last ones stay open.
const NamedCodePage& CodePageOf(std::string_view name)
{
    constexpr std::size_t kMost = 8;
    thread_local std::map<std::string, NamedCodePage, std::less<>> pages;
    if (const auto known = pages.find(name); known != pages.end())
        return known->second;
    if (pages.size() >= kMost)
        pages.clear();
    return pages.try_emplace(std::string(name), NumberedCodePage(name)).first->second;
}

// Codes 127 to 129 are those of the signs in the stroke fonts.
std::string NumberedCharacter(unsigned number, std::string_view codePage)
{
    switch (number) {
    case 127:
        return Utf8Of(kDegreeSign);
    case 128:
        return Utf8Of(kPlusMinusSign);
    case 129:
        return Utf8Of(kDiameterSign);
    default:
        break;
    }
    if (number < 0x20 || number > 0xFF)
        return {};
    const char byte = static_cast<char>(number);
    return CodePageOf(codePage.empty() ? "ANSI_1252" : codePage).Utf8({&byte, 1});
}

TextCode ReadPercentCode(std::string_view text, std::string_view codePage)
{
    if (text.size() < 3 || text[1] != '%')
        return {};
    switch (text[2]) {
    case '%':
        return {3, "%"};
    case 'd':
    case 'D':
        return {3, Utf8Of(kDegreeSign)};
    case 'p':
    case 'P':
        return {3, Utf8Of(kPlusMinusSign)};
    case 'c':
    case 'C':
        return {3, Utf8Of(kDiameterSign)};
    case 'u':
    case 'U':
        return {3, {}, kUnderline};
    case 'o':
    case 'O':
        return {3, {}, kOverline};
    case 'k':
    case 'K':
        return {3, {}, kStrike};
    default:
        break;
    }
    if (text.size() < 5 || !std::all_of(text.begin() + 2, text.begin() + 5, IsDigit<char>))
        return {};
    const auto digit = [&](std::size_t place) { return static_cast<unsigned>(text[place] - '0'); };
    return {5, NumberedCharacter(digit(2) * 100 + digit(3) * 10 + digit(4), codePage)};
}

TextCode ReadUnicodeCode(std::string_view text)
{
    const UnicodeEscape escape = ReadUnicodeEscape(text);
    if (escape.size == 0)
        return {};
    return {escape.size, Utf8Of(escape.character), 0, IsSurrogate(escape.character)};
}

struct EastAsianPage {
    const char* name;
    std::string_view marker; // a character of the page whose bytes are never UTF-8
};

// By the digit after \M+, from 1.
constexpr EastAsianPage kEastAsianPages[] = {
    {"ANSI_932", "\x82\xA0"},  {"ANSI_950", "\xA4\x40"}, {"ANSI_949", "\xB0\xA1"},
    {"ANSI_1361", "\x88\x61"}, {"ANSI_936", "\xB0\xA1"},
};

constexpr std::size_t kEastAsianEscape = sizeof("\\M+nXXXX") - 1;

// Whether the text begins with an escape of that page.
std::optional<unsigned> ReadEastAsianEscape(std::string_view text, char page)
{
    if (text.size() < kEastAsianEscape || !text.starts_with("\\M+") || text[3] != page)
        return std::nullopt;
    return FourHexDigits(text.substr(4));
}

// A character of that page. Its bytes may happen to be UTF-8, too; those of the marker before them never are.
std::string FromEastAsianPage(const NamedCodePage& codePage, std::string_view marker, unsigned number)
{
    std::string bytes(marker);
    if (number > 0xFF)
        bytes += static_cast<char>(number >> 8);
    bytes += static_cast<char>(number & 0xFF);
    const std::string text = codePage.Utf8(bytes);
    const std::string converted = codePage.Utf8(marker);
    const bool isWhole = text.starts_with(converted) && text.find(kReplacementText) == std::string::npos;
    return isWhole ? text.substr(converted.size()) : std::string(kReplacementText);
}

TextCode ReadEastAsianCode(std::string_view text)
{
    if (text.size() < kEastAsianEscape || text[3] < '1' || text[3] > '5' ||
        !ReadEastAsianEscape(text, text[3]))
        return {};
    TextCode code;
    const EastAsianPage& page = kEastAsianPages[text[3] - '1'];
    const NamedCodePage& codePage = CodePageOf(page.name);
    while (const std::optional<unsigned> next = ReadEastAsianEscape(text.substr(code.size), text[3])) {
        const std::string letters = FromEastAsianPage(codePage, page.marker, *next);
        code.isWrong |= letters == kReplacementText;
        code.letters += letters;
        code.size += kEastAsianEscape;
    }
    return code;
}

// A caret before a character that can be none of these is itself: "m^2".
TextCode ReadCaretCode(std::string_view text)
{
    if (text.size() < 2)
        return {};
    const char c = text[1];
    if (c == ' ')
        return {2, "^"};
    if (c < '@' || c == 0x7F)
        return {};
    const char letter = static_cast<char>(c - '@');
    const bool isLost = IsControlByte(letter) && letter != '\t' && letter != '\n';
    return {2, isLost ? std::string() : std::string(1, letter)};
}

} // namespace

TextCode ReadTextCode(std::string_view text, std::string_view codePage)
{
    switch (text.empty() ? '\0' : text.front()) {
    case '%':
        return ReadPercentCode(text, codePage);
    case '\\': {
        TextCode code = ReadUnicodeCode(text);
        return code.size != 0 ? code : ReadEastAsianCode(text);
    }
    case '^':
        return ReadCaretCode(text);
    default:
        return {};
    }
}

void AppendWithoutControls(std::string& text, std::string_view letters)
{
    for (const char c : letters) {
        if (!IsControlByte(c))
            text += c;
        else if (c == '\t' || c == '\n' || c == '\r')
            text += ' ';
    }
}

} // namespace prepare
