// Numbers of things in what people read.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace plexorn {

// "1 entity", "2 entities".
inline std::string Counted(std::uint64_t number, std::string_view singular, std::string_view plural)
{
    return std::to_string(number).append(" ").append(number == 1 ? singular : plural);
}

} // namespace plexorn
