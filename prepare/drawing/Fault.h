// What is wrong with the numbers of an entity, which then is not drawn.
#pragma once

#include <cstdint>
#include <string_view>

namespace prepare {

// OutOfRange: beyond kMostCoordinate. NotFinite: infinite, or no number, as programs write them.
enum class Fault : std::uint8_t { None, NotFinite, OutOfRange };

// What is wrong with a value that was read as that number.
Fault FaultOf(std::string_view value, double real);

// What reports say of a fault other than None.
constexpr std::string_view TextOf(Fault fault)
{
    return fault == Fault::OutOfRange ? "a number is beyond 1e30" : "a number is not finite";
}

} // namespace prepare
