// Entities whose lines may come back to where they begin.
#pragma once

#include "prepare/drawing/EntityType.h"

namespace prepare {

constexpr bool MayRunRound(EntityType type)
{
    switch (type) {
    case EntityType::Arc:
    case EntityType::Circle:
    case EntityType::Ellipse:
    case EntityType::LwPolyline:
    case EntityType::Polyline:
    case EntityType::Spline:
        return true;
    default:
        return false;
    }
}

} // namespace prepare
