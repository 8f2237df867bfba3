#include "svghost/XmlStream.h"

#include <algorithm>

namespace svghost {

void XmlStream::Close(std::string_view name)
{
    EndTag();
    Put("</");
    Put(name);
    Put(">\n");
}

void XmlStream::SetText(std::string_view text)
{
    SetRun(text);
    Put("\n");
}

void XmlStream::OpenText(std::string_view text)
{
    m_inTag = false;
    Put(">");
    AddText(text);
}

void XmlStream::AddText(std::string_view text)
{
    PutEscaped(text, XmlPlace::Text);
}

void XmlStream::SetRun(std::string_view text)
{
    OpenText(text);
    Put("</");
    Put(m_element);
    Put(">");
}

void XmlStream::Set(std::string_view name, std::string_view value)
{
    BeginValue(name);
    PutEscaped(value, XmlPlace::Attribute);
    EndValue();
}

bool XmlStream::Finish()
{
    HandOn();
    return m_isGood;
}

void XmlStream::PutLong(std::string_view text)
{
    while (!text.empty()) {
        Put(text.substr(0, kPiece));
        text.remove_prefix(std::min(text.size(), kPiece));
    }
}

void XmlStream::PutEscaped(std::string_view text, XmlPlace place)
{
    while (!text.empty()) {
        const std::size_t plain = CountPlain(text, place);
        Put(text.substr(0, plain));
        if (plain == text.size())
            return;
        m_at = WriteEscape(text[plain], Room(kLongestEscape));
        text.remove_prefix(plain + 1);
    }
}

void XmlStream::HandOn()
{
    const std::size_t size = static_cast<std::size_t>(m_at - m_piece.get());
    m_isGood = m_isGood && m_function(m_user, m_piece.get(), size);
    m_handedOn += size;
    m_at = m_piece.get();
}

} // namespace svghost
