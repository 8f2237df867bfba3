#include "prepare/write/ModuleDecimals.h"

#include <algorithm>
#include <cmath>

namespace prepare {

// A thousandth of the thinnest stroke is more than anybody sees.
int ModuleDecimals(double stroke)
{
    return std::clamp(static_cast<int>(std::ceil(3 - std::log10(stroke))), 0, 15);
}

} // namespace prepare
