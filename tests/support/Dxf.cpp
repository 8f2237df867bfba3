#include "support/Dxf.h"

std::string Dxf(std::initializer_list<Group> groups)
{
    std::string text;
    for (const Group& group : groups)
        text.append(group.code).append("\n").append(group.value).append("\n");
    return text;
}

std::string Repeat(std::initializer_list<Group> groups, int count)
{
    return Repeat(Dxf(groups), count);
}

std::string Repeat(std::string_view text, int count)
{
    std::string repeated;
    repeated.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

std::string Lines(std::initializer_list<std::string_view> lines)
{
    std::string text;
    for (const std::string_view line : lines)
        text.append(line).append("\n");
    return text;
}

std::string Section(std::string_view name, std::string_view body)
{
    return Dxf({{0, "SECTION"}, {2, name}}).append(body) + Dxf({{0, "ENDSEC"}});
}

std::string SectionAlone(std::string_view name, std::string_view body)
{
    return Section(name, body) + Dxf({{0, "EOF"}});
}

std::string EntitiesSection(std::initializer_list<Group> groups)
{
    return SectionAlone("ENTITIES", Dxf(groups));
}
