#include "prepare/plain/DrawAnnotations.h"

#include "prepare/plain/DrawMultiLeader.h"
#include "prepare/plain/DrawTable.h"
#include "prepare/plain/DrawTolerance.h"

namespace prepare {

bool DrawAnnotations(const Entity& entity, const Placement& placement, const PartStyler& styleOf)
{
    switch (entity.type) {
    case EntityType::Tolerance:
        DrawTolerance(static_cast<const Tolerance&>(entity), placement, styleOf);
        return true;
    case EntityType::MultiLeader:
        DrawMultiLeaderText(static_cast<const MultiLeader&>(entity), placement, styleOf);
        return true;
    case EntityType::Table:
        DrawTable(static_cast<const Table&>(entity), placement, styleOf);
        return true;
    default:
        return false;
    }
}

} // namespace prepare
