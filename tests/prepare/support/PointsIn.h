// The size of drawings.
#pragma once

#include <cstddef>
#include <string>

namespace prepare {

// How many points the entities of a drawing have, by their x.
inline std::size_t PointsIn(const std::string& text)
{
    std::size_t points = 0;
    for (std::size_t at = text.find("\n10\n"); at != std::string::npos; at = text.find("\n10\n", at + 1))
        ++points;
    return points;
}

} // namespace prepare
