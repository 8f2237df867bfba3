#include "prepare/write/StandardNames.h"

#include "base/Letters.h"
#include "base/Numbers.h"
#include "base/Utf8.h"

#include <algorithm>

namespace prepare {

namespace {

constexpr std::size_t kLongestStandardValue = 2000;
constexpr std::size_t kLongestName = 200; // of 255 bytes, with room for a number

void AppendEscape(std::string& text, char32_t unit)
{
    char digits[4];
    text.append("\\U+").append(digits, FormatUpperHex(unit & 0xFFFF, 4, digits));
}

bool BeginsEscape(std::string_view text)
{
    return text.size() > 2 && text[0] == '\\' && text[2] == '+' &&
           (text[1] == 'U' || text[1] == 'u' || text[1] == 'M' || text[1] == 'm');
}

// What of a character's forms is written: one byte, in the code page ANSI_1252, is what all programs read.
enum class Form : std::uint8_t { Byte, Escape };

void AppendCharacter(std::string& text, char32_t character, std::string_view from, Form form)
{
    if (IsControl(character))
        text += ' ';
    else if (BeginsEscape(from))
        AppendEscape(text, U'\\');
    else if (character < 0x7F || (character < 0x100 && form == Form::Byte))
        text += static_cast<char>(character);
    else if (!IsCharacter(character))
        AppendEscape(text, kReplacementCharacter);
    else if (character < 0x10000)
        AppendEscape(text, character);
    else {
        AppendEscape(text, HighSurrogateOf(character));
        AppendEscape(text, LowSurrogateOf(character));
    }
}

// append(text, character, rest, form) adds the form of the character that rest begins with.
template <class Append>
std::string WrittenAs(Form form, std::string_view utf8, std::size_t longest, bool& isCut,
                      const Append& append)
{
    std::string text;
    isCut = false;
    while (!utf8.empty()) {
        const DecodedCharacter character = DecodeUtf8(utf8);
        const std::size_t size = text.size();
        append(text, character.value, utf8, form);
        if (text.size() > longest) {
            text.resize(size);
            isCut = true;
            break;
        }
        utf8.remove_prefix(character.size);
    }
    return text;
}

// Some programs take for UTF-8 whatever is UTF-8: two letters of the code page may be.
bool LooksLikeUtf8(std::string_view text)
{
    bool isAscii = true;
    while (!text.empty()) {
        const DecodedCharacter character = DecodeUtf8(text);
        if (character.value == kNoCharacter)
            return false;
        isAscii = isAscii && character.size == 1;
        text.remove_prefix(character.size);
    }
    return !isAscii;
}

template <class Append>
std::string Escaped(std::string_view utf8, std::size_t longest, bool& isCut, const Append& append)
{
    std::string text = WrittenAs(Form::Byte, utf8, longest, isCut, append);
    return LooksLikeUtf8(text) ? WrittenAs(Form::Escape, utf8, longest, isCut, append) : text;
}

} // namespace

std::string EscapedValue(std::string_view utf8)
{
    bool isCut = false;
    return Escaped(utf8, kLongestStandardValue, isCut, AppendCharacter);
}

std::string EscapedText(std::string_view utf8, bool& isCut)
{
    return Escaped(utf8, kLongestStandardValue, isCut,
                   [&](std::string& text, char32_t character, std::string_view from, Form form) {
                       const bool isAfter = from.data() != utf8.data() && *(from.data() - 1) == '%';
                       const bool isPair = isAfter || (from.size() > 1 && from[1] == '%');
                       if (character == U'%' && isPair)
                           text += "%%%";
                       else if (character == U'^')
                           text += "^ ";
                       else
                           AppendCharacter(text, character, from, form);
                   });
}

StandardNames::StandardNames(std::initializer_list<std::string_view> reserved)
{
    for (const std::string_view name : reserved)
        m_taken.emplace(InSmallLetters(name), 2);
}

std::string StandardNames::Take(std::string_view name)
{
    constexpr std::string_view kForbidden = "<>/\\\":;?*|=,`'";
    std::string valid(name);
    for (char& c : valid)
        if (kForbidden.find(c) != std::string_view::npos)
            c = '_';
    bool isCut = false;
    valid = Escaped(valid, kLongestName, isCut, AppendCharacter);
    if (valid.empty())
        valid.assign(1, '_');
    const auto [first, isNew] = m_taken.emplace(InSmallLetters(valid), 2);
    std::string unique = valid;
    for (bool isFree = isNew; !isFree;) {
        unique = valid + '_' + std::to_string(first->second++);
        isFree = m_taken.emplace(InSmallLetters(unique), 2).second;
    }
    return unique;
}

} // namespace prepare
