#include "cli/report/Json.h"

#include "base/Numbers.h"
#include "base/Utf8.h"
#include "cli/report/IsUpperControl.h"

#include <algorithm>
#include <cmath>

namespace plexorn {

namespace {

void AppendNumber(std::string& out, unsigned character)
{
    char digits[4];
    out.append("\\u").append(digits, FormatHex(character, 4, digits));
}

// U+2028 and U+2029 end a line for some programs, an object is one line for all.
bool IsSeparator(std::string_view text)
{
    return text.starts_with("\xE2\x80\xA8") || text.starts_with("\xE2\x80\xA9");
}

// Whether a byte is, or may begin, a character that is written in another form.
bool MayBeEscaped(char character)
{
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == '"' || byte == '\\' || byte == 0x7F || byte == 0xC2 || byte == 0xE2;
}

// Appends the character at the start of text, which is UTF-8; its length.
std::size_t AppendEscaped(std::string& out, std::string_view text)
{
    auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    if (IsSeparator(text)) {
        AppendNumber(out, 0x2000u + (byteAt(2) & 0x3Fu));
        return 3;
    }
    if (IsUpperControl(text)) {
        AppendNumber(out, byteAt(1));
        return 2;
    }
    if (text[0] == '"' || text[0] == '\\')
        out.append({'\\', text[0]});
    else if (byteAt(0) < 0x20 || byteAt(0) == 0x7F)
        AppendNumber(out, byteAt(0));
    else
        out.push_back(text[0]);
    return 1;
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
