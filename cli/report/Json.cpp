#include "cli/report/Json.h"

#include "base/Numbers.h"
#include "base/Utf8.h"

#include <algorithm>
#include <cmath>

namespace plexorn {

namespace {

// Whether a byte is, or may begin, a character that is written in another form.
bool MayBeEscaped(char character)
{
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == '"' || byte == '\\' || byte == 0x7F || byte == 0xC2 || byte == 0xE2;
}

// U+2028 and U+2029 end a line for some programs, and an object is one line for all.
bool IsNumbered(char32_t character)
{
    return IsControl(character) || character == 0x2028 || character == 0x2029;
}

// Appends the character at the start of text, which is UTF-8; its length.
std::size_t AppendEscaped(std::string& out, std::string_view text)
{
    const auto [character, size] = DecodeUtf8(text);
    if (IsNumbered(character)) {
        char digits[4];
        out.append("\\u").append(digits, FormatHex(character, 4, digits));
        return size;
    }
    if (character == '"' || character == '\\')
        out.push_back('\\');
    out.append(text.substr(0, size));
    return size;
}

} // namespace

void Json::Separate()
{
    if (m_needsComma)
        m_out.push_back(',');
    m_needsComma = false;
}

Json& Json::Raw(std::string_view text)
{
    Separate();
    m_out += text;
    m_needsComma = true;
    return *this;
}

Json& Json::Open(char bracket)
{
    Separate();
    m_out.push_back(bracket);
    return *this;
}

Json& Json::Close(char bracket)
{
    m_out.push_back(bracket);
    m_needsComma = true;
    return *this;
}

Json& Json::Name(std::string_view name)
{
    Text(name);
    m_out.push_back(':');
    m_needsComma = false;
    return *this;
}

Json& Json::Text(std::string_view text)
{
    Separate();
    m_out.push_back('"');
    const std::string valid = ValidUtf8(text);
    for (std::string_view rest = valid; !rest.empty();) {
        const auto end = std::find_if(rest.begin(), rest.end(), MayBeEscaped);
        const auto size = static_cast<std::size_t>(end - rest.begin());
        m_out += rest.substr(0, size);
        rest.remove_prefix(size);
        if (!rest.empty())
            rest.remove_prefix(AppendEscaped(m_out, rest));
    }
    m_out.push_back('"');
    m_needsComma = true;
    return *this;
}

Json& Json::Number(double number)
{
    if (!std::isfinite(number))
        return Null();
    char text[kLongestShortest];
    return Raw(std::string_view(text, FormatShortest(number, text)));
}

} // namespace plexorn
