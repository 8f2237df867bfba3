#include "prepare/write/StrokeWidth.h"

#include <algorithm>

namespace prepare {

double StrokeWidth(const WriteSettings& settings, std::int32_t weight, double width)
{
    const double wanted = width > 0 ? width : weight / 100.0 * settings.unitsPerMm;
    return std::max(settings.thinnest, wanted);
}

} // namespace prepare
