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

} // namespace prepare
