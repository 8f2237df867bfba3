#include "json.h"

#include "utf8.h"

#include <charconv>
#include <cmath>

namespace plexorn {

namespace {

void AppendEscaped(std::string& out, char character)
{
    constexpr char digits[] = "0123456789abcdef";
    auto byte = static_cast<unsigned char>(character);
    if (character == '"' || character == '\\')
        out.append({'\\', character});
    else if (byte < 0x20 || byte == 0x7F)
        out.append({'\\', 'u', '0', '0', digits[byte >> 4], digits[byte & 15]});
    else
        out.push_back(character);
}

} // namespace

void CJson::Separate()
{
    if (m_bNeedsComma)
        m_strOut.push_back(',');
    m_bNeedsComma = false;
}

CJson& CJson::Raw(std::string_view text)
{
    Separate();
    m_strOut += text;
    m_bNeedsComma = true;
    return *this;
}

CJson& CJson::Open(char bracket)
{
    Separate();
    m_strOut.push_back(bracket);
    return *this;
}

CJson& CJson::Close(char bracket)
{
    m_strOut.push_back(bracket);
    m_bNeedsComma = true;
    return *this;
}

CJson& CJson::Name(std::string_view name)
{
    Text(name);
    m_strOut.push_back(':');
    m_bNeedsComma = false;
    return *this;
}

CJson& CJson::Text(std::string_view text)
{
    Separate();
    m_strOut.push_back('"');
    for (char character : ValidUtf8(text))
        AppendEscaped(m_strOut, character);
    m_strOut.push_back('"');
    m_bNeedsComma = true;
    return *this;
}

CJson& CJson::Number(double number)
{
    if (!std::isfinite(number))
        return Null();
    char text[32];
    std::to_chars_result result = std::to_chars(text, text + sizeof text, number);
    return Raw(std::string_view(text, static_cast<size_t>(result.ptr - text)));
}

} // namespace plexorn
