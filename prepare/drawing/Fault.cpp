#include "prepare/drawing/Fault.h"

#include "base/Blanks.h"
#include "base/Letters.h"
#include "prepare/drawing/Point.h"

#include <cmath>

namespace prepare {

namespace {

// As programs write a number that is not one, or is infinite: "-nan(ind)", "Infinity", "1.#QNAN".
bool IsNotFinite(std::string_view value)
{
    std::string_view word = Trim(value);
    if (word.starts_with('-') || word.starts_with('+'))
        word.remove_prefix(1);
    return word.starts_with("1.#") || AreSameLetters(word.substr(0, word.find('(')), "nan") ||
           AreSameLetters(word, "inf") || AreSameLetters(word, "infinity");
}

} // namespace

Fault FaultOf(std::string_view value, double real)
{
    if (std::fabs(real) > kMostCoordinate)
        return Fault::OutOfRange;
    return IsNotFinite(value) ? Fault::NotFinite : Fault::None;
}

} // namespace prepare
