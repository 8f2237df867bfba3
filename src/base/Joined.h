// Joined texts.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

// All parts, one after the other.
inline std::string Joined(std::initializer_list<std::string_view> parts)
{
    std::string out;
    for (std::string_view part : parts)
        out += part;
    return out;
}
