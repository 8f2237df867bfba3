#include "prepare/plain/DrawEntity.h"

#include "prepare/plain/DrawAnnotations.h"
#include "prepare/plain/DrawAnyText.h"
#include "prepare/plain/DrawGeometry.h"

namespace prepare {

bool DrawEntity(const Entity& entity, const Placement& placement, const PartStyler& styleOf)
{
    const bool isDrawn = DrawGeometry(entity, placement, styleOf) || DrawAnyText(entity, placement, styleOf);
    // A MULTILEADER is both: its lines are geometry, its text is a note.
    return DrawAnnotations(entity, placement, styleOf) || isDrawn;
}

} // namespace prepare
