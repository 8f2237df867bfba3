// Small drawings as text.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>

namespace prepare {

using Pairs = std::initializer_list<std::pair<int, std::string>>;

// The pairs as lines.
inline std::string Dxf(Pairs pairs)
{
    std::string text;
    for (const auto& [code, value] : pairs)
        text += std::to_string(code) + "\n" + value + "\n";
    return text;
}

inline std::string Section(const char* name, const std::string& content)
{
    return Dxf({{0, "SECTION"}, {2, name}}) + content + Dxf({{0, "ENDSEC"}});
}

// How many points the entities of a drawing have, by their x.
inline std::size_t PointsIn(const std::string& text)
{
    std::size_t points = 0;
    for (std::size_t at = text.find("\n10\n"); at != std::string::npos; at = text.find("\n10\n", at + 1))
        ++points;
    return points;
}

} // namespace prepare
