#include "svghost/XmlText.h"

#include <pugixml.hpp>

#include <charconv>

namespace svghost {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr std::string_view kReplacementUtf8 = "\xEF\xBF\xBD";

// No character of Unicode, and so none that XML allows.
constexpr char32_t kNone = 0xFFFFFFFF;

bool isSurrogate(char32_t character)
{
    return character >= 0xD800 && character <= 0xDFFF;
}

// The unit or joined pair at position, which moves behind it. What is no character comes out as it is.
char32_t nextCharacter(std::wstring_view text, std::size_t& position)
{
    const auto unit = [&](std::size_t at) {
        const auto value = static_cast<char32_t>(text[at]);
        return sizeof(wchar_t) == 2 ? value & 0xFFFF : value;
    };
    const char32_t first = unit(position++);
    if (sizeof(wchar_t) != 2 || (first & 0xFC00) != 0xD800 || position == text.size())
        return first;
    const char32_t second = unit(position);
    if ((second & 0xFC00) != 0xDC00)
        return first;
    ++position;
    return 0x10000 + ((first & 0x3FF) << 10) + (second & 0x3FF);
}

bool isAllowed(char32_t character)
{
    if (character < 0x20)
        return character == '\t' || character == '\n' || character == '\r';
    return character <= 0x10FFFF && !isSurrogate(character) && character != 0xFFFE && character != 0xFFFF;
}

// The character at position, which moves behind it; kNone and one byte on for what is no UTF-8.
char32_t nextUtf8(std::string_view text, std::size_t& position)
{
    const auto lead = static_cast<unsigned char>(text[position++]);
    if (lead < 0x80)
        return lead;
    const std::size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || lead > 0xF4 || text.size() - position < more)
        return kNone;
    char32_t character = lead & (0x3Fu >> more);
    for (std::size_t i = 0; i < more; ++i) {
        const auto byte = static_cast<unsigned char>(text[position + i]);
        if ((byte & 0xC0) != 0x80)
            return kNone;
        character = (character << 6) | (byte & 0x3Fu);
    }
    constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
    if (character < kSmallest[more])
        return kNone;
    position += more;
    return character;
}

bool isNameCharacter(char32_t character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '-' || character == '.' || character == '_';
}

} // namespace

std::string utf8Of(std::wstring_view text)
{
    std::wstring valid;
    valid.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t begin = i;
        if (isAllowed(nextCharacter(text, i)))
            valid += text.substr(begin, i - begin);
        else
            valid += static_cast<wchar_t>(kReplacement);
    }
    return pugi::as_utf8(valid);
}

std::string validUtf8(std::string_view text)
{
    std::string valid;
    valid.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t begin = i;
        if (isAllowed(nextUtf8(text, i)))
            valid += text.substr(begin, i - begin);
        else
            valid += kReplacementUtf8;
    }
    return valid;
}

void appendXmlName(std::string& out, std::wstring_view text)
{
    for (std::size_t i = 0; i < text.size();) {
        const char32_t character = nextCharacter(text, i);
        const bool opensEscape = character == '_' && i < text.size() && text[i] == L'x';
        if (isNameCharacter(character) && !opensEscape) {
            out += static_cast<char>(character);
            continue;
        }
        char digits[8];
        const auto end = std::to_chars(digits, digits + sizeof digits, static_cast<unsigned>(character), 16);
        out += "_x";
        for (const char* digit = digits; digit != end.ptr; ++digit)
            out += *digit >= 'a' ? static_cast<char>(*digit - 'a' + 'A') : *digit;
        out += '_';
    }
}

bool isAttributeNamePart(std::wstring_view text)
{
    for (const wchar_t unit : text) {
        if (!isNameCharacter(static_cast<char32_t>(unit)))
            return false;
    }
    return !text.empty();
}

std::size_t countCharacters(std::wstring_view text)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++count)
        nextCharacter(text, i);
    return count;
}

} // namespace svghost
