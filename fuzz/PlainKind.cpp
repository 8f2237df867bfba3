#include "PlainKind.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kNoCode = -1;

} // namespace

void PlainKind::AddField(std::string_view name, bool isText)
{
    m_fields.push_back(
        {std::string(name), kNoCode, kNoCode, PlainConversion::None, isText ? "" : "0", isText});
}

PlainKind& PlainKind::Rule(std::string_view name, int firstCode, int lastCode, PlainConversion conversion,
                           std::string_view initial)
{
    const auto found = std::find_if(m_fields.begin(), m_fields.end(),
                                    [&](const PlainField& field) { return field.name == name; });
    if (found == m_fields.end())
        std::abort(); // the record has no such field
    *found = {found->name, firstCode, lastCode, conversion, std::string(initial), found->isText};
    return *this;
}

PlainKind& PlainKind::Constant(std::string_view name, std::string_view value)
{
    return Rule(name, kNoCode, kNoCode, PlainConversion::None, value);
}

PlainKind& PlainKind::Group(std::string_view name, int code)
{
    return Rule(name, code, code, PlainConversion::Group, "");
}

PlainKind& PlainKind::PendingX(int code)
{
    m_fields.push_back({"", code, code, PlainConversion::PendingX, "", false});
    return *this;
}

PlainKind& PlainKind::Real(std::string_view name, int code, std::string_view initial)
{
    return Rule(name, code, code, PlainConversion::Real, initial);
}

PlainKind& PlainKind::Integer(std::string_view name, int code, std::string_view initial)
{
    return Rule(name, code, code, PlainConversion::Integer, initial);
}

PlainKind& PlainKind::Integers(std::string_view name, int firstCode, int lastCode)
{
    return Rule(name, firstCode, lastCode, PlainConversion::Integer, "0");
}

PlainKind& PlainKind::Text(std::string_view name, int code)
{
    return Rule(name, code, code, PlainConversion::Text, "");
}

PlainKind& PlainKind::RawText(std::string_view name, int code)
{
    return Rule(name, code, code, PlainConversion::RawText, "");
}

PlainKind& PlainKind::Point(std::string_view name, int code)
{
    const std::string start(name);
    return Real(start + "X", code).Real(start + "Y", code + 10).Real(start + "Z", code + 20);
}

PlainKind& PlainKind::Extrusion()
{
    return Real("m_dExtrusionX", 210).Real("m_dExtrusionY", 220).Real("m_dExtrusionZ", 230, "1");
}

int PlainKind::Find(int code, bool own) const
{
    const std::size_t first = own ? m_own : 0;
    const std::size_t last = own ? m_fields.size() : m_own;
    for (std::size_t i = first; i < last; ++i)
        if (m_fields[i].conversion != PlainConversion::None && m_fields[i].firstCode <= code &&
            code <= m_fields[i].lastCode)
            return static_cast<int>(i);
    return -1;
}
